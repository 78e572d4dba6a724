#include "window/keylist/KeyListPart.h"
#include "window/pages/PageRows.h"
#include "window/pages/Questions.h"

// The pages that say where files are. Each asks a question; its answers are in Questions.cpp.

namespace tarvex {
namespace {

enum Group { AccessGroup = 1, DatabaseGroup, WorkgroupGroup, PictureGroup };

constexpr std::u16string_view kFixedPlace = u"an einem &festen Ort";
constexpr std::u16string_view kRegistry = u"über die Registrierung (&Schlüsselliste)";

}  // namespace

Page AccessPage() {
    Page page;
    page.title = u"Access";
    page.help =
        u"Hier wird festgelegt, mit welchem Access die Datenbank geöffnet wird. Auf den PCs Ihrer "
        u"Kunden steht Access in verschiedenen Ordnern; seine Installation trägt den Ort in die "
        u"Registrierung ein. Die Schlüsselliste liest ihn dort und ist deshalb der übliche Weg.\n"
        u"\n"
        u"Die Einträge der Liste werden der Reihe nach versucht; der erste, der zu einem "
        u"vorhandenen msaccess.exe führt, gilt. Ist die Liste ausgefüllt, wird der Pfad nicht "
        u"beachtet. Fehlt beides, wird nur Access 97 (Office 8.0) gesucht.\n"
        u"\n"
        u"Beispiel für einen Eintrag: "
        u"HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Access\\InstallRoot\\Path\n"
        u"Beispiel für einen Pfad: C:\\Programme\\Microsoft Office\\Office11\n"
        u"\n"
        u"Für Access neben dem Startprogramm schreiben Sie .\\msaccess.exe, nicht nur "
        u"msaccess.exe. Ob es das Profil gibt, wird nicht geprüft.";
    page.rows = {
        HeadingRow(u"Access"),
        TextRow(u"So findet das Startprogramm Access:"),
        OptionRow(kAccessUnset, AccessGroup, u"&keine Angabe, es wird nur Access 97 gesucht"),
        OptionRow(kAccessPlace, AccessGroup, kFixedPlace),
        OptionRow(kAccessRegistry, AccessGroup, kRegistry),
        PathRow(kFieldAccPath, u"&Pfad"),
    };
    KeyListPart::AppendRows(page.rows, kAccRegList, 0);
    page.rows.push_back(LineRow(kFieldProfile, u"Profi&l"));
    return page;
}

Page DatabasePage() {
    Page page;
    page.title = u"Datenbank";
    page.help =
        u"Hier wird festgelegt, welche Datenbank geöffnet wird.\n"
        u"\n"
        u"Ohne Angaben sucht das Startprogramm in seinem Ordner eine Datenbank mit seinem eigenen "
        u"Namen: Kunden.exe öffnet Kunden.mdb, sonst Kunden.mde, sonst Kunden.mda. Eine "
        u".accdb-Datei wird so nicht gefunden; geben Sie dafür den Dateinamen an.\n"
        u"\n"
        u"Ein fester Ort besteht aus Ordner und Datei. Der Ordner darf relativ sein und gilt dann "
        u"vom Ordner des Startprogramms aus: Daten oder ..\\Daten. Ein Ordner ohne Datei genügt "
        u"nicht.\n"
        u"\n"
        u"Die Schlüsselliste liest den Ort aus der Registrierung, etwa weil Ihr "
        u"Installationsprogramm ihn dort einträgt. Ihre Einträge werden der Reihe nach versucht, "
        u"der erste, der zu einer vorhandenen Datei führt, gilt; Ordner und Datei werden dann "
        u"nicht beachtet.\n"
        u"\n"
        u"Beispiel für einen Eintrag: "
        u"HKLM\\SOFTWARE\\Muster\\Kunden\\Pfad%|SubDir|%Daten%|Filename%|Kunden.mdb";
    page.rows = {
        HeadingRow(u"Datenbank"),
        TextRow(u"So findet das Startprogramm die Datenbank:"),
        OptionRow(kDatabaseOwnName, DatabaseGroup,
                  u"neben dem Startprogramm, g&leicher Name (.mdb .mde .mda)"),
        OptionRow(kDatabaseBeside, DatabaseGroup, u"neben dem Start&programm, anderer Name"),
        OptionRow(kDatabasePlace, DatabaseGroup, kFixedPlace),
        OptionRow(kDatabaseRegistry, DatabaseGroup, kRegistry),
        PathRow(kFieldDBFilename, u"Dateina&me"),
        PathRow(kFieldDBPath, u"Ord&ner"),
        SecondPathRow(kFieldDBFilename, u"Dat&einame"),
    };
    KeyListPart::AppendRows(page.rows, kDBRegList, 0);
    return page;
}

Page WorkgroupPage() {
    Page page;
    page.title = u"Arbeitsgruppe";
    page.help =
        u"Hier wird festgelegt, mit welcher Arbeitsgruppendatei (.mdw) und unter welchem Namen "
        u"Access sich bei der Datenbank anmeldet. Nur Datenbanken der Formate .mdb, .mde und .mda "
        u"kennen Arbeitsgruppen.\n"
        u"\n"
        u"Ohne eigene Datei gilt die Arbeitsgruppe, die auf dem PC für Access eingestellt ist. "
        u"Sonst steht die Datei neben dem Startprogramm, an einem festen Ort (der Ordner darf "
        u"relativ sein und "
        u"gilt "
        u"dann vom Ordner des Startprogramms aus), oder ihr Ort steht in der Registrierung. Ist "
        u"die Schlüsselliste ausgefüllt, werden Ordner und Datei nicht beachtet.\n"
        u"\n"
        u"Beispiel: Ordner Daten, Datei System.mdw\n"
        u"\n"
        u"Ein Kennwort ohne Benutzernamen wird nicht verwendet. Beide sind in der Programmdatei "
        u"verschleiert, aber nicht sicher verschlüsselt.";
    page.rows = {
        HeadingRow(u"Arbeitsgruppe"),
        TextRow(u"So findet das Startprogramm die Arbeitsgruppendatei:"),
        OptionRow(kWorkgroupNone, WorkgroupGroup,
                  u"keine eigene, es gilt die Vorgabe des S&ystems"),
        OptionRow(kWorkgroupBeside, WorkgroupGroup, u"neben dem Start&programm"),
        OptionRow(kWorkgroupPlace, WorkgroupGroup, kFixedPlace),
        OptionRow(kWorkgroupRegistry, WorkgroupGroup, kRegistry),
        PathRow(kFieldSysDBFilename, u"Dateina&me"),
        PathRow(kFieldSysDBPath, u"Ord&ner"),
        SecondPathRow(kFieldSysDBFilename, u"Dat&einame"),
    };
    KeyListPart::AppendRows(page.rows, kSysDBRegList, 0);
    page.rows.push_back(SecretRow(kFieldUser, u"Anme&lden als"));
    page.rows.push_back(SecretRow(kFieldPwd, u"&Kennwort"));
    return page;
}

Page PicturePage() {
    Page page;
    page.title = u"Startbild";
    page.help =
        u"Hier wird festgelegt, ob vor dem Start von Access ein Bild gezeigt wird. Es steht ohne "
        u"Rahmen in der Mitte des Bildschirms, in der Größe, die es hat.\n"
        u"\n"
        u"Ein Startbild braucht eine Datei (.bmp oder .jpg) und eine Anzeigedauer in "
        u"Millisekunden: 1500 sind anderthalb Sekunden, höchstens 9999 sind möglich. Ohne Dauer "
        u"und bei 0 wird kein Bild gezeigt. Fehlt das Bild auf einem PC, startet Access ohne es.\n"
        u"\n"
        u"Die Datei steht neben dem Startprogramm, an einem festen Ort (der Ordner darf relativ "
        u"sein), oder ihr Ort steht in der Registrierung. Ist die Schlüsselliste ausgefüllt, "
        u"werden Ordner und Datei nicht beachtet.\n"
        u"\n"
        u"Beispiel: neben dem Startprogramm, Datei Start.bmp, Dauer 1500";
    page.rows = {
        HeadingRow(u"Startbild"),
        TextRow(u"So findet das Startprogramm das Startbild:"),
        OptionRow(kPictureNone, PictureGroup, u"&kein Startbild"),
        OptionRow(kPictureBeside, PictureGroup, u"neben dem Start&programm"),
        OptionRow(kPicturePlace, PictureGroup, kFixedPlace),
        OptionRow(kPictureRegistry, PictureGroup, kRegistry),
        PathRow(kFieldPicFilename, u"Dateina&me"),
        PathRow(kFieldPicPath, u"Ord&ner"),
        SecondPathRow(kFieldPicFilename, u"Dat&einame"),
    };
    KeyListPart::AppendRows(page.rows, kPicRegList, 0);
    page.rows.push_back(LineRow(kFieldPicDelay, u"Dauer in Mi&llisekunden", 8));
    return page;
}

}  // namespace tarvex

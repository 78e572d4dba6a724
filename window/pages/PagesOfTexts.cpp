#include "configurator/program/ProgramFields.h"
#include "window/pages/PageRows.h"

// The pages of names, texts and switches.

namespace tarvex {

Page ApplicationPage() {
    Page page;
    page.title = u"Anwendung";
    page.help =
        u"Hier steht, wie Ihre Anwendung heißt. Der Name erscheint in den Titeln der Meldungen und "
        u"Fenster des Startprogramms; ohne ihn steht dort der Name der Programmdatei.\n"
        u"\n"
        u"Die Kennung erscheint nur im Diagnosebericht. An ihr erkennen Sie am Telefon, welche "
        u"Konfiguration ein Kunde hat.\n"
        u"\n"
        u"Beispiel: Name Kundenverwaltung, Kennung KD-2004-1\n"
        u"\n"
        u"Relative Pfade gelten überall vom Ordner des Startprogramms aus, der oben steht.";
    page.rows = {
        HeadingRow(u"Anwendung"),
        TextRow(u""),
        LineRow(kFieldAppName, u"&Name der Anwendung"),
        LineRow(kFieldFileID, u"&Kennung", 14),
    };
    page.rows[1].id = kRowProgram;
    return page;
}

Page OptionsPage() {
    Page page;
    page.title = u"Startoptionen";
    page.help =
        u"Hier steht, wie Access die Datenbank öffnet. Jeder Schalter wird Access auf der "
        u"Befehlszeile übergeben; was die Vorschau unten zeigt, wird so ausgeführt.\n"
        u"\n"
        u"Laufzeitmodus, Schreibschutz, Komprimieren, Reparieren, Dekompilieren, Makro und "
        u"Befehlstext brauchen eine Datenbank; wird keine gefunden, meldet das Startprogramm einen "
        u"Fehler. Komprimieren und Reparieren kann man auch für einen einzelnen Start verlangen: "
        u"Kunden.exe /Compact\n"
        u"\n"
        u"Den Befehlstext liest die Datenbank mit der Funktion Command.\n"
        u"\n"
        u"Beispiel: Makro Autostart, Befehlstext Mandant 1";
    page.rows = {
        HeadingRow(u"Startoptionen"),
        CheckRow(kFieldRuntime, u"&Laufzeitmodus"),
        CheckRow(kFieldExclusive, u"&Exklusiv"),
        CheckRow(kFieldReadOnly, u"Sch&reibgeschützt"),
        CheckRow(kFieldNoStartup, u"&Ohne Startformular"),
        CheckRow(kFieldCompact, u"&Komprimieren"),
        CheckRow(kFieldRepair, u"Re&parieren"),
        CheckRow(kFieldDecompile, u"Dekomp&ilieren"),
        LineRow(kFieldMacro, u"&Makro"),
        LineRow(kFieldCmd, u"Be&fehlstext"),
    };
    return page;
}

Page ErrorsPage() {
    Page page;
    page.title = u"Fehlermeldungen";
    page.help =
        u"Hier steht, was Ihr Benutzer liest, wenn ein Start misslingt. Die Texte stehen "
        u"zusätzlich zu dem, was das Startprogramm selbst meldet: der erste im Fehlerfenster, der "
        u"zweite über "
        u"den Einzelheiten, die erst auf Wunsch erscheinen. Sie dürfen mehrere Zeilen haben.\n"
        u"\n"
        u"Beispiel: Bitte wenden Sie sich an Ihre EDV-Abteilung, Telefon 0711 / 12 34 56.\n"
        u"\n"
        u"Mit einem Hilfethema bekommt das Fehlerfenster eine Schaltfläche für die Hilfe, sofern "
        u"neben dem Startprogramm eine Hilfedatei (.chm oder .hlp) mit seinem Namen liegt. "
        u"Angegeben wird die Nummer des Themas, etwa 100.";
    page.rows = {
        HeadingRow(u"Fehlermeldungen"),
        LinesRow(kFieldErrBoxText, u"Text im &Fehlerfenster", 5),
        LinesRow(kFieldErrDebugText, u"Text über den &Einzelheiten", 5),
        LineRow(kFieldHCID, u"Hilfe&thema", 8),
    };
    return page;
}

Page DiagnosisPage() {
    Page page;
    page.title = u"Diagnose";
    page.help =
        u"Hier steht, was Ihnen bei der Suche nach Fehlern hilft.\n"
        u"\n"
        u"Mit der Protokolldatei schreibt Kunden.exe jeden Start und jeden Fehler in Kunden.log "
        u"neben sich. Kann die Datei nicht geschrieben werden, startet Access trotzdem.\n"
        u"\n"
        u"Den Diagnosebericht zeigt das Startprogramm mit dem Schalter /D. Ist ein Kennwort "
        u"angegeben, muss es dahinter stehen: Kunden.exe /D Diagnose. Es darf kein Leerzeichen und "
        u"kein / enthalten, sonst lässt es sich nicht eingeben; Groß- und Kleinschreibung zählt.";
    page.rows = {
        HeadingRow(u"Diagnose"),
        CheckRow(kFieldLog, u"&Protokolldatei schreiben"),
        SecretRow(kFieldEditPwd, u"&Kennwort"),
    };
    return page;
}

Page ProgramPage() {
    Page page;
    page.title = u"Programmdatei";
    page.help =
        u"Hier bekommt die Programmdatei Ihr Symbol und Ihre Texte. Windows zeigt sie im Explorer, "
        u"unter Eigenschaften, und im Task-Manager. Was leer bleibt, ist wie in der Vorlage.\n"
        u"\n"
        u"Das Symbol ist eine .ico-Datei. Sie sollte die Größen 16, 32 und 48 mit 32 Bit Farbtiefe "
        u"enthalten, die Größe 256 als PNG. Ist das Symbol schon im Programm, nennt das Feld die "
        u"Größen seiner Bilder.\n"
        u"\n"
        u"Versionen beginnen mit bis zu vier Zahlen, dahinter darf Text stehen: 3.1.0 oder "
        u"3.1 Beta. Alle Texte zusammen haben begrenzten Platz; reicht er nicht, sagt es die "
        u"Prüfung beim Speichern.";
    page.rows = {
        HeadingRow(u"Programmdatei"),
        TextRow(u"Was hier leer bleibt, ist wie in der Vorlage."),
        PathRow(kFieldIconFile, u"S&ymboldatei"),
        LineRow(kFieldFileDescription, u"Beschreibun&g"),
        LineRow(kFieldCompanyName, u"He&rsteller"),
        LineRow(kFieldProductName, u"&Produkt"),
        LineRow(kFieldFileVersion, u"&Version der Datei", 24),
        LineRow(kFieldProductVersion, u"Versi&on des Produkts", 24),
        LineRow(kFieldLegalCopyright, u"&Urheberrecht"),
        LineRow(kFieldLegalTrademarks, u"&Marken"),
        LineRow(kFieldInternalName, u"&Interner Name"),
        LineRow(kFieldOriginalFilename, u"Ursprünglicher Da&teiname"),
        LineRow(kFieldComments, u"Bemer&kungen"),
    };
    return page;
}

}  // namespace tarvex

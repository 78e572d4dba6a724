#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "configurator/Model.h"

namespace tarvex {

/// How much a finding matters: an error will not work, a warning works but probably not as meant, a
/// note is worth knowing.
enum class Severity { Error, Warning, Note };

/// "Fehler", "Warnung" or "Hinweis".
std::u16string_view SeverityName(Severity severity);

/// A kind of finding. Vendors name its identifier in scripts and ignore lists, so it never changes.
struct FindingKind {
    std::u16string_view id;
    Severity severity;
    std::u16string_view meaning;  ///< one German line
};

/// All kinds that there are, those that belong together in one place.
inline constexpr auto kFindingKinds = std::to_array<FindingKind>({
    {u"settings-file", Severity::Error, u"Eine Zeile der Einstellungsdatei ist nicht lesbar."},
    {u"continued-value", Severity::Warning, u"Eine eingerückte Zeile setzt einen Wert fort."},
    {u"line-break", Severity::Warning, u"Ein einzeiliger Wert enthält einen Zeilenwechsel."},
    {u"trailing-comment", Severity::Warning, u"Ein Kommentar ist Teil eines Werts geworden."},
    {u"control-character", Severity::Warning,
     u"Ein Wert enthält einen Tabulator, ein geschütztes Leerzeichen oder ein Steuerzeichen."},
    {u"inner-quote", Severity::Warning,
     u"Ein Anführungszeichen steht in einem Wert, der auf der Befehlszeile in Anführungszeichen "
     u"steht."},
    {u"not-a-number", Severity::Error, u"Ein Zahlenfeld enthält keine Zahl."},
    {u"not-a-switch", Severity::Warning, u"Ein Schalter ist weder 1 noch 0."},

    {u"launcher-file", Severity::Error, u"Die Datei ist kein brauchbares Startprogramm."},
    {u"not-branded", Severity::Error, u"Das Startprogramm ist noch nicht konfiguriert."},
    {u"not-changeable", Severity::Note, u"Das Startprogramm kann nicht mehr geändert werden."},
    {u"mark-missing", Severity::Note, u"Dem Startprogramm fehlen Felder dieser Version."},
    {u"mark-unknown", Severity::Note, u"Das Startprogramm hat Felder einer anderen Version."},

    {u"path-quoted", Severity::Error, u"Ein Pfad steht in Anführungszeichen."},
    {u"path-character", Severity::Error, u"Ein Pfad enthält ein unzulässiges Zeichen."},
    {u"path-variable", Severity::Error, u"Ein Pfad enthält eine Umgebungsvariable."},
    {u"path-drive", Severity::Error, u"Ein Doppelpunkt steht an falscher Stelle im Pfad."},
    {u"path-slash", Severity::Warning, u"Ein Pfad enthält '/' statt '\\'."},
    {u"path-slash-absolute", Severity::Error, u"Ein voller Pfad ist mit '/' geschrieben."},
    {u"path-rooted", Severity::Warning,
     u"Ein Pfad beginnt mit einem einzelnen '\\' und gilt doch vom Startprogramm aus."},
    {u"file-name-absolute", Severity::Error, u"Ein Dateiname ist ein voller Pfad."},

    {u"key-list-entry", Severity::Error, u"Ein Eintrag nennt keinen Registrierungswert."},
    {u"key-list-divided", Severity::Warning, u"Ein Feld wird in mehrere Einträge geteilt."},
    {u"key-list-not-divided", Severity::Error,
     u"Ein Feld enthält die Listenmarke, wird aber nicht geteilt."},
    {u"key-list-marker", Severity::Error, u"Eine Marke in einem Eintrag ist falsch geschrieben."},
    {u"key-list-marker-order", Severity::Error, u"Die Marken eines Eintrags sind vertauscht."},
    {u"key-list-bar", Severity::Error, u"Ein Eintrag enthält '|' außerhalb einer Marke."},
    {u"key-list-before-path", Severity::Warning, u"Eine Schlüsselliste verdrängt das Pfadfeld."},
    {u"key-variable", Severity::Error, u"Ein Schlüssel enthält eine Umgebungsvariable."},
    {u"key-separator", Severity::Warning, u"Ein Schlüssel enthält '\\' doppelt."},
    {u"key-wow6432node", Severity::Warning, u"Ein Schlüssel nennt WOW6432Node."},
    {u"key-expandable", Severity::Warning,
     u"Ein Registrierungswert ist von einem Typ, der als fehlend gilt."},
    {u"sub-folder-without-file", Severity::Error,
     u"Ein Eintrag nennt einen Unterordner, aber keine Datei."},

    {u"access-default", Severity::Warning, u"Es wird nur Access 97 gesucht."},
    {u"access-bare-name", Severity::Error, u"AccPath nennt msaccess.exe ohne Ordner."},
    {u"access-other-program", Severity::Error, u"AccPath nennt eine andere Programmdatei."},
    {u"access-entry-file", Severity::Warning,
     u"Ein Eintrag zu Access nennt einen Dateinamen, der nicht beachtet wird."},

    {u"database-path-alone", Severity::Warning, u"DBPath steht ohne DBFilename."},
    {u"option-needs-database", Severity::Error, u"Eine Einstellung braucht eine Datenbank."},
    {u"database-search-accdb", Severity::Note,
     u"Die Suche nach dem Namen des Startprogramms findet keine .accdb-Datei."},
    {u"accdb-workgroup", Severity::Warning, u"Eine .accdb-Datei hat keine Arbeitsgruppe."},
    {u"workgroup-path-alone", Severity::Warning, u"SysDBPath steht ohne SysDBFilename."},
    {u"password-without-user", Severity::Warning, u"Pwd steht ohne User."},
    {u"password-not-typable", Severity::Error, u"EditPwd lässt sich nicht eingeben."},

    {u"picture-path-alone", Severity::Warning, u"PicPath steht ohne PicFilename."},
    {u"picture-type", Severity::Error, u"Ein Startbild ist weder .bmp noch .jpg."},
    {u"picture-without-delay", Severity::Warning, u"Ein Startbild hat keine Anzeigedauer."},
    {u"delay-without-picture", Severity::Note, u"Eine Anzeigedauer steht ohne Startbild."},
    {u"picture-entry-without-file", Severity::Warning,
     u"Ein Eintrag zum Startbild nennt keine Datei."},
    {u"picture-too-large", Severity::Warning, u"Das Startbild ist größer als übliche Bildschirme."},

    {u"icon-file", Severity::Error, u"Die Symboldatei fehlt oder ist unbrauchbar."},
    {u"icon-size-missing", Severity::Warning, u"Dem Symbol fehlt eine der Größen 16, 32 und 48."},
    {u"icon-left-out", Severity::Note, u"Ein Bild der Symboldatei kommt nicht ins Programm."},
});

/// The identifier of a kind that stands in the table; another one does not compile.
class FindingId {
public:
    consteval FindingId(const char16_t* id) : kind_(Find(id)) {}

    const FindingKind& Kind() const { return *kind_; }

private:
    static consteval const FindingKind* Find(std::u16string_view id) {
        for (const FindingKind& kind : kFindingKinds) {
            if (kind.id == id) {
                return &kind;
            }
        }
        throw "no such finding";
    }

    const FindingKind* kind_;
};

/// Something about a configuration that its author should know.
struct Finding {
    Finding(FindingId kind, Problem where)
        : severity(kind.Kind().severity), id(kind.Kind().id), problem(std::move(where)) {}

    Severity severity;
    std::u16string_view id;  ///< of the table above
    Problem problem;         ///< where, and what to write instead
};

using Findings = std::vector<Finding>;

/// "Kunden.ini, Zeile 12, DBPath: Warnung: ... [path-rooted]", one line as ProblemLine gives it.
std::u16string FindingLine(const Finding& finding);

/// Adds the findings of `more` to the end of `findings`.
void Append(Findings& findings, Findings more);

/// Problems as findings of one kind.
Findings AsFindings(FindingId kind, Problems problems);

/// Null when there is no kind of that identifier (as a user typed it; case counts).
const FindingKind* FindFindingKind(std::u16string_view id);

}  // namespace tarvex

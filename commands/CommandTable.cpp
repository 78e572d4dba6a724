#include "commands/CommandTable.h"

#include <algorithm>

namespace tarvex {
namespace {

constexpr OptionInfo kCodepage{Option::Codepage, "codepage", u"NUMMER",
                               u"Codeseite der Benutzer: 874 oder 1250 bis 1258", Words::CodePages};
constexpr OptionInfo kDryRun{Option::DryRun, "dry-run", u"",
                             u"zeigt, was geschrieben würde, und schreibt nichts"};
constexpr OptionInfo kJson{Option::Json, "json", u"", u"gibt JSON aus"};
constexpr OptionInfo kQuiet{Option::Quiet, "quiet", u"", u"meldet nur, was nicht in Ordnung ist"};
constexpr OptionInfo kReveal{Option::Reveal, "reveal", u"",
                             u"zeigt auch Benutzernamen und Kennwörter"};
constexpr OptionInfo kRefuse{Option::Strict, "strict", u"",
                             u"lehnt ab, was 'check' als Fehler oder Warnung meldet"};

constexpr ArgumentInfo kProgram{u"DATEI.exe"};
constexpr ArgumentInfo kEither{u"DATEI.exe|DATEI.ini"};
constexpr ArgumentInfo kNames{u"NAME", Words::FieldNames, true};
constexpr ArgumentInfo kAssignments{u"NAME=WERT", Words::Assignments, true};

constexpr std::u16string_view kSecretDetails =
    u"Mit NAME=- wird der Wert als eine Zeile von der Standardeingabe gelesen, damit ein Kennwort\n"
    u"nicht in der Befehlszeile steht. Am Bildschirm wird er zweimal verlangt und nicht gezeigt.\n";

std::vector<CommandInfo> MakeTable() {
    return {
        {CommandKind::Brand,
         u"brand",
         u"macht aus einer Vorlage ein konfiguriertes Startprogramm",
         {{u"VORLAGE.exe"}, {u"AUSGABE.exe"}},
         {{Option::Settings, "settings", u"DATEI.ini",
           u"Einstellungsdatei (Zeilen der Form Name = Wert); - ist die Standardeingabe"},
          {Option::From, "from", u"ALT.exe",
           u"übernimmt die Einstellungen aus ALT.exe, auch Kennwörter"},
          {Option::Set, "set", u"NAME=WERT", u"setzt einen Wert anders als dort; mehrfach möglich",
           Words::Assignments, true},
          {Option::Drop, "drop", u"NAME",
           u"lässt eine Einstellung von ALT.exe weg; mehrfach möglich", Words::FieldNames, true},
          {Option::Force, "force", u"", u"ersetzt eine vorhandene AUSGABE.exe"},
          kRefuse,
          kDryRun,
          kCodepage,
          kQuiet},
         u"Die Werte kommen aus ALT.exe, dann aus DATEI.ini, dann aus --set; der spätere gilt. "
         u"Was\n"
         u"die Vorlage nicht hat oder nicht fasst, wird genannt und hält an, außer mit --drop.\n"
         u"AUSGABE.exe darf mit --force auch ALT.exe sein: So wird ein Startprogramm erneuert.\n"
         u"\n"
         u"Mit NAME=- wird der Wert als eine Zeile von der Standardeingabe gelesen, damit ein\n"
         u"Kennwort nicht in der Befehlszeile steht. Am Bildschirm wird er zweimal verlangt und "
         u"nicht\n"
         u"gezeigt.\n"},
        {CommandKind::Set,
         u"set",
         u"ändert einzelne Werte in einem Startprogramm",
         {kProgram, kAssignments},
         {{Option::Force, "force", u"", u"nimmt für ein Kennwort auch eine leere Eingabe"},
          kRefuse,
          kDryRun,
          kCodepage,
          kQuiet},
         kSecretDetails},
        {CommandKind::Unset,
         u"unset",
         u"leert einzelne Felder eines Startprogramms",
         {kProgram, kNames},
         {kDryRun, kCodepage, kQuiet},
         {}},
        {CommandKind::Get,
         u"get",
         u"gibt einzelne Werte aus, für Skripte",
         {kEither, kNames},
         {kReveal, kCodepage},
         u"Eine Zeile je Wert in der Reihenfolge der Namen; ein mehrzeiliger Wert hat mehrere.\n"},
        {CommandKind::Show,
         u"show",
         u"zeigt die Felder, die gesetzt sind",
         {kEither},
         {{Option::All, "all", u"", u"zeigt auch die leeren Felder"}, kReveal, kJson, kCodepage},
         {}},
        {CommandKind::Diff,
         u"diff",
         u"vergleicht zwei Startprogramme oder Einstellungsdateien",
         {{u"A"}, {u"B"}},
         {kReveal, kCodepage, kQuiet},
         u"Rückgabe 1, wenn sie sich unterscheiden. Benutzernamen und Kennwörter werden "
         u"verglichen,\n"
         u"aber nur mit --reveal gezeigt.\n"},
        {CommandKind::Export,
         u"export",
         u"schreibt die Werte eines Startprogramms in eine Einstellungsdatei",
         {kProgram, {u"AUSGABE.ini"}},
         {{Option::Force, "force", u"", u"ersetzt eine vorhandene AUSGABE.ini"},
          {Option::NoSecrets, "no-secrets", u"", u"lässt Benutzernamen und Kennwörter weg"},
          kDryRun,
          kCodepage,
          kQuiet},
         u"'brand' macht daraus wieder dasselbe Startprogramm. Benutzername und Kennwörter stehen\n"
         u"im Klartext darin; die Datei kann dann nur ihr Eigentümer lesen. Die AUSGABE - ist die\n"
         u"Standardausgabe.\n"},
        {CommandKind::Check,
         u"check",
         u"meldet, was nicht funktionieren wird oder vermutlich nicht so gemeint ist",
         {kEither},
         {{Option::Strict, "strict", u"", u"Rückgabe 1 auch bei Warnungen"},
          {Option::Ignore, "ignore", u"KENNUNG", u"übergeht einen Befund; mehrfach möglich",
           Words::None, true},
          kJson,
          kCodepage,
          kQuiet},
         u"Fehler: wird nicht funktionieren. Warnung: geht, ist aber vermutlich nicht so gemeint.\n"
         u"Hinweis: gut zu wissen. Am Ende jedes Befundes steht seine Kennung für --ignore.\n"},
        {CommandKind::Simulate,
         u"simulate",
         u"zeigt, was ein Startprogramm auf beschriebenen PCs tun wird",
         {{u"DATEI.exe|DATEI.ini"}, {u"PC", Words::Files, true}},
         {{Option::Run, "run", u"MUSTER", u"nur PCs, deren Dateiname zum Muster passt (* und ?)",
           Words::None},
          {Option::Text, "text", u"",
           u"zeigt auch bei mehreren PCs den ganzen Text des Probelaufs"},
          kJson,
          kCodepage},
         u"Ein PC ist eine Beschreibungsdatei (*.pc) oder ein Ordner mit solchen. Rückgabe 0, "
         u"wenn\n"
         u"auf allen gestartet wird oder alles wie erwartet ausgeht.\n"},
        {CommandKind::Collect,
         u"collect",
         u"beschreibt diesen PC für 'simulate', so weit das Startprogramm danach fragt",
         {kProgram, {u"ORDNER", Words::Folders}},
         {{Option::Force, "force", u"", u"ersetzt eine vorhandene Beschreibung"}, kDryRun, kQuiet},
         u"Nur unter Windows. Die Dateien sind lesbarer Text; es steht nichts darin, wonach das\n"
         u"Startprogramm nicht fragt.\n"},
        {CommandKind::Fields,
         u"fields",
         u"listet alle Felder mit Nummer, Name, nutzbarer Länge in Zeichen und Bedeutung",
         {},
         {kJson, kCodepage},
         {}},
        {CommandKind::Presets,
         u"presets",
         u"listet die bekannten Orte von Access als Zeilen für eine Einstellungsdatei",
         {},
         {},
         {}},
        {CommandKind::Help,
         u"help",
         u"zeigt die Hilfe zu einem Befehl",
         {{u"BEFEHL", Words::Commands, false, true}},
         {},
         {}},
        {CommandKind::Completion,
         u"completion",
         u"gibt die Vervollständigung für eine Shell aus",
         {{u"bash", Words::Shells}},
         {},
         u"Zum Einrichten: tarvexcf completion bash > ~/.local/share/bash-completion/completions/"
         u"tarvexcf\n"},
        {CommandKind::Man, u"man", u"gibt die Handbuchseite im Format von man aus", {}, {}, {}},
    };
}

}  // namespace

const std::vector<CommandInfo>& CommandTable() {
    static const std::vector<CommandInfo> table = MakeTable();
    return table;
}

const CommandInfo* FindCommand(std::u16string_view name) {
    const std::vector<CommandInfo>& table = CommandTable();
    const auto found = std::find_if(table.begin(), table.end(),
                                    [name](const CommandInfo& info) { return info.name == name; });
    return found != table.end() ? &*found : nullptr;
}

}  // namespace tarvex

#include "configurator/FieldTexts.h"

#include <algorithm>
#include <iterator>

#include "configurator/program/ProgramFields.h"
#include "text/Text.h"

namespace tarvex {
namespace {

enum Section { Application, Access, Database, Workgroup, Options, Picture, Diagnosis, Program };

/// The texts of a field, or of all fields of a key list.
struct Row {
    Section section;
    std::int32_t first;
    std::int32_t count;
    std::u16string_view purpose;      ///< of a key list: what its entries lead to
    std::u16string_view inFile = {};  ///< what a settings file has to say of it besides
};

constexpr Row Field(Section section, std::int32_t number, std::u16string_view purpose,
                    std::u16string_view inFile = {}) {
    return {section, number, 1, purpose, inFile};
}

constexpr std::u16string_view kPlainText = u"; im Klartext";

constexpr Row List(Section section, const KeyListFields& list, std::u16string_view leadsTo) {
    return {section, list.first, KeyListFields::kCount, leadsTo};
}

/// In the order in which a settings file shows them.
constexpr Row kRows[] = {
    Field(Application, kFieldAppName, u"Anzeigename der Anwendung"),
    Field(Application, kFieldFileID, u"Kennung dieser Konfiguration für den Diagnosebericht"),
    Field(Application, kFieldHCID, u"Hilfethema (Zahl), das bei einer Fehlermeldung geöffnet wird"),
    Field(Application, kFieldErrBoxText, u"zusätzlicher Text im Fehlerfenster"),
    Field(Application, kFieldErrDebugText, u"zusätzlicher Text über den Fehlerdetails"),

    Field(Access, kFieldAccPath,
          u"Ordner oder voller Pfad von msaccess.exe; relativ zum Startprogramm möglich"),
    List(Access, kAccRegList, u"zu msaccess.exe"),
    Field(Access, kFieldProfile, u"Name des Access-Profils"),

    Field(Database, kFieldDBPath, u"Ordner der Datenbank; relativ zum Startprogramm möglich"),
    Field(Database, kFieldDBFilename, u"Dateiname der Datenbank"),
    List(Database, kDBRegList, u"zur Datenbank"),

    Field(Workgroup, kFieldSysDBPath,
          u"Ordner der Arbeitsgruppendatei; relativ zum Startprogramm möglich"),
    Field(Workgroup, kFieldSysDBFilename, u"Dateiname der Arbeitsgruppendatei"),
    List(Workgroup, kSysDBRegList, u"zur Arbeitsgruppendatei"),
    Field(Workgroup, kFieldUser, u"Benutzername für die Arbeitsgruppendatei", kPlainText),
    Field(Workgroup, kFieldPwd, u"Kennwort zu User", kPlainText),

    Field(Options, kFieldRuntime, u"Access im Laufzeitmodus starten"),
    Field(Options, kFieldExclusive, u"Datenbank exklusiv öffnen"),
    Field(Options, kFieldReadOnly, u"Datenbank schreibgeschützt öffnen"),
    Field(Options, kFieldNoStartup, u"ohne Startformular öffnen"),
    Field(Options, kFieldCompact, u"Datenbank komprimieren"),
    Field(Options, kFieldRepair, u"Datenbank reparieren"),
    Field(Options, kFieldDecompile, u"Datenbank dekompilieren"),
    Field(Options, kFieldMacro, u"Name des Makros, das ausgeführt wird"),
    Field(Options, kFieldCmd, u"Text, den die Datenbank als Befehl erhält"),

    Field(Picture, kFieldPicPath, u"Ordner des Startbilds; leer: Ordner des Startprogramms"),
    Field(Picture, kFieldPicFilename, u"Dateiname des Startbilds (.bmp oder .jpg)"),
    Field(Picture, kFieldPicDelay,
          u"Anzeigedauer des Startbilds in Millisekunden; leer oder 0: kein Bild"),
    List(Picture, kPicRegList, u"zum Startbild"),

    Field(Diagnosis, kFieldLog, u"Starts und Fehler in die Protokolldatei schreiben"),
    Field(Diagnosis, kFieldEditPwd, u"Kennwort für den Diagnosebericht (/D); leer: keines",
          kPlainText),

    Field(Program, kFieldIconFile, u"Symboldatei (.ico) des Programms",
          u"; relativ zur Einstellungsdatei möglich"),
    Field(Program, kFieldFileDescription, u"Beschreibung; im Task-Manager der Name"),
    Field(Program, kFieldCompanyName, u"Name des Herstellers"),
    Field(Program, kFieldProductName, u"Name des Produkts"),
    Field(Program, kFieldFileVersion, u"Version der Datei; beginnt mit Zahlen wie 1.2.3"),
    Field(Program, kFieldProductVersion, u"Version des Produkts; beginnt mit Zahlen wie 1.2.3"),
    Field(Program, kFieldLegalCopyright, u"Urheberrechtsvermerk"),
    Field(Program, kFieldLegalTrademarks, u"Hinweis auf Marken"),
    Field(Program, kFieldInternalName, u"interner Name"),
    Field(Program, kFieldOriginalFilename, u"ursprünglicher Dateiname"),
    Field(Program, kFieldComments, u"Bemerkungen"),
};

std::vector<FieldSection> MakeSections() {
    std::vector<FieldSection> sections = {
        {u"Anwendung", u"Name und Texte, die der Benutzer sieht.", {}},
        {u"Access",
         u"Wo msaccess.exe liegt. Die Schlüssellisten gehen AccPath vor; ist nichts angegeben,\n"
         u"gelten die Schlüssel von Office 8.0.",
         {}},
        {u"Datenbank",
         u"Die Schlüssellisten gehen DBPath und DBFilename vor. Ist nichts angegeben, wird eine\n"
         u"Datenbank mit dem Namen des Startprogramms in dessen Ordner gesucht.",
         {}},
        {u"Arbeitsgruppe",
         u"Arbeitsgruppendatei mit Benutzername und Kennwort. User und Pwd stehen hier im "
         u"Klartext:\n"
         u"diese Datei nicht weitergeben.",
         {}},
        {u"Optionen", u"Schalter werden als 1 (ein) oder 0 (aus) geschrieben.", {}},
        {u"Startbild", u"Bild, das vor dem Start von Access angezeigt wird.", {}},
        {u"Diagnose", u"Protokolldatei und Schutz des Diagnoseberichts.", {}},
        {kProgramSection,
         u"Symbol des Programms und die Texte, die Windows als seine Eigenschaften zeigt. Was "
         u"fehlt,\n"
         u"bleibt wie im unkonfigurierten Startprogramm; ein leerer Wert ist ein leerer Text.",
         {}},
    };
    for (const Row& row : kRows) {
        for (std::int32_t i = 0; i < row.count; ++i) {
            sections[row.section].fields.push_back(row.first + i);
        }
    }
    return sections;
}

/// Null when the field has none.
const Row* FindRow(const BrandField& field) {
    const auto* row = std::find_if(std::begin(kRows), std::end(kRows), [&field](const Row& each) {
        return field.number >= each.first && field.number < each.first + each.count;
    });
    return row != std::end(kRows) ? row : nullptr;
}

}  // namespace

std::u16string FieldMeaning(const BrandField& field) {
    const Row* row = FindRow(field);
    if (row == nullptr) {
        return {};
    }
    const std::u16string_view kind = field.kind == FieldKind::Flag ? u"Schalter: " : u"";
    return std::u16string(kind).append(FieldPurpose(field)).append(row->inFile);
}

std::u16string FieldPurpose(const BrandField& field) {
    const Row* row = FindRow(field);
    if (row == nullptr) {
        return {};
    }
    if (row->count == 1) {
        return std::u16string(row->purpose);
    }
    return text::Decimal(field.number - row->first + 1) + u". Eintrag der Schlüsselliste " +
           std::u16string(row->purpose);
}

const std::vector<FieldSection>& FieldSections() {
    static const std::vector<FieldSection> sections = MakeSections();
    return sections;
}

}  // namespace tarvex

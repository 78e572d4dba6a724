#include "configurator/FieldTexts.h"

#include <algorithm>
#include <array>

#include "text/Text.h"

namespace tarvex {
namespace {

struct Meaning {
    std::int32_t number;
    std::u16string_view text;
};

constexpr Meaning kMeanings[] = {
    {kFieldAppName, u"Anzeigename der Anwendung"},
    {kFieldAccPath, u"Ordner oder voller Pfad von msaccess.exe; relativ zum Startprogramm möglich"},
    {kFieldDBPath, u"Ordner der Datenbank; relativ zum Startprogramm möglich"},
    {kFieldDBFilename, u"Dateiname der Datenbank"},
    {kFieldPicPath, u"Ordner des Startbilds; leer: Ordner des Startprogramms"},
    {kFieldPicFilename, u"Dateiname des Startbilds (.bmp oder .jpg)"},
    {kFieldPicDelay, u"Anzeigedauer des Startbilds in Millisekunden; leer oder 0: kein Bild"},
    {kFieldProfile, u"Name des Access-Profils"},
    {kFieldUser, u"Benutzername für die Arbeitsgruppendatei, im Klartext"},
    {kFieldPwd, u"Kennwort zu User, im Klartext"},
    {kFieldRuntime, u"Schalter: Access im Laufzeitmodus starten"},
    {kFieldExclusive, u"Schalter: Datenbank exklusiv öffnen"},
    {kFieldLog, u"Schalter: Starts und Fehler in die Protokolldatei schreiben"},
    {kFieldReadOnly, u"Schalter: Datenbank schreibgeschützt öffnen"},
    {kFieldCompact, u"Schalter: Datenbank komprimieren"},
    {kFieldRepair, u"Schalter: Datenbank reparieren"},
    {kFieldNoStartup, u"Schalter: ohne Startformular öffnen"},
    {kFieldCmd, u"Text, den die Datenbank als Befehl erhält"},
    {kFieldMacro, u"Name des Makros, das ausgeführt wird"},
    {kFieldSysDBFilename, u"Dateiname der Arbeitsgruppendatei"},
    {kFieldSysDBPath, u"Ordner der Arbeitsgruppendatei; relativ zum Startprogramm möglich"},
    {kFieldFileID, u"Kennung dieser Konfiguration für den Diagnosebericht"},
    {kFieldEditPwd, u"Kennwort für den Diagnosebericht (/D), im Klartext; leer: keines"},
    {kFieldHCID, u"Hilfethema (Zahl), das bei einer Fehlermeldung geöffnet wird"},
    {kFieldDecompile, u"Schalter: Datenbank dekompilieren"},
    {kFieldErrBoxText, u"zusätzlicher Text im Fehlerfenster"},
    {kFieldErrDebugText, u"zusätzlicher Text über den Fehlerdetails"},
};

struct KeyListGroup {
    std::int32_t first;
    std::u16string_view what;
};

constexpr KeyListGroup kKeyListGroups[] = {
    {kFieldAccRegList01, u"zu msaccess.exe"},
    {kFieldDBRegList01, u"zur Datenbank"},
    {kFieldPicRegList01, u"zum Startbild"},
    {kFieldSysDBRegList01, u"zur Arbeitsgruppendatei"},
};

constexpr std::int32_t kApplication[] = {kFieldAppName, kFieldFileID, kFieldHCID, kFieldErrBoxText,
                                         kFieldErrDebugText};
constexpr std::int32_t kAccess[] = {kFieldAccPath,      kFieldAccRegList01, kFieldAccRegList02,
                                    kFieldAccRegList03, kFieldAccRegList04, kFieldAccRegList05,
                                    kFieldAccRegList06, kFieldAccRegList07, kFieldAccRegList08,
                                    kFieldAccRegList09, kFieldAccRegList10, kFieldProfile};
constexpr std::int32_t kDatabase[] = {kFieldDBPath,      kFieldDBFilename,  kFieldDBRegList01,
                                      kFieldDBRegList02, kFieldDBRegList03, kFieldDBRegList04,
                                      kFieldDBRegList05, kFieldDBRegList06, kFieldDBRegList07,
                                      kFieldDBRegList08, kFieldDBRegList09, kFieldDBRegList10};
constexpr std::int32_t kWorkgroup[] = {kFieldSysDBPath,      kFieldSysDBFilename,
                                       kFieldSysDBRegList01, kFieldSysDBRegList02,
                                       kFieldSysDBRegList03, kFieldSysDBRegList04,
                                       kFieldSysDBRegList05, kFieldSysDBRegList06,
                                       kFieldSysDBRegList07, kFieldSysDBRegList08,
                                       kFieldSysDBRegList09, kFieldSysDBRegList10,
                                       kFieldUser,           kFieldPwd};
constexpr std::int32_t kOptions[] = {kFieldRuntime,   kFieldExclusive, kFieldReadOnly,
                                     kFieldNoStartup, kFieldCompact,   kFieldRepair,
                                     kFieldDecompile, kFieldMacro,     kFieldCmd};
constexpr std::int32_t kPicture[] = {kFieldPicPath,      kFieldPicFilename,  kFieldPicDelay,
                                     kFieldPicRegList01, kFieldPicRegList02, kFieldPicRegList03,
                                     kFieldPicRegList04, kFieldPicRegList05, kFieldPicRegList06,
                                     kFieldPicRegList07, kFieldPicRegList08, kFieldPicRegList09,
                                     kFieldPicRegList10};
constexpr std::int32_t kDiagnosis[] = {kFieldLog, kFieldEditPwd};

constexpr std::array<FieldSection, 7> kSections{{
    {u"Anwendung", u"Name und Texte, die der Benutzer sieht.", kApplication},
    {u"Access",
     u"Wo msaccess.exe liegt. Die Schlüssellisten gehen AccPath vor; ist nichts angegeben,\n"
     u"gelten die Schlüssel von Office 8.0.",
     kAccess},
    {u"Datenbank",
     u"Die Schlüssellisten gehen DBPath und DBFilename vor. Ist nichts angegeben, wird eine\n"
     u"Datenbank mit dem Namen des Startprogramms in dessen Ordner gesucht.",
     kDatabase},
    {u"Arbeitsgruppe",
     u"Arbeitsgruppendatei mit Benutzername und Kennwort. User und Pwd stehen hier im Klartext:\n"
     u"diese Datei nicht weitergeben.",
     kWorkgroup},
    {u"Optionen", u"Schalter werden als 1 (ein) oder 0 (aus) geschrieben.", kOptions},
    {u"Startbild", u"Bild, das vor dem Start von Access angezeigt wird.", kPicture},
    {u"Diagnose", u"Protokolldatei und Schutz des Diagnoseberichts.", kDiagnosis},
}};

}  // namespace

std::u16string FieldMeaning(const BrandField& field) {
    const auto* found =
        std::find_if(std::begin(kMeanings), std::end(kMeanings),
                     [&field](const Meaning& meaning) { return meaning.number == field.number; });
    if (found != std::end(kMeanings)) {
        return std::u16string(found->text);
    }
    for (const KeyListGroup& group : kKeyListGroups) {
        const std::int32_t position = field.number - group.first + 1;
        if (position >= 1 && position <= 10) {
            return text::Decimal(position) + u". Eintrag der Schlüsselliste " +
                   std::u16string(group.what);
        }
    }
    return {};
}

std::span<const FieldSection> FieldSections() {
    return kSections;
}

}  // namespace tarvex

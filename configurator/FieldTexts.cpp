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
    KeyListFields list;
    std::u16string_view what;
};

constexpr KeyListGroup kKeyListGroups[] = {
    {kAccRegList, u"zu msaccess.exe"},
    {kDBRegList, u"zur Datenbank"},
    {kPicRegList, u"zum Startbild"},
    {kSysDBRegList, u"zur Arbeitsgruppendatei"},
};

template <std::size_t... counts>
consteval auto Joined(const std::array<std::int32_t, counts>&... parts) {
    std::array<std::int32_t, (counts + ...)> all{};
    auto* end = all.data();
    ((end = std::copy(parts.begin(), parts.end(), end)), ...);
    return all;
}

constexpr std::array kApplication = {kFieldAppName, kFieldFileID, kFieldHCID, kFieldErrBoxText,
                                     kFieldErrDebugText};
constexpr auto kAccess =
    Joined(std::array{kFieldAccPath}, kAccRegList.Numbers(), std::array{kFieldProfile});
constexpr auto kDatabase = Joined(std::array{kFieldDBPath, kFieldDBFilename}, kDBRegList.Numbers());
constexpr auto kWorkgroup = Joined(std::array{kFieldSysDBPath, kFieldSysDBFilename},
                                   kSysDBRegList.Numbers(), std::array{kFieldUser, kFieldPwd});
constexpr std::array kOptions = {kFieldRuntime,   kFieldExclusive, kFieldReadOnly,
                                 kFieldNoStartup, kFieldCompact,   kFieldRepair,
                                 kFieldDecompile, kFieldMacro,     kFieldCmd};
constexpr auto kPicture =
    Joined(std::array{kFieldPicPath, kFieldPicFilename, kFieldPicDelay}, kPicRegList.Numbers());
constexpr std::array kDiagnosis = {kFieldLog, kFieldEditPwd};

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
        const std::int32_t position = field.number - group.list.first + 1;
        if (position >= 1 && position <= KeyListFields::kCount) {
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

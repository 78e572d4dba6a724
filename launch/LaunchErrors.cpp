#include "launch/LaunchErrors.h"

#include <iterator>
#include <utility>

#include "errors/RaisedError.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::u16string_view kDatabaseNeededText =
    u"Es sind keine Pfadinformationen für die zu startende Datenbank verfügbar.@@Wenn Sie keinen "
    u"Pfad angeben, muss sich eine Datenbank namens '";
constexpr std::u16string_view kAccessListUnresolvedText =
    u"Die benutzerdefinierten Registryeinträge für den Access-Pfad sind nicht vorhanden, enthalten "
    u"keinen Wert oder an den angegebenen Positionen wurde keine ausführbare Access-Datei "
    u"gefunden.";
constexpr std::u16string_view kDatabaseListUnresolvedText =
    u"Die benutzerdefinierten Registryeinträge für den Datenbank-Pfad sind nicht vorhanden, "
    u"enthalten keinen Wert oder an den angegebenen Positionen wurde keine Datenbank gefunden.";
constexpr std::u16string_view kSystemDatabaseListInvalidText =
    u"Die Liste der Registryschlüssel für den Pfad der Systemdatenbank konnte nicht analysiert "
    u"werden.";
constexpr std::u16string_view kSystemDatabaseListUnresolvedText =
    u"Die benutzerdefinierten Registryeinträge für den Pfad der Systemdatenbank sind nicht "
    u"vorhanden, enthalten keinen Wert oder an den angegebenen Positionen wurde keine "
    u"Systemdatenbank gefunden.";

/// By code, from 1 on.
constexpr std::u16string_view kTexts[] = {
    u"Der HKey wurde nicht angegeben.",
    u"Der Access-Pfad kann nicht aus der Registry ermittelt werden.",
    u"Die Datei '##' wurde nicht gefunden.",
    u"Der Schlüssellisten-Eintrag '##' ist fehlerhaft bzw. kann nicht interpretiert werden.",
    u"Die Datenbank '##' ist nicht vorhanden.",
    kDatabaseNeededText,
    u"Kann den Eintrag des Profiles '##' nicht in der Registry finden.",
    u"Der Schlüssellisten-Eintrag '##' enthält keinen Verweis auf den HKey.",
    u"System-Datenbank '##' nicht gefunden.",
    u"Die Liste der Registryschlüssel für den Access-Pfad konnte nicht analysiert werden.",
    kAccessListUnresolvedText,
    u"Die Liste der Registryschlüssel für den Datenbank-Pfad konnte nicht analysiert werden.",
    kDatabaseListUnresolvedText,
    kSystemDatabaseListInvalidText,
    kSystemDatabaseListUnresolvedText,
    u"'##' ist kein zulässiger Wert.",
    u"'##' ist kein zulässiger Wert für die Eigenschaft 'AccVersion'.",
};

constexpr std::u16string_view kPlaceholder = u"##";

/// Puts the value in the place of the placeholders; false when there was none.
bool InsertValue(std::u16string& text, std::u16string_view value) {
    const std::size_t position = text.find(kPlaceholder);
    if (position == std::u16string::npos) {
        return false;
    }
    // Kept: as many replacements as the placeholder's position plus 3. It reaches every placeholder
    // of the texts above, so that the first value takes them all, as users' reports show it.
    text = text::Replace(text, kPlaceholder, value, position + 3);
    return true;
}

[[noreturn]] void RaiseAt(const LaunchEnvironment& environment, RaisedError error,
                          std::u16string_view procedure) {
    if (!procedure.empty()) {
        error.source.append(u": ").append(procedure);
        if (error.line != 0) {
            error.source.append(u" (").append(text::Decimal(error.line)).append(u")");
        }
    }
    if (!environment.ui.PointerIsDefault()) {
        environment.ui.SetPointerDefault();
    }
    throw RaisedError(std::move(error));
}

}  // namespace

std::u16string LaunchErrorText(LaunchError error, std::u16string_view exeName,
                               LaunchErrorValue value1, LaunchErrorValue value2) {
    const auto code = static_cast<std::int32_t>(error);
    if (code < 1 || code > static_cast<std::int32_t>(std::size(kTexts))) {
        return {};
    }
    std::u16string text(kTexts[code - 1]);
    if (error == LaunchError::DatabaseNeeded) {
        const bool slash = exeName.find(u'\\') == std::u16string_view::npos;
        text.append(FileNamePart(exeName, slash))
            .append(u".mdb/mde/mda' im Programmpfad befinden.");
    }
    return FillLaunchErrorText(text, value1, value2);
}

std::u16string FillLaunchErrorText(std::u16string_view text, LaunchErrorValue value1,
                                   LaunchErrorValue value2) {
    std::u16string result = text::Replace(text, u"@@", text::kLineBreak);
    if (value1 && InsertValue(result, *value1) && value2) {
        InsertValue(result, *value2);
    }
    return result;
}

void RaiseLaunchError(const LaunchEnvironment& environment, LaunchError error,
                      std::u16string_view procedure, LaunchErrorValue value1,
                      LaunchErrorValue value2) {
    RaisedError raised;
    raised.number = NumberOf(error);
    raised.source = std::u16string(kAppTitle).append(u"/cuTarvex");
    raised.description = LaunchErrorText(error, environment.program.exeName, value1, value2);
    RaiseAt(environment, std::move(raised), procedure);
}

void PassOnLaunchError(const LaunchEnvironment& environment, std::u16string_view procedure) {
    RaisedError raised = CurrentError();
    if (raised.source.empty()) {
        raised.source = kAppTitle;
    }
    RaiseAt(environment, std::move(raised), procedure);
}

}  // namespace tarvex

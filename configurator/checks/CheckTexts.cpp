#include "configurator/checks/CheckRun.h"
#include "configurator/program/ProgramFields.h"
#include "launch/Quoting.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr char16_t kNoBreakSpace = 0xA0;

/// Texts that are shown in windows of their own, with any number of lines.
bool HoldsProse(std::int32_t number) {
    return number == kFieldErrBoxText || number == kFieldErrDebugText;
}

/// Nothing for a character that may stand in the field.
std::u16string NameOfOddCharacter(std::int32_t number, char16_t unit) {
    if (unit == u'\r' || unit == u'\n') {
        return {};
    }
    if (unit == u'\t') {
        return HoldsProse(number) ? u"" : u"einen Tabulator";
    }
    if (unit == kNoBreakSpace) {
        return HoldsProse(number) || number == kFieldAppName ? u"" : u"ein geschütztes Leerzeichen";
    }
    const bool isControl = unit < 0x20 || (unit >= 0x7f && unit < kNoBreakSpace);
    return isControl ? u"das Steuerzeichen mit dem Code " + text::Decimal(unit) : u"";
}

void CheckCharacters(CheckRun& run, std::int32_t number, std::u16string_view value) {
    for (const char16_t unit : value) {
        if (const std::u16string name = NameOfOddCharacter(number, unit); !name.empty()) {
            run.Report(u"control-character", number,
                       u"Der Wert enthält " + name + u"; gemeint ist wohl ein Leerzeichen.");
            return;
        }
    }
}

/// Comments have lines of their own; what looks like one at the end of a value belongs to it.
void CheckComment(CheckRun& run, std::int32_t number, std::u16string_view value) {
    for (std::size_t i = 1; i < value.size(); ++i) {
        const bool isAfterBlank = value[i - 1] == u' ' || value[i - 1] == u'\t';
        const bool isBeforeBlank = i + 1 < value.size() && value[i + 1] == u' ';
        if (isAfterBlank && (value[i] == u';' || (value[i] == u'#' && isBeforeBlank))) {
            run.Report(u"trailing-comment", number,
                       u"Der Text ab '" + std::u16string(1, value[i]) +
                           u"' gehört zum Wert; ein Kommentar braucht eine eigene Zeile.");
            return;
        }
    }
}

void CheckLineBreak(CheckRun& run, std::int32_t number, const Settings::Entry& entry) {
    // The reader of a settings file has told it about the line itself.
    if (entry.line == 0 && entry.value.find(u'\n') != std::u16string::npos) {
        run.Report(u"line-break", number, u"Der Wert enthält einen Zeilenwechsel.");
    }
}

/// Quotes inside a quoted argument end it for Access: nothing escapes them.
void CheckInnerQuotes(CheckRun& run) {
    for (const std::int32_t number :
         {kFieldProfile, kFieldMacro, kFieldUser, kFieldPwd, kFieldCmd}) {
        const std::u16string argument = Quote(run.Value(number));
        if (argument.find(u'"', 1) != argument.size() - 1) {
            run.Report(u"inner-quote", number,
                       u"Der Wert enthält ein Anführungszeichen und steht auf der Befehlszeile "
                       u"selbst in Anführungszeichen; Access liest ihn dort anders.");
        }
    }
}

void CheckNumber(CheckRun& run, std::int32_t number, std::u16string_view consequence) {
    if (run.IsSet(number) && !text::IsDigits(run.Value(number))) {
        run.Report(u"not-a-number", number,
                   u"'" + std::u16string(run.Value(number)) + u"' ist keine Zahl; " +
                       std::u16string(consequence));
    }
}

}  // namespace

void CheckTexts(CheckRun& run) {
    CheckNumber(run, kFieldPicDelay, u"das Startbild wird nicht angezeigt.");
    CheckNumber(run, kFieldHCID, u"es wird keine Hilfe angeboten.");
    CheckInnerQuotes(run);
    for (const auto& [number, entry] : run.All().Entries()) {
        if (IsProgramField(number)) {
            continue;  // Windows shows any text
        }
        const bool isFlag = FindBrandField(number)->kind == FieldKind::Flag;
        if (isFlag && !entry.value.empty() && entry.value != u"1" && entry.value != u"0") {
            run.Report(u"not-a-switch", number,
                       u"'" + entry.value + u"' ist kein Schalterwert und gilt als aus.");
        }
        CheckCharacters(run, number, entry.value);
        if (!HoldsProse(number)) {
            CheckComment(run, number, entry.value);
            CheckLineBreak(run, number, entry);
        }
    }
}

}  // namespace tarvex

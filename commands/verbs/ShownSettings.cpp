#include "commands/verbs/ShownSettings.h"

#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string MarkedLine(std::u16string_view mark, std::int32_t number, std::u16string_view value,
                          bool reveal) {
    if (value.empty()) {
        return {};
    }
    std::u16string line = ShownLine(*FindField(number), value, reveal);
    line.pop_back();
    return std::u16string(mark) + text::Replace(line, u"\n", u"\n" + std::u16string(mark)) + u"\n";
}

}  // namespace

std::u16string ShownLine(const BrandField& field, std::u16string_view value, bool reveal) {
    const std::u16string_view shown = ShownValue(field, value, reveal);
    std::u16string line = std::u16string(field.name) + u" =";
    if (!shown.empty()) {
        line += u" " + text::Replace(shown, text::kLineBreak, u"\n ");
    }
    return line + u"\n";
}

std::u16string ShownDifferences(const std::vector<Difference>& differences, bool reveal) {
    std::u16string text;
    for (const Difference& each : differences) {
        text += MarkedLine(u"- ", each.number, each.before, reveal);
        text += MarkedLine(u"+ ", each.number, each.after, reveal);
    }
    return text;
}

std::u16string ShownChanges(const Settings& before, const Settings& changes) {
    Settings after = before;
    after.SetAll(changes);
    return ShownDifferences(CompareSettings(before, after), false);
}

}  // namespace tarvex

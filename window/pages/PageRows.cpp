#include "window/pages/PageRows.h"

#include <utility>

#include "configurator/FieldTexts.h"
#include "configurator/Model.h"

namespace tarvex {
namespace {

/// Purposes begin in lower case where a settings file shows them behind other words.
std::u16string AsSentence(std::u16string text) {
    const char16_t first = text.empty() ? u'\0' : text.front();
    if ((first >= u'a' && first <= u'z') || first == u'ä' || first == u'ö' || first == u'ü') {
        text.front() = static_cast<char16_t>(first - (u'a' - u'A'));
    }
    return text;
}

FormRow FieldRow(RowKind kind, std::int32_t number, std::u16string_view label) {
    const BrandField& field = *FindField(number);
    FormRow row;
    row.kind = kind;
    row.id = number;
    row.label = label;
    row.name = field.name;
    row.hint = AsSentence(FieldPurpose(field));
    return row;
}

}  // namespace

FormRow HeadingRow(std::u16string_view text) {
    return {RowKind::Heading, 0, std::u16string(text)};
}

FormRow TextRow(std::u16string_view text) {
    return {RowKind::Text, 0, std::u16string(text)};
}

FormRow OptionRow(std::int32_t row, std::int32_t group, std::u16string_view label) {
    FormRow option{RowKind::Radio, row, std::u16string(label)};
    option.group = group;
    return option;
}

FormRow LineRow(std::int32_t field, std::u16string_view label, std::int32_t chars) {
    FormRow row = FieldRow(RowKind::Line, field, label);
    row.chars = chars;
    return row;
}

FormRow PathRow(std::int32_t field, std::u16string_view label) {
    FormRow row = LineRow(field, label);
    row.buttons.push_back({BrowseButton(field), u"...", row.name + u" auswählen"});
    return row;
}

FormRow SecondPathRow(std::int32_t field, std::u16string_view label) {
    FormRow row = PathRow(field, label);
    row.id = SecondRow(field);
    row.buttons.front().id = BrowseButton(row.id);
    return row;
}

FormRow SecretRow(std::int32_t field, std::u16string_view label) {
    return FieldRow(RowKind::Secret, field, label);
}

FormRow LinesRow(std::int32_t field, std::u16string_view label, std::int32_t lines) {
    FormRow row = FieldRow(RowKind::Lines, field, label);
    row.lines = lines;
    return row;
}

FormRow CheckRow(std::int32_t field, std::u16string_view label) {
    return FieldRow(RowKind::Check, field, label);
}

}  // namespace tarvex

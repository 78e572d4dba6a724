#include "errors/cuAppErrorFormatter.h"

#include <algorithm>
#include <array>

#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::size_t kWrapWidth = 80;

struct Row {
    std::u16string_view label;
    std::u16string value;
};

std::u16string DecimalUnlessZero(std::int32_t number) {
    return number == 0 ? std::u16string() : text::Decimal(number);
}

std::u16string LayOutRow(const Row& row, std::size_t labelWidth) {
    std::u16string label(row.label);
    label.resize(labelWidth + 1, u' ');
    label += u": ";
    const std::u16string nextLine =
        std::u16string(text::kLineBreak) + std::u16string(label.size(), u' ');
    return label + text::Replace(cuAppErrorFormatter::WordWrap(row.value, kWrapWidth),
                                 text::kLineBreak, nextLine);
}

/// Line ends inside a paragraph and runs of blanks become a blank. Kept: runs of more than three
/// blanks may leave more than one, as reports have always been wrapped.
std::u16string Smooth(std::u16string_view paragraph) {
    std::u16string smooth(paragraph);
    std::replace(smooth.begin(), smooth.end(), u'\r', u' ');
    std::replace(smooth.begin(), smooth.end(), u'\n', u' ');
    smooth = text::Replace(smooth, u"  ", u" ");
    return text::Replace(smooth, u"   ", u" ");
}

void EndLine(std::u16string& lines) {
    while (!lines.empty() && lines.back() == u' ') {
        lines.pop_back();
    }
    lines += text::kLineBreak;
}

std::u16string WrapParagraph(std::u16string_view paragraph, std::size_t width) {
    const std::u16string smooth = Smooth(paragraph);
    const std::vector<std::u16string_view> words = text::Split(text::Trim(smooth), u' ');
    if (std::any_of(words.begin(), words.end(),
                    [width](std::u16string_view word) { return word.size() > width; })) {
        return std::u16string(paragraph);
    }
    std::u16string lines(words.front());
    std::size_t lineLength = words.front().size();
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::u16string_view word = words[i];
        if (lineLength + 1 + word.size() <= width) {
            lines.append(u" ").append(word);
            lineLength += 1 + word.size();
        } else if (!word.empty()) {
            EndLine(lines);
            lines += word;
            lineLength = word.size();
        }
    }
    return lines;
}

}  // namespace

std::u16string cuAppErrorFormatter::GetFormattedError(const cuAppError& errorObject,
                                                      std::u16string_view module,
                                                      std::u16string_view procedure) {
    if (errorObject.ErrLevel() <= 0) {
        return {};
    }
    const RaisedError error =
        errorObject.Pending() == nullptr ? RaisedError() : *errorObject.Pending();
    const bool withPlace = errorObject.ErrLevel() == 2;
    const std::array<Row, 4> rows = {
        {{u"Nummer", DecimalUnlessZero(error.number)},
         {u"Quelle", withPlace ? errorObject.PendingPlace(module, procedure) : std::u16string()},
         {u"Zeile", withPlace ? DecimalUnlessZero(error.line) : std::u16string()},
         {u"Beschreibung", error.description}}};

    // The column is as wide as the longest label, whether or not its row appears.
    std::size_t labelWidth = 0;
    for (const Row& row : rows) {
        labelWidth = std::max(labelWidth, row.label.size());
    }
    std::u16string block;
    for (const Row& row : rows) {
        if (!row.value.empty()) {
            text::AppendWithSeparator(block, LayOutRow(row, labelWidth), text::kLineBreak);
        }
    }
    return block;
}

std::u16string cuAppErrorFormatter::WordWrap(std::u16string_view text, std::size_t width) {
    std::u16string result;
    for (;;) {
        const std::size_t end = text.find(text::kLineBreak);
        result += WrapParagraph(text::Left(text, end), width);
        if (end == std::u16string_view::npos) {
            return result;
        }
        result += text::kLineBreak;
        text = text::Drop(text, end + text::kLineBreak.size());
    }
}

}  // namespace tarvex

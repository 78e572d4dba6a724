#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "window/form/Form.h"

namespace tarvex {

/// One page of the main window, described by data. A row whose id is the number of a field edits
/// that field.
struct Page {
    std::u16string_view title;  ///< in the list of pages
    std::u16string_view help;   ///< German, for F1; lines separated by "\n"
    std::vector<FormRow> rows;
};

/// All pages in the order of the list.
const std::vector<Page>& Pages();

/// The 0-based number of the page that has the field; every field is on exactly one.
std::size_t PageOfField(std::int32_t number);

/// Id of the row in which the field is edited: the number of the field itself, or of a key list the
/// row of the list. Questions.h has RowToGoTo, which knows what the user has chosen.
std::int32_t RowOfField(std::int32_t number);

// Ids of rows and buttons that are none of a field.

/// Says which launcher the document is about.
inline constexpr std::int32_t kRowProgram = 4001;

/// A second row for a file name, which two answers to a question ask for.
constexpr std::int32_t SecondRow(std::int32_t field) {
    return 4500 + field;
}

/// The "..." button after a row: of a field, or a second row.
constexpr std::int32_t BrowseButton(std::int32_t row) {
    return row >= SecondRow(0) && row < 5000 ? row + 1000 : row + 2000;
}

/// The field that the row edits, a second row included; 0 when it edits none, or several.
std::int32_t FieldOfRow(std::int32_t row);

}  // namespace tarvex

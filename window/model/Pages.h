#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "window/model/Form.h"

namespace tarvex {

/// One page of the main window, described by data. A row whose id is the number of a field edits
/// that field.
struct Page {
    std::u16string_view title;  ///< in the list of pages
    std::vector<FormRow> rows;
};

/// All pages in the order of the list.
const std::vector<Page>& Pages();

/// The 0-based number of the page that has the field; every field is on exactly one.
std::size_t PageOfField(std::int32_t number);

/// Id of the row in which the field is edited: the number of the field itself, or of a key list the
/// row of the list.
std::int32_t RowOfField(std::int32_t number);

}  // namespace tarvex

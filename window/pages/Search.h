#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "window/document/Document.h"
#include "window/pages/Pages.h"

namespace tarvex {

/// A place that a search has found.
struct SearchHit {
    std::size_t page = 0;  ///< 0-based number in the pages
    std::int32_t row = 0;  ///< id of the row; 0: the page itself
    std::u16string text;   ///< German, one line: "Datenbank: Dateiname (DBFilename) = Kunden.mdb"
};

/// Finds settings and pages, without regard to case, by what a user knows of them: the label, the
/// setting's own name, the explanation, the text entered. First come those whose label or name
/// begins with the text, then those where it stands inside, then explanations, then values, each in
/// the order of the pages; a row comes once. Values of user name and passwords are neither looked
/// at nor shown. Nothing for a text of blanks.
std::vector<SearchHit> FindSettings(std::u16string_view searched, const std::vector<Page>& pages,
                                    const Document& document);

}  // namespace tarvex

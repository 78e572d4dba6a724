#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "configurator/checks/Finding.h"
#include "window/document/Document.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// The worst that is to be said about a page. A problem is a text that its field cannot take;
/// notes are none.
enum class PageMark { None, Warning, Error, Problem };

/// Of all pages in their order, from what is wrong now and what the last preview has found; null:
/// there was none.
std::vector<PageMark> PageMarks(const Document& document, const PreviewResult* result);

/// One line of the list of findings.
struct FindingRow {
    Severity severity = Severity::Error;
    std::u16string text;     ///< one German line: "DBPath: Warnung: ... [path-rooted]"
    std::int32_t field = 0;  ///< 0: of no field, then there is nowhere to go
    std::size_t page = 0;    ///< 0-based, of the field
    std::int32_t row = 0;    ///< where to go now; PageForm::GoTo makes ready to
};

/// All findings: first the texts that their fields cannot take, then the last preview's.
std::vector<FindingRow> FindingRows(const Document& document, const PreviewResult* result);

/// Number of the field that the finding names; 0 when it names none.
std::int32_t FieldOfFinding(const Finding& finding);

/// "Warnung: ...", without the field.
std::u16string SeverityText(const Finding& finding);

}  // namespace tarvex

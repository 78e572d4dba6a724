#include "window/pages/PageFindings.h"

#include <algorithm>
#include <utility>

#include "window/pages/Pages.h"
#include "window/pages/Questions.h"

namespace tarvex {
namespace {

PageMark MarkOf(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return PageMark::Error;
        case Severity::Warning:
            return PageMark::Warning;
        case Severity::Note:
            break;
    }
    return PageMark::None;
}

Problems FieldProblems(const Document& document) {
    Problems problems;
    document.Values(&problems);
    for (Problem& problem : problems) {
        problem.place.clear();
    }
    return problems;
}

FindingRow RowOf(const Document& document, Severity severity, std::u16string text,
                 std::int32_t field) {
    FindingRow row{severity, std::move(text), field};
    if (field != 0) {
        row.page = PageOfField(field);
        row.row = RowToGoTo(document, field);
    }
    return row;
}

std::int32_t FieldNamed(std::u16string_view name) {
    const BrandField* field = FindFieldByName(name);
    return field != nullptr ? field->number : 0;
}

}  // namespace

std::vector<PageMark> PageMarks(const Document& document, const PreviewResult* result) {
    std::vector<PageMark> marks(Pages().size(), PageMark::None);
    const auto add = [&marks](std::int32_t field, PageMark mark) {
        if (field != 0) {
            PageMark& worst = marks.at(PageOfField(field));
            worst = std::max(worst, mark);
        }
    };
    for (const Problem& problem : FieldProblems(document)) {
        add(FieldNamed(problem.field), PageMark::Problem);
    }
    if (result != nullptr) {
        for (const Finding& finding : result->findings) {
            add(FieldOfFinding(finding), MarkOf(finding.severity));
        }
    }
    return marks;
}

std::vector<FindingRow> FindingRows(const Document& document, const PreviewResult* result) {
    std::vector<FindingRow> rows;
    for (const Problem& problem : FieldProblems(document)) {
        rows.push_back(
            RowOf(document, Severity::Error, ProblemLine(problem), FieldNamed(problem.field)));
    }
    if (result != nullptr) {
        for (Finding finding : result->findings) {
            finding.problem.place.clear();
            rows.push_back(
                RowOf(document, finding.severity, FindingLine(finding), FieldOfFinding(finding)));
        }
    }
    return rows;
}

std::int32_t FieldOfFinding(const Finding& finding) {
    return FieldNamed(finding.problem.field);
}

std::u16string SeverityText(const Finding& finding) {
    return std::u16string(SeverityName(finding.severity)) + u": " + finding.problem.text;
}

}  // namespace tarvex

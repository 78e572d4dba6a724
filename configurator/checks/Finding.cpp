#include "configurator/checks/Finding.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarvex {

std::u16string_view SeverityName(Severity severity) {
    switch (severity) {
        case Severity::Error:
            return u"Fehler";
        case Severity::Warning:
            return u"Warnung";
        case Severity::Note:
            break;
    }
    return u"Hinweis";
}

std::u16string FindingLine(const Finding& finding) {
    Problem problem = finding.problem;
    problem.text = std::u16string(SeverityName(finding.severity))
                       .append(u": ")
                       .append(finding.problem.text)
                       .append(u" [")
                       .append(finding.id)
                       .append(u"]");
    return ProblemLine(problem);
}

void Append(Findings& findings, Findings more) {
    std::move(more.begin(), more.end(), std::back_inserter(findings));
}

Findings AsFindings(FindingId kind, Problems problems) {
    Findings findings;
    findings.reserve(problems.size());
    for (Problem& problem : problems) {
        findings.emplace_back(kind, std::move(problem));
    }
    return findings;
}

const FindingKind* FindFindingKind(std::u16string_view id) {
    const auto* found = std::find_if(kFindingKinds.begin(), kFindingKinds.end(),
                                     [id](const FindingKind& kind) { return kind.id == id; });
    return found != kFindingKinds.end() ? found : nullptr;
}

}  // namespace tarvex

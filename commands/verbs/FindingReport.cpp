#include "commands/verbs/FindingReport.h"

#include <algorithm>

#include "commands/Json.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::int64_t CountOf(const Findings& findings, Severity severity) {
    return std::count_if(findings.begin(), findings.end(), [severity](const Finding& finding) {
        return finding.severity == severity;
    });
}

}  // namespace

bool AreFatal(const Findings& findings, bool strict) {
    return CountOf(findings, Severity::Error) > 0 ||
           (strict && CountOf(findings, Severity::Warning) > 0);
}

void TellFindings(CommandContext& context, const Findings& findings, bool notes) {
    for (const Finding& finding : findings) {
        if (notes || finding.severity != Severity::Note) {
            context.Err(FindingLine(finding));
        }
    }
}

Problems TellOrRefuse(CommandContext& context, const Findings& findings, bool strict,
                      const std::u16string& file) {
    TellFindings(context, findings, false);
    if (!strict || !AreFatal(findings, true)) {
        return {};
    }
    return {{file, 0, {}, u"Wegen --strict wird nichts geschrieben."}};
}

std::u16string CountText(const Findings& findings) {
    std::u16string counts;
    const auto add = [&](Severity severity, std::u16string_view one, std::u16string_view more) {
        if (const std::int64_t count = CountOf(findings, severity); count > 0) {
            text::AppendWithSeparator(
                counts, text::Decimal(count) + u" " + std::u16string(count == 1 ? one : more),
                u", ");
        }
    };
    add(Severity::Error, u"Fehler", u"Fehler");
    add(Severity::Warning, u"Warnung", u"Warnungen");
    add(Severity::Note, u"Hinweis", u"Hinweise");
    return counts.empty() ? u"keine Beanstandungen" : counts;
}

std::u16string FindingsAsJson(const Findings& findings) {
    std::u16string json = u"[";
    for (const Finding& finding : findings) {
        json += json.size() == 1 ? u"\n" : u",\n";
        json += u"  {\"id\": " + JsonString(finding.id) + u", \"severity\": " +
                JsonString(SeverityName(finding.severity)) + u", \"file\": " +
                JsonString(finding.problem.place) + u", \"line\": " +
                text::Decimal(finding.problem.line) + u", \"field\": " +
                JsonString(finding.problem.field) + u", \"text\": " +
                JsonString(finding.problem.text) + u"}";
    }
    return json + u"\n]\n";
}

}  // namespace tarvex

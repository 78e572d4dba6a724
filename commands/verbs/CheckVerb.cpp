#include <algorithm>

#include "commands/verbs/FindingReport.h"
#include "commands/verbs/Verbs.h"
#include "configurator/checks/FileCheck.h"

namespace tarvex {

int Check(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const std::vector<std::u16string> ignored = line.Values(Option::Ignore);
    for (const std::u16string& id : ignored) {
        if (FindFindingKind(id) == nullptr) {
            context.Err(u"Die Kennung '" + id + u"' gibt es nicht.");
            return kWrongUsage;
        }
    }
    Problems problems;
    const std::optional<std::string> bytes = context.Read(file, problems);
    if (!bytes) {
        return context.Finish(problems, {});
    }
    Findings findings =
        CheckFile(*bytes, file, context.Codec(), {&context.Store(), FolderOf(file)});
    std::erase_if(findings, [&ignored](const Finding& finding) {
        return std::find(ignored.begin(), ignored.end(), finding.id) != ignored.end();
    });
    if (line.Has(Option::Json)) {
        context.Out(FindingsAsJson(findings));
    } else {
        TellFindings(context, findings, true);
        context.Finish({}, file + u": " + CountText(findings) + u".");
    }
    return AreFatal(findings, line.Has(Option::Strict)) ? kFailed : kDone;
}

}  // namespace tarvex

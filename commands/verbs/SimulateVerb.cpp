#include <algorithm>
#include <optional>
#include <utility>

#include "commands/Json.h"
#include "commands/verbs/Verbs.h"
#include "configurator/LauncherImage.h"
#include "simulation/PcSelection.h"
#include "simulation/SimulationReport.h"
#include "simulation/StoredConstants.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// The stored texts of a launcher, or those that branding with a settings file would give it.
StoredConstants ReadConstants(const CommandContext& context, const std::u16string& file,
                              Problems& problems) {
    const std::string bytes = context.Read(file, problems).value_or(std::string());
    if (!problems.empty()) {
        return {};
    }
    if (IsProgram(file, bytes)) {
        const LauncherImage image = LauncherImage::Read(bytes, file);
        problems = image.ReadProblems();
        return StoredConstants::FromImage(image);
    }
    LoadedSettings loaded = LoadSettings(bytes, file, context.Codec());
    problems = std::move(loaded.problems);
    return StoredConstants::FromSettings(loaded.settings, file, context.Codec(), problems);
}

std::u16string JsonList(const std::vector<std::u16string>& items) {
    std::u16string list;
    for (const std::u16string& item : items) {
        text::AppendWithSeparator(list, item, u", ");
    }
    return u"[" + list + u"]";
}

std::u16string JsonOf(const SimulationResult& result) {
    std::u16string members;
    const auto add = [&members](std::u16string_view name, std::u16string_view value) {
        members.append(members.empty() ? u"" : u",\n").append(u"      ");
        members.append(JsonString(name)).append(u": ").append(value);
    };
    std::vector<std::u16string> undescribed;
    for (const Undescribed& one : result.undescribed) {
        undescribed.push_back(JsonString(one.what));
    }
    std::vector<std::u16string> notes;
    for (const std::u16string& note : result.notes) {
        notes.push_back(JsonString(note));
    }
    std::vector<std::u16string> deviations;
    for (const Deviation& deviation : result.deviations) {
        deviations.push_back(u"{\"name\": " + JsonString(deviation.name) + u", \"expected\": " +
                             JsonString(deviation.expected) + u", \"actual\": " +
                             JsonString(deviation.actual) + u"}");
    }
    const LaunchOutcome& outcome = result.outcome;
    add(u"name", JsonString(result.name));
    add(u"passed", result.Passed() ? u"true" : u"false");
    add(u"result", JsonString(result.Result()));
    add(u"asDescribed", JsonString(ResultText(outcome)));
    add(u"error", JsonString(outcome.errorText));
    add(u"access", JsonString(outcome.access));
    add(u"database", JsonString(outcome.database));
    add(u"commandLine", JsonString(outcome.commandLine));
    add(u"undescribed", JsonList(undescribed));
    add(u"notes", JsonList(notes));
    add(u"deviations", JsonList(deviations));
    add(u"text", JsonString(outcome.text));
    return u"    {\n" + members + u"\n    }";
}

std::u16string JsonOf(std::u16string_view file, const std::vector<SimulationResult>& results,
                      bool passed) {
    std::u16string list;
    for (const SimulationResult& result : results) {
        text::AppendWithSeparator(list, JsonOf(result), u",\n");
    }
    return u"{\n  \"file\": " + JsonString(file) + u",\n  \"passed\": " +
           (passed ? u"true" : u"false") + u",\n  \"unseen\": " + JsonString(kUnseen) +
           u",\n  \"pcs\": [\n" + list + u"\n  ]\n}\n";
}

/// What belongs to a line above it stands without the program's name.
void TellRemarks(CommandContext& context, std::u16string_view remarks) {
    for (const std::u16string_view line : text::Split(remarks, u'\n')) {
        if (line.starts_with(u' ')) {
            context.GetConsole().Err(std::u16string(line) + u"\n");
        } else if (!line.empty()) {
            context.Err(line);
        }
    }
}

}  // namespace

int Simulate(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    Problems problems;
    const StoredConstants constants = ReadConstants(context, file, problems);
    PcSelection selection =
        SelectPcs(context.Store(), context.Folders(),
                  {line.arguments.begin() + 1, line.arguments.end()}, line.Value(Option::Run));
    Append(problems, std::move(selection.problems));
    if (!problems.empty()) {
        return context.Finish(problems, {});
    }
    std::vector<SimulationResult> results;
    for (SelectedPc& pc : selection.pcs) {
        results.push_back(SimulateStart(constants, pc.file, pc.path));
    }
    const bool passed = std::all_of(results.begin(), results.end(),
                                    [](const SimulationResult& one) { return one.Passed(); });
    if (line.Has(Option::Json)) {
        context.Out(JsonOf(file, results, passed));
    } else {
        const SimulationReport report = ReportSimulation(results, line.Has(Option::Text));
        context.Out(report.result);
        TellRemarks(context, report.remarks);
    }
    return passed ? kDone : kFailed;
}

}  // namespace tarvex

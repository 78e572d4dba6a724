#include <memory>
#include <utility>

#include "commands/verbs/EnteredSettings.h"
#include "commands/verbs/FindingReport.h"
#include "commands/verbs/ShownSettings.h"
#include "commands/verbs/Verbs.h"
#include "configurator/BrandWriter.h"
#include "configurator/CarriedSettings.h"
#include "configurator/SettingsFile.h"
#include "configurator/checks/Checks.h"

namespace tarvex {
namespace {

OutputRules RulesFor(const CommandLine& line) {
    OutputRules rules;
    rules.force = line.Has(Option::Force);
    if (line.Has(Option::Settings)) {
        rules.inputs.emplace_back(line.Value(Option::Settings));
    }
    if (line.Has(Option::From)) {
        rules.inputs.emplace_back(line.Value(Option::From));
        rules.mayReplace = line.Value(Option::From);
    }
    return rules;
}

/// What a brand command puts together before it writes.
struct Collected {
    Settings settings;
    Findings findings;
    Problems problems;
};

void ReadSettingsFile(CommandContext& context, const std::u16string& file, Collected& collected) {
    if (const std::optional<std::string> bytes = context.Read(file, collected.problems)) {
        ParsedSettings parsed = ParseSettings(*bytes, file, context.Codec());
        Append(collected.problems, std::move(parsed.problems));
        Append(collected.problems,
               LoadIconFile(context.Store(), FolderOf(file), file, parsed.settings));
        collected.settings.SetAll(parsed.settings);
        Append(collected.findings, std::move(parsed.warnings));
    }
}

void ReadOldLauncher(CommandContext& context, const CommandLine& line, Collected& collected) {
    const std::u16string file(line.Value(Option::From));
    const std::optional<std::string> old = context.Read(file, collected.problems);
    const std::optional<std::string> target = context.Read(line.arguments[0], collected.problems);
    if (old && target) {
        CarriedSettings carried = CarrySettings(*old, file, *target, line.arguments[0],
                                                line.Values(Option::Drop), context.Codec());
        for (Problem& misfit : carried.misfits) {
            misfit.text += u" --drop " + misfit.field + u" lässt es weg.";
        }
        Append(collected.problems, std::move(carried.misfits));
        Append(collected.problems, std::move(carried.problems));
        collected.settings.SetAll(carried.settings);
    }
}

Collected Collect(CommandContext& context, const CommandLine& line, const OutputRules& rules) {
    const std::u16string& output = line.arguments[1];
    Collected collected;
    collected.problems = CheckOutput(context.Store(), output, rules);
    std::u16string place = output;
    if (line.Has(Option::From)) {
        ReadOldLauncher(context, line, collected);
    }
    if (line.Has(Option::Settings)) {
        place = line.Value(Option::Settings);
        ReadSettingsFile(context, place, collected);
    }
    Append(collected.problems, EnterSettings(context, line.assignments, u"--set",
                                             line.Has(Option::Force), collected.settings));
    if (collected.problems.empty()) {
        Append(collected.findings,
               CheckSettings(collected.settings, place, {&context.Store(), FolderOf(output)}));
        collected.problems =
            TellOrRefuse(context, collected.findings, line.Has(Option::Strict), output);
    }
    return collected;
}

}  // namespace

int Brand(CommandContext& context, const CommandLine& line) {
    const std::u16string& source = line.arguments[0];
    const std::u16string& output = line.arguments[1];
    OutputRules rules = RulesFor(line);
    // A launcher that is renewed in its place must not change between reading and replacing it.
    std::unique_ptr<FileLock> lock;
    if (rules.force && line.Has(Option::From) && !line.Has(Option::DryRun) &&
        context.Store().IsSameFile(output, rules.mayReplace)) {
        Problems problems;
        lock = LockForChange(context.Store(), output, problems);
        if (lock == nullptr) {
            return context.Finish(problems, {});
        }
        rules.held = lock.get();
    }
    Collected collected = Collect(context, line, rules);
    if (!collected.problems.empty()) {
        return context.Finish(collected.problems, {});
    }
    BrandWriter writer(context.Store(), context.Codec());
    if (line.Has(Option::DryRun)) {
        const Problems problems = writer.CheckBrand(source, collected.settings);
        if (problems.empty()) {
            context.Out(ShownChanges({}, collected.settings));
        }
        return context.Finish(problems, output + u" würde konfiguriert.");
    }
    const Problems problems = writer.Brand(source, output, collected.settings, rules);
    context.Tell(writer.Notes());
    return context.Finish(problems, output + u" ist konfiguriert.");
}

}  // namespace tarvex

#include "commands/verbs/EnteredSettings.h"
#include "commands/verbs/FindingReport.h"
#include "commands/verbs/ShownSettings.h"
#include "commands/verbs/Verbs.h"
#include "configurator/BrandWriter.h"
#include "configurator/checks/Checks.h"

namespace tarvex {
namespace {

int Change(CommandContext& context, const CommandLine& line, const Settings& changes) {
    const std::u16string& file = line.arguments[0];
    const LoadedSettings loaded = context.Load(file);
    if (loaded.problems.empty()) {
        Settings after = loaded.settings;
        after.SetAll(changes);
        const Problems refused =
            TellOrRefuse(context, CheckSettings(after, file, {&context.Store(), FolderOf(file)}),
                         line.Has(Option::Strict), file);
        if (!refused.empty()) {
            return context.Finish(refused, {});
        }
    }
    BrandWriter writer(context.Store(), context.Codec());
    if (line.Has(Option::DryRun)) {
        const Problems problems = writer.CheckChange(file, changes);
        if (problems.empty()) {
            context.Out(ShownChanges(loaded.settings, changes));
        }
        return context.Finish(problems, file + u" würde geändert.");
    }
    const Problems problems = writer.Change(file, changes);
    context.Tell(writer.Notes());
    return context.Finish(problems, file + u" ist geändert.");
}

}  // namespace

int Set(CommandContext& context, const CommandLine& line) {
    Settings changes;
    const Problems problems = EnterSettings(context, line.assignments, line.arguments[0],
                                            line.Has(Option::Force), changes);
    return problems.empty() ? Change(context, line, changes) : context.Finish(problems, {});
}

int Unset(CommandContext& context, const CommandLine& line) {
    Settings changes;
    Problems problems;
    for (std::size_t i = 1; i < line.arguments.size(); ++i) {
        const std::u16string& name = line.arguments[i];
        if (const BrandField* field = FindFieldByName(name)) {
            changes.Set(field->number, {});
        } else {
            problems.push_back({line.arguments[0], 0, name, UnknownNameText(name)});
        }
    }
    return problems.empty() ? Change(context, line, changes) : context.Finish(problems, {});
}

}  // namespace tarvex

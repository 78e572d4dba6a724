#include "commands/verbs/Verbs.h"
#include "configurator/SettingsExport.h"
#include "text/Text.h"

namespace tarvex {

int Export(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const std::u16string& output = line.arguments[1];
    const bool toOutput = IsStandardOutput(output);
    const OutputRules rules{.force = line.Has(Option::Force), .inputs = {file}};
    LoadedSettings loaded = context.Load(file);
    Problems& problems = loaded.problems;
    const bool hasIcon = !loaded.settings.Icon().empty();
    if (!toOutput) {
        Append(problems, CheckExport(context.Store(), output, hasIcon, rules));
    }
    if (!problems.empty()) {
        return context.Finish(problems, {});
    }
    const ExportedSettings exported =
        ExportSettings(std::move(loaded.settings), file, toOutput ? u"" : output,
                       !line.Has(Option::NoSecrets), context.Codec());
    if (!exported.problems.empty()) {
        return context.Finish(exported.problems, {});
    }
    if (toOutput) {
        if (hasIcon) {
            context.Err(u"Das Symbol wird nur in eine Datei exportiert.");
        }
        context.Out(text::FromUtf8(exported.bytes));
        return kDone;
    }
    if (line.Has(Option::DryRun)) {
        return context.Finish({}, output + u" würde geschrieben.");
    }
    Problems notes;
    problems = WriteExport(context.Store(), exported, output, rules, notes);
    context.Tell(notes);
    return context.Finish(problems, output + u" ist geschrieben.");
}

}  // namespace tarvex

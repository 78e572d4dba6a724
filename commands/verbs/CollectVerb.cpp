#include "commands/verbs/Verbs.h"
#include "configurator/LauncherImage.h"
#include "simulation/CollectedFiles.h"
#include "simulation/StoredConstants.h"
#include "text/Text.h"

namespace tarvex {

int Collect(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const std::u16string& folder = line.arguments[1];
    const std::unique_ptr<ThisPc> pc = OpenThisPc();
    if (!pc) {
        return context.Finish(
            {{file, 0, {}, u"'collect' beschreibt den PC, auf dem es läuft, und braucht Windows."}},
            {});
    }
    Problems problems;
    const std::string bytes = context.Read(file, problems).value_or(std::string());
    const LauncherImage image = LauncherImage::Read(bytes, file);
    if (problems.empty()) {
        problems = image.ReadProblems();
    }
    if (problems.empty() && !image.IsBranded()) {
        problems.push_back({file, 0, {}, u"Das Startprogramm ist noch nicht konfiguriert."});
    }
    const bool dryRun = line.Has(Option::DryRun);
    if (problems.empty()) {
        const std::u16string fullFolder = pc->FullPath(folder);
        const std::vector<CollectedFile> files =
            CollectPc(*pc, StoredConstants::FromImage(image), pc->FullPath(file), context.Codec(),
                      KnownAccessEntries());
        OutputRules rules;
        rules.force = line.Has(Option::Force);
        Problems notes;
        problems = dryRun ? CheckCollected(context.Store(), files, fullFolder, rules)
                          : WriteCollected(context.Store(), files, fullFolder, rules, notes);
        context.Tell(notes);
        if (problems.empty() && dryRun) {
            context.Out(text::FromUtf8(files.front().bytes));
        }
    }
    return context.Finish(problems, folder + (dryRun ? u": Die Beschreibung würde geschrieben."
                                                     : u": Die Beschreibung ist geschrieben."));
}

}  // namespace tarvex

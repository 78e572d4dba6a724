#include "commands/Verbs.h"
#include "configurator/Checks.h"
#include "configurator/LauncherImage.h"

namespace tarvex {

int Check(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    Problems problems;
    const std::optional<std::string> bytes = context.Read(file, problems);
    if (!bytes) {
        return context.Finish(problems, {});
    }
    LoadedSettings loaded = LoadSettings(*bytes, file, context.Codec());
    problems = std::move(loaded.problems);
    if (loaded.branded) {
        Append(problems, CheckSettings(loaded.settings, file));
    } else if (problems.empty()) {
        problems = LauncherImage::Read(*bytes, file).ChangeProblems();
        problems.push_back({file, 0, {}, u"Das Startprogramm ist noch nicht konfiguriert."});
    }
    return context.Finish(problems, file + u": keine Beanstandungen.");
}

}  // namespace tarvex

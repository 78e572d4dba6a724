#include "commands/Verbs.h"
#include "configurator/Checks.h"
#include "configurator/LauncherImage.h"
#include "configurator/SettingsSource.h"

namespace tarvex {

int Check(const CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const std::string bytes = context.ReadInput(file);
    LoadedSettings loaded = LoadSettings(bytes, file, context.Codec());
    Problems problems = std::move(loaded.problems);
    if (loaded.branded) {
        Append(problems, CheckSettings(loaded.settings, file));
    } else if (problems.empty()) {
        problems = LauncherImage::Read(bytes, file).ChangeProblems();
        problems.push_back({file, 0, {}, u"Das Startprogramm ist noch nicht konfiguriert."});
    }
    return context.Finish(problems, file + u": keine Beanstandungen.");
}

}  // namespace tarvex

#include "configurator/SettingsSource.h"

#include <utility>

#include "configurator/BrandWriter.h"
#include "configurator/FileTexts.h"
#include "configurator/LauncherImage.h"
#include "configurator/SettingsFile.h"
#include "configurator/checks/Checks.h"
#include "configurator/program/ProgramFields.h"
#include "configurator/program/ProgramResources.h"
#include "text/Text.h"

namespace tarvex {

bool IsProgram(std::u16string_view name, std::string_view bytes) {
    return bytes.starts_with("MZ") || text::EndsWithIgnoreCase(name, u".exe");
}

LoadedSettings LoadSettings(std::string_view bytes, std::u16string_view name,
                            const TextCodec& codec) {
    LoadedSettings loaded;
    if (!IsProgram(name, bytes)) {
        ParsedSettings parsed = ParseSettings(bytes, name, codec);
        loaded.settings = std::move(parsed.settings);
        loaded.problems = std::move(parsed.problems);
        loaded.warnings = std::move(parsed.warnings);
        loaded.branded = true;
        return loaded;
    }
    loaded.isProgram = true;
    const LauncherImage image = LauncherImage::Read(bytes, name);
    loaded.branded = image.IsBranded();
    loaded.problems = image.ReadProblems();
    if (loaded.problems.empty()) {
        loaded.settings = ReadSettings(image, name, codec, loaded.problems);
        AddProgramSettings(ProgramResources::Read(bytes), loaded.settings);
        loaded.warnings = CheckVersion(image, name);
    }
    return loaded;
}

std::u16string IconPath(std::u16string_view folder, std::u16string_view given) {
    std::u16string path = text::Replace(given, u"\\", u"/");
    const bool isAbsolute = path.starts_with(u'/') || (path.size() > 1 && path[1] == u':');
    if (folder.empty() || isAbsolute) {
        return path;
    }
    return std::u16string(folder) + (folder.ends_with(u'/') ? u"" : u"/") + path;
}

Problems LoadIconFile(FileStore& store, std::u16string_view folder, std::u16string_view place,
                      Settings& settings) {
    const std::u16string_view given = settings.Value(kFieldIconFile);
    if (given.empty() || !settings.Icon().empty()) {
        return {};
    }
    const std::u16string path = IconPath(folder, given);
    std::u16string problem;
    try {
        std::string bytes = store.ReadAll(path);
        problem = ReadIconForProgram(bytes).problem;
        settings.SetIcon(std::move(bytes));
    } catch (...) {
        problem = CaughtText();
    }
    if (problem.empty()) {
        return {};
    }
    return {{std::u16string(place), settings.Line(kFieldIconFile),
             std::u16string(FindField(kFieldIconFile)->name), path + u": " + problem}};
}

}  // namespace tarvex

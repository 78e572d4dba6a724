#include "configurator/SettingsSource.h"

#include <utility>

#include "configurator/BrandWriter.h"
#include "configurator/LauncherImage.h"
#include "configurator/SettingsFile.h"
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
    }
    return loaded;
}

}  // namespace tarvex

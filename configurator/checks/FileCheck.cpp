#include "configurator/checks/FileCheck.h"

#include <utility>

#include "configurator/LauncherImage.h"
#include "configurator/SettingsSource.h"

namespace tarvex {

Findings CheckFile(std::string_view bytes, std::u16string_view name, const TextCodec& codec,
                   const LauncherFolder& folder) {
    LoadedSettings loaded = LoadSettings(bytes, name, codec);
    Findings findings;
    if (loaded.isProgram) {
        const LauncherImage image = LauncherImage::Read(bytes, name);
        findings = CheckLauncher(image, name);
        if (!image.ReadProblems().empty() || !loaded.branded) {
            return findings;
        }
        Append(findings, AsFindings(u"launcher-file", std::move(loaded.problems)));
    } else {
        findings = AsFindings(u"settings-file", std::move(loaded.problems));
        Append(findings, std::move(loaded.warnings));
        if (folder.store != nullptr) {
            Append(findings, AsFindings(u"icon-file", LoadIconFile(*folder.store, folder.path, name,
                                                                   loaded.settings)));
        }
    }
    if (!loaded.settings.Entries().empty()) {
        Append(findings, CheckSettings(loaded.settings, name, folder));
    }
    return findings;
}

}  // namespace tarvex

#include "configurator/FileCheck.h"

#include <utility>

#include "configurator/LauncherImage.h"
#include "configurator/SettingsSource.h"

namespace tarvex {

Findings CheckFile(std::string_view bytes, std::u16string_view name, const TextCodec& codec,
                   const LauncherFolder& folder) {
    LoadedSettings loaded = LoadSettings(bytes, name, codec);
    Findings findings;
    if (loaded.isProgram) {
        findings = AsFindings(u"launcher-file", std::move(loaded.problems));
        Append(findings,
               AsFindings(u"not-changeable", LauncherImage::Read(bytes, name).ChangeProblems()));
        if (!loaded.branded && !loaded.settings.Entries().empty()) {
            findings.push_back(
                {u"not-branded",
                 {std::u16string(name), 0, {}, u"Das Startprogramm ist noch nicht konfiguriert."}});
            return findings;
        }
    } else {
        findings = AsFindings(u"settings-file", std::move(loaded.problems));
        Append(findings, std::move(loaded.warnings));
    }
    if (!loaded.settings.Entries().empty()) {
        Append(findings, CheckSettings(loaded.settings, name, folder));
    }
    return findings;
}

}  // namespace tarvex

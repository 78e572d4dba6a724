#include "launch/Resolution.h"

#include <algorithm>

#include "launch/Quoting.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::size_t kMaxNameChars = 256;
constexpr std::size_t kMaxDataBytes = 4096;

bool ProfileExists(const LaunchRun& run, std::u16string_view key) {
    if (key.empty()) {
        return false;
    }
    const auto names = run.environment.registry.ListValueNames(kHKeyLocalMachine, key,
                                                               kMaxNameChars, kMaxDataBytes);
    return std::any_of(names.begin(), names.end(), [&run](const std::u16string& name) {
        return text::EqualsIgnoreCase(name, run.properties.profile);
    });
}

void VerifyProfile(LaunchRun& run) {
    // A version that is not set uses the keys of the oldest Office, as the Access path does.
    const std::int32_t version = run.accVersion;
    const std::u16string_view key = ProfileKey(version == -1 ? 0 : version);
    run.log.AddLog(std::u16string(u"Schlüssel: ").append(key));
    if (ProfileExists(run, key)) {
        run.log.AddLog(u"Profil: OK");
        return;
    }
    run.log.AddLog(u"Profil ist nicht vorhanden");
    run.RaiseOrNote(LaunchError::ProfileNotFound, u"GetProfile", run.properties.profile);
}

}  // namespace

std::u16string_view ProfileKey(std::int32_t version) {
    switch (version) {
        case 0:
            return u"SOFTWARE\\Microsoft\\Office\\8.0\\Access\\Profiles";
        case 1:
            return u"SOFTWARE\\Microsoft\\Office\\9.0\\Access\\Profiles";
        case 2:
            return u"SOFTWARE\\Microsoft\\Office\\10.0\\Access\\Profiles";
        case 3:
            return u"SOFTWARE\\Microsoft\\Office\\11.0\\Access\\Profiles";
        default:
            return {};
    }
}

std::u16string ResolveProfile(LaunchRun& run) {
    run.log.AddLog(u"[Profil]", true);
    const std::u16string& profile = run.properties.profile;
    if (profile.empty()) {
        run.log.AddLog(u"Kein Profil eingestellt");
        return {};
    }
    run.log.AddLog(u"Profil: " + profile);
    if (run.properties.verifyProfile) {
        VerifyProfile(run);
    }
    return u" /Profile " + Quote(profile);
}

}  // namespace tarvex

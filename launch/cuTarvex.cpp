#include "launch/cuTarvex.h"

#include "launch/AccessCommandLine.h"
#include "launch/LaunchErrors.h"
#include "launch/LaunchRun.h"
#include "launch/Resolution.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::int32_t kVersionCount = 4;

/// The list that a selector stands for; null for an unknown selector.
std::u16string LaunchProperties::*ListOf(std::int32_t selector) {
    switch (selector) {
        case 0:
            return &LaunchProperties::accRegListString;
        case 1:
            return &LaunchProperties::dbRegListString;
        case 2:
            return &LaunchProperties::systemDBRegListString;
        default:
            return nullptr;
    }
}

}  // namespace

void cuTarvex::SetAccVersion(std::int32_t value) {
    if (value >= kVersionCount) {
        RaiseLaunchError(environment_, LaunchError::AccVersionNotAllowed, u"AccVersion (Let)",
                         text::Decimal(value));
    }
    accVersion_ = value;
}

std::u16string cuTarvex::RegProfileKey(std::int32_t version) {
    return std::u16string(ProfileKey(version));
}

bool cuTarvex::GetCommandLine() {
    commandLine_.clear();
    commandLineHiddenUserPW_.clear();
    debugLog_.Clear();
    testModeError_ = false;
    try {
        LaunchRun run{environment_, properties_, accVersion_, debugLog_, testModeError_};
        ResolvedParts parts;
        parts.access = ResolveAccess(run);
        if (parts.access.empty()) {
            return false;
        }
        parts.database = ResolveDatabase(run);
        parts.systemDatabase = ResolveSystemDatabase(run);
        parts.profileArgument = ResolveProfile(run);
        CommandLines lines = ComposeCommandLine(parts, properties_);
        commandLine_ = std::move(lines.real);
        commandLineHiddenUserPW_ = std::move(lines.hiddenUserPW);
        return true;
    } catch (...) {
        // Kept: the colon before the name gives two in the report, by which users know the place.
        PassOnLaunchError(environment_, u": GetCommandLine");
    }
}

std::u16string cuTarvex::HKeyEnum2String(std::int32_t root) {
    return std::u16string(HKeyName(root));
}

std::int32_t cuTarvex::HKeyString2Enum(std::u16string_view name) {
    return HKeyFromName(name);
}

void cuTarvex::RegListAdd(std::int32_t selector, std::u16string_view entry) {
    if (const auto list = ListOf(selector)) {
        text::AppendWithSeparator(properties_.*list, entry, properties_.markers.list, true);
    }
}

std::vector<std::u16string> cuTarvex::RegListArray(std::int32_t selector) const {
    const auto list = ListOf(selector);
    if (list == nullptr) {
        RaiseLaunchError(environment_, LaunchError::ValueNotAllowed, u"RegListArray",
                         text::Decimal(selector));
    }
    return text::SplitList(properties_.*list, properties_.markers.list);
}

std::u16string cuTarvex::RegListBuild(std::u16string_view keyPath, std::u16string_view valueName,
                                      std::u16string_view fileName, std::u16string_view subFolder,
                                      std::int32_t rootNumber, std::u16string_view rootName) const {
    constexpr std::u16string_view kProcedure = u"RegListBuild";
    KeyListEntry entry{rootNumber, std::u16string(keyPath), std::u16string(valueName),
                       std::u16string(subFolder), std::u16string(fileName)};
    if (rootNumber == kNoHKey && !rootName.empty()) {
        entry.root = HKeyFromName(rootName);
        if (entry.root == kNoHKey) {
            RaiseLaunchError(environment_, LaunchError::ValueNotAllowed, kProcedure, rootName);
        }
    }
    std::u16string text = BuildKeyListEntry(entry, properties_.markers);
    if (text.empty()) {
        RaiseLaunchError(environment_, LaunchError::HKeyMissing, kProcedure);
    }
    return text;
}

KeyListEntry cuTarvex::RegListParse(std::u16string_view entry) const {
    KeyListParse parse = ParseKeyListEntry(entry, properties_.markers);
    if (parse.error) {
        RaiseLaunchError(environment_, *parse.error, u"RegListParse", entry);
    }
    return std::move(parse.entry);
}

void cuTarvex::SetDefaults() {
    accVersion_ = 0;
    properties_.markers = KeyListMarkers();
    properties_.optionCompact = false;
    properties_.optionExclusive = false;
    properties_.optionNoStartup = false;
    properties_.optionReadOnly = false;
    properties_.optionRepair = false;
    properties_.optionRuntime = false;
}

}  // namespace tarvex

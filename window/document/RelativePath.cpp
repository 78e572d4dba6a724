#include "window/document/RelativePath.h"

#include "configurator/Model.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {

std::optional<std::u16string> RelativeFolder(std::u16string_view folder,
                                             std::u16string_view launcherFolder) {
    const std::u16string full = AddSep(folder);
    const std::u16string base = AddSep(launcherFolder);
    if (!IsAbsoluteFolder(base) || !text::StartsWithIgnoreCase(full, base)) {
        return std::nullopt;
    }
    if (full.size() == base.size()) {
        return u".";
    }
    std::u16string_view rest = text::Drop(full, base.size());
    rest.remove_suffix(1);
    // A setting keeps no blanks at its ends, and "\" at the beginning or ".." would be misread.
    const bool isKept = TrimBlanksAndTabs(rest) == rest;
    if (!isKept || rest.starts_with(u'\\') || !text::EqualsIgnoreCase(RelToAbs(rest, base), full)) {
        return std::nullopt;
    }
    return std::u16string(rest);
}

}  // namespace tarvex

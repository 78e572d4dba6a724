#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "configurator/checks/Checks.h"

namespace tarvex {

using Texts = std::vector<std::u16string>;

struct Given {
    std::int32_t number;
    std::u16string_view value;
};

inline Texts CheckExactly(const std::vector<Given>& given, const LauncherFolder& folder = {}) {
    Settings settings;
    for (const Given& one : given) {
        settings.Set(one.number, one.value);
    }
    Texts lines;
    for (const Finding& finding : CheckSettings(settings, {}, folder)) {
        lines.push_back(FindingLine(finding));
    }
    return lines;
}

/// As CheckExactly, with a place of Access to which nothing is to be said.
inline Texts Check(std::vector<Given> given, const LauncherFolder& folder = {}) {
    given.push_back({kAccRegList.Field(10),
                     u"HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Access\\InstallRoot\\Path"});
    return CheckExactly(given, folder);
}

}  // namespace tarvex

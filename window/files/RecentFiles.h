#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "window/main/UserSettings.h"

namespace tarvex {

/// The files that the user opened or saved last.
class RecentFiles {
public:
    static constexpr std::size_t kMost = 8;

    /// `settings` keeps the list, is not owned and outlives this object.
    explicit RecentFiles(UserSettings& settings) : settings_(settings) {}

    /// Full paths, the last one first. Files that are gone meanwhile are among them: they may be on
    /// a drive that is not there at the moment.
    std::vector<std::u16string> Paths() const;

    /// Puts a path first. One that differs by case only was the same file.
    void Add(std::u16string_view path);

    void Remove(std::u16string_view path);

private:
    void Keep(const std::vector<std::u16string>& paths);

    UserSettings& settings_;
};

}  // namespace tarvex

#include "window/files/RecentFiles.h"

#include <algorithm>

#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string NameOf(std::size_t index) {
    return u"Datei" + text::Decimal(static_cast<std::int64_t>(index + 1));
}

std::vector<std::u16string> Without(std::vector<std::u16string> paths, std::u16string_view path) {
    std::erase_if(
        paths, [path](const std::u16string& each) { return text::EqualsIgnoreCase(each, path); });
    return paths;
}

}  // namespace

std::vector<std::u16string> RecentFiles::Paths() const {
    std::vector<std::u16string> paths;
    for (std::size_t i = 0; i < kMost; ++i) {
        if (std::u16string path = settings_.Read(NameOf(i)); !path.empty()) {
            paths.push_back(std::move(path));
        }
    }
    return paths;
}

void RecentFiles::Add(std::u16string_view path) {
    std::vector<std::u16string> paths = Without(Paths(), path);
    paths.insert(paths.begin(), std::u16string(path));
    Keep(paths);
}

void RecentFiles::Remove(std::u16string_view path) {
    Keep(Without(Paths(), path));
}

void RecentFiles::Keep(const std::vector<std::u16string>& paths) {
    for (std::size_t i = 0; i < kMost; ++i) {
        settings_.Write(NameOf(i), i < paths.size() ? paths[i] : std::u16string());
    }
}

}  // namespace tarvex

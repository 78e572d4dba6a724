#include "simulation/PcSelection.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/LaunchSwitches.h"
#include "simulation/pc/PcDescription.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::u16string_view kExtension = u".pc";

std::u16string_view NameOf(std::u16string_view path) {
    const std::size_t separator = path.find_last_of(u"/\\");
    return separator == std::u16string_view::npos ? path : text::Drop(path, separator + 1);
}

bool IsChosen(std::u16string_view path, std::u16string_view pattern) {
    const std::u16string_view name = NameOf(path);
    return pattern.empty() || MatchesPattern(name, pattern) ||
           (text::EndsWithIgnoreCase(name, kExtension) &&
            MatchesPattern(text::Left(name, name.size() - kExtension.size()), pattern));
}

/// The files that the paths stand for, each once.
std::vector<std::u16string> FilesOf(const FolderListing& folders,
                                    const std::vector<std::u16string>& paths, Problems& problems) {
    std::vector<std::u16string> files;
    const auto add = [&files](std::u16string path) {
        if (std::find(files.begin(), files.end(), path) == files.end()) {
            files.push_back(std::move(path));
        }
    };
    for (const std::u16string& path : paths) {
        std::optional<std::vector<std::u16string>> names = folders.FilesIn(path);
        if (!names) {
            add(path);
            continue;
        }
        std::erase_if(*names, [](const std::u16string& name) {
            return !text::EndsWithIgnoreCase(name, kExtension);
        });
        if (names->empty()) {
            problems.push_back({path, 0, {}, u"Der Ordner enthält keine PC-Beschreibung (*.pc)."});
        }
        std::sort(names->begin(), names->end());
        const bool closed = path.ends_with(u'/') || path.ends_with(u'\\');
        for (const std::u16string& name : *names) {
            add(std::u16string(path).append(closed ? u"" : u"/").append(name));
        }
    }
    return files;
}

}  // namespace

PcSelection SelectPcs(FileStore& files, const FolderListing& folders,
                      const std::vector<std::u16string>& paths, std::u16string_view pattern) {
    PcSelection selection;
    std::vector<std::u16string> chosen = FilesOf(folders, paths, selection.problems);
    std::erase_if(chosen,
                  [pattern](const std::u16string& path) { return !IsChosen(path, pattern); });
    if (chosen.empty() && selection.problems.empty()) {
        selection.problems.push_back(
            {u"--run",
             0,
             {},
             u"Zu '" + std::u16string(pattern) + u"' passt der Dateiname keines PCs."});
    }
    for (const std::u16string& path : chosen) {
        if (auto pc = SelectPc(files, path, selection.problems)) {
            selection.pcs.push_back(std::move(*pc));
        }
    }
    return selection;
}

std::optional<SelectedPc> SelectPc(FileStore& files, std::u16string_view path, Problems& problems) {
    ReadPc read = ReadPcFile(files, path);
    Append(problems, std::move(read.problems));
    if (!read.file) {
        return std::nullopt;
    }
    if (ParseLaunchSwitches(read.file->pc.Description().switches).info) {
        problems.push_back({std::u16string(path), 0, u"Schalter",
                            u"Mit /D wird nichts gestartet, was simuliert werden kann."});
        return std::nullopt;
    }
    return SelectedPc{std::u16string(path), std::move(*read.file)};
}

bool MatchesPattern(std::u16string_view text, std::u16string_view pattern) {
    std::size_t at = 0;
    std::size_t patternAt = 0;
    std::size_t star = std::u16string_view::npos;
    std::size_t starAt = 0;
    while (at < text.size()) {
        const bool more = patternAt < pattern.size();
        if (more && pattern[patternAt] == u'*') {
            star = patternAt++;
            starAt = at;
        } else if (more && (pattern[patternAt] == u'?' ||
                            text::Fold(pattern[patternAt]) == text::Fold(text[at]))) {
            ++patternAt;
            ++at;
        } else if (star != std::u16string_view::npos) {
            // The last "*" takes one character more.
            patternAt = star + 1;
            at = ++starAt;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', patternAt) == std::u16string_view::npos;
}

}  // namespace tarvex

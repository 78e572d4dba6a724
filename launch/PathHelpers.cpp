#include "launch/PathHelpers.h"

#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

std::size_t LastSeparator(std::u16string_view path, bool slash) {
    return path.rfind(slash ? u'/' : u'\\');
}

/// Length of the part that cannot be left upwards: "C:\" or "\\server\share\".
std::size_t RootLength(std::u16string_view folder) {
    if (!folder.starts_with(u"\\\\")) {
        return folder.substr(0, 3).ends_with(u":\\") ? 3 : 0;
    }
    const std::size_t server = folder.find(u'\\', 2);
    const std::size_t share = server == kNone ? kNone : folder.find(u'\\', server + 1);
    return share == kNone ? folder.size() : share + 1;
}

/// The folder above one that ends in "\"; a root is its own parent.
std::u16string_view ParentFolder(std::u16string_view folder) {
    const std::size_t root = RootLength(folder);
    if (folder.size() <= root) {
        return folder;
    }
    const std::size_t separator = folder.substr(0, folder.size() - 1).rfind(u'\\');
    return folder.substr(0, separator == kNone ? 0 : separator + 1);
}

std::u16string WalkUp(std::u16string_view folder, std::u16string_view launcherFolder) {
    std::u16string current = AddSep(launcherFolder);
    for (const std::u16string& level : text::SplitList(AddSep(folder), u"\\")) {
        current = level == u".." ? std::u16string(ParentFolder(current))
                                 : AddSep(current).append(AddSep(level));
    }
    return AddSep(current);
}

}  // namespace

std::u16string AddSep(std::u16string_view text, char16_t separator) {
    std::u16string result(text);
    if (!result.empty() && result.back() != separator) {
        result.push_back(separator);
    }
    return result;
}

std::u16string JoinPath(std::u16string_view folder, std::u16string_view name) {
    return AddSep(folder).append(name);
}

std::u16string CompanionPath(const ProgramInfo& program, std::u16string_view extension) {
    return JoinPath(program.folder, program.exeName + std::u16string(extension));
}

bool IsAbsoluteFolder(std::u16string_view folder) {
    return folder.starts_with(u"\\\\") || text::Drop(folder, 1).starts_with(u":\\");
}

std::u16string RelToAbs(std::u16string_view folder, std::u16string_view launcherFolder,
                        DiagnosticLog* log) {
    if (folder.empty() || IsAbsoluteFolder(folder)) {
        return AddSep(folder);
    }
    const auto addLog = [log](std::u16string_view label, std::u16string_view path) {
        if (log != nullptr) {
            log->AddLog(std::u16string(label).append(path));
        }
    };
    std::u16string result;
    if (folder.starts_with(u"..\\")) {
        addLog(u"Relativer Pfad: ", folder);
        result = WalkUp(folder, launcherFolder);
    } else {
        result = JoinPath(launcherFolder, AddSep(folder));
    }
    addLog(u"Absoluter Pfad: ", result);
    return result;
}

bool IsPictureName(std::u16string_view path) {
    return text::EndsWithIgnoreCase(path, u".bmp") || text::EndsWithIgnoreCase(path, u".jpg");
}

std::u16string_view FileNamePart(std::u16string_view path, bool slash) {
    const std::size_t separator = LastSeparator(path, slash);
    return separator == kNone ? path : text::Drop(path, separator + 1);
}

std::u16string_view FolderPart(std::u16string_view path, bool slash) {
    const std::size_t separator = LastSeparator(path, slash);
    return separator == kNone ? std::u16string_view() : text::Left(path, separator);
}

}  // namespace tarvex

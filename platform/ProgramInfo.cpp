#include "platform/ProgramInfo.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr std::u16string_view kBlanks = u" \t";
constexpr auto kNone = std::u16string_view::npos;

std::u16string_view From(std::u16string_view text, std::size_t position) {
    return text.substr(std::min(position, text.size()));
}

/// What follows the first word: the name may hold blanks and "/" when it is in quotation marks.
std::u16string_view BehindProgramName(std::u16string_view commandLine) {
    if (commandLine.starts_with(u'"')) {
        const std::size_t closing = commandLine.find(u'"', 1);
        return closing == kNone ? std::u16string_view() : commandLine.substr(closing + 1);
    }
    return From(commandLine, commandLine.find_first_of(kBlanks));
}

/// A folder is named without its closing "\", but "C:" alone would be the drive's current folder.
std::u16string_view FolderOf(std::u16string_view path, std::size_t separator) {
    if (separator == kNone) {
        return {};
    }
    const bool root = separator == 0 || path[separator - 1] == u':';
    return path.substr(0, root ? separator + 1 : separator);
}

}  // namespace

ProgramInfo MakeProgramInfo(std::u16string_view executable, std::u16string_view commandLine) {
    const std::size_t separator = executable.find_last_of(u'\\');
    const std::u16string_view file =
        separator == kNone ? executable : executable.substr(separator + 1);
    const std::u16string_view arguments = BehindProgramName(commandLine);
    ProgramInfo info;
    info.folder = FolderOf(executable, separator);
    info.exeName = file.substr(0, file.find_last_of(u'.'));
    info.arguments = From(arguments, arguments.find_first_not_of(kBlanks));
    return info;
}

}  // namespace tarvex

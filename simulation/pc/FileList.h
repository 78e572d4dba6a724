#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "configurator/Model.h"

namespace tarvex {

/// What a list of files says, line by line, blanks around the lines dropped. With problems the
/// paths are those that had none.
struct ParsedFileList {
    std::vector<std::u16string> paths;
    Problems problems;
};

/// Reads a list with one full path a line, as "dir /s /b /a-d" prints it: by its byte order mark,
/// else UTF-16 where there are zero bytes, else UTF-8 where it is valid, else in the console's code
/// page 850. Empty lines say nothing. `name` names the list in the problems.
ParsedFileList ParseFileList(std::string_view bytes, std::u16string_view name);

/// Why a path cannot be a description's; empty when it can: one with a drive or a server, "C:x" or
/// "\x", of characters that names can have. German.
std::u16string DescribedPathProblem(std::u16string_view path);

}  // namespace tarvex

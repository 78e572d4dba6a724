#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "configurator/Model.h"
#include "platform/FileStore.h"
#include "simulation/pc/DescribedPc.h"

namespace tarvex {

/// What a description says the launch should come to. Texts are as they stand there.
struct Expectation {
    bool given = false;  ///< the file has the section; then at least one text is set
    std::optional<std::u16string> result;
    std::optional<std::u16string> access;
    std::optional<std::u16string> database;
    std::optional<std::u16string> commandLine;
    std::optional<std::u16string> protocol;  ///< the text of the file that is named, lines CR LF
};

/// A computer and what is expected of a start there.
struct PcFile {
    std::u16string name;  ///< of the file, without its folder
    DescribedPc pc;
    Expectation expectation;
};

/// What reading a description gave: a computer, or problems.
struct ReadPc {
    std::optional<PcFile> file;  ///< nothing when there are problems
    Problems problems;           ///< with file (the description's or one that it names) and line
};

/// Reads a description and every file that it names; those are looked for beside it. Never throws:
/// a file that cannot be read is a problem.
ReadPc ReadPcFile(FileStore& files, std::u16string_view path);

}  // namespace tarvex

#include "commands/CommandContext.h"

#include <algorithm>

#include "configurator/FileTexts.h"

namespace tarvex {

std::optional<std::string> CommandContext::Read(const std::u16string& file,
                                                Problems& problems) const {
    try {
        return IsStandardInput(file) ? environment_.console.ReadInput()
                                     : environment_.store.ReadAll(file);
    } catch (...) {
        problems.push_back({file, 0, {}, CaughtText()});
        return std::nullopt;
    }
}

LoadedSettings CommandContext::Load(const std::u16string& file) const {
    Problems problems;
    const std::optional<std::string> bytes = Read(file, problems);
    if (bytes) {
        LoadedSettings loaded = LoadSettings(*bytes, file, Codec());
        Append(loaded.problems, LoadIconFile(Store(), FolderOf(file), file, loaded.settings));
        return loaded;
    }
    LoadedSettings nothing;
    nothing.problems = std::move(problems);
    return nothing;
}

void CommandContext::Out(std::u16string_view text) {
    outputIsWhole_ = environment_.console.Out(text) && outputIsWhole_;
}

void CommandContext::Err(std::u16string_view line) {
    environment_.console.Err(u"tarvexcf: " + std::u16string(line) + u"\n");
}

void CommandContext::Tell(const Problems& problems) {
    for (const Problem& problem : problems) {
        Err(ProblemLine(problem));
    }
}

int CommandContext::Finish(const Problems& problems, std::u16string_view done) {
    Tell(problems);
    if (!problems.empty()) {
        return kFailed;
    }
    if (!done.empty() && !quiet_) {
        Out(std::u16string(done) + u"\n");
    }
    return kDone;
}

std::u16string FolderOf(std::u16string_view file) {
    const std::size_t separator = file.find_last_of(u"/\\");
    return separator == std::u16string_view::npos
               ? std::u16string()
               : std::u16string(file.substr(0, std::max<std::size_t>(separator, 1)));
}

bool IsStandardInput(std::u16string_view file) {
    return file == u"-" || file == u"/dev/stdin";
}

bool IsStandardOutput(std::u16string_view file) {
    return file == u"-" || file == u"/dev/stdout";
}

}  // namespace tarvex

#include "commands/CommandContext.h"

namespace tarvex {

void CommandContext::Err(std::u16string_view line) const {
    environment_.console.Err(u"tarvexcf: " + std::u16string(line) + u"\n");
}

int CommandContext::Finish(const Problems& problems, std::u16string_view done) const {
    for (const Problem& problem : problems) {
        Err(ProblemLine(problem));
    }
    if (!problems.empty()) {
        return kFailed;
    }
    if (!done.empty() && !quiet_) {
        Out(std::u16string(done) + u"\n");
    }
    return kDone;
}

std::string CommandContext::ReadInput(std::u16string_view file) const {
    return environment_.store.ReadAll(file);
}

}  // namespace tarvex

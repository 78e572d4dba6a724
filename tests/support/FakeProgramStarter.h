#pragma once

#include <string>
#include <vector>

#include "window/files/ProgramStarter.h"

namespace tarvex {

/// Starts nothing and records what it was asked for: "PROGRAM [ARGUMENT]".
class FakeProgramStarter : public ProgramStarter {
public:
    std::vector<std::u16string> log;
    std::u16string problem;  ///< the result of every start

    std::u16string Start(std::u16string_view program, std::u16string_view argument) override {
        log.push_back(std::u16string(program) + u" [" + std::u16string(argument) + u"]");
        return problem;
    }
};

}  // namespace tarvex

#pragma once

#include <gtest/gtest.h>

#include "errors/MessageTable.h"
#include "errors/cuAppError.h"
#include "tests/support/FakeUi.h"
#include "tests/support/TestProgram.h"

namespace tarvex {

/// An error object over the real message texts in C:\Prog.
class AppErrorFixture : public testing::Test {
protected:
    /// What ErrRaise raises; number 0 when it returns.
    RaisedError Raised(std::int32_t number, std::u16string source = {},
                       std::u16string_view procedure = {}, std::u16string description = {},
                       const MsgParam& param1 = {}, const MsgParam& param2 = {},
                       std::int32_t helpContext = 0, std::u16string helpFile = {}) {
        try {
            errors.ErrRaise(number, source, procedure, description, param1, param2, helpContext,
                            std::move(helpFile));
        } catch (const RaisedError& error) {
            EXPECT_EQ(number, error.number) << "arguments receive what is raised";
            EXPECT_EQ(source, error.source);
            EXPECT_EQ(description, error.description);
            return error;
        }
        return {};
    }

    void SetPending(std::int32_t number, std::u16string source, std::u16string description,
                    std::int32_t line = 0) {
        errors.SetPending({number, std::move(source), std::move(description), {}, 0, line});
    }

    FakeUi ui;
    MessageTable texts;
    ProgramInfo program = TestProgram();
    cuAppError errors{ui, texts, program};
};

}  // namespace tarvex

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "errors/RaisedError.h"
#include "launch/cuTarvex.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FakeUi.h"
#include "tests/support/TestProgram.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {

/// The lines of a text as UTF-8, which test failures show readably. Only CR LF ends a line.
inline std::vector<std::string> Lines(std::u16string_view text) {
    const std::string utf8 = text::ToUtf8(text);
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end = 0; end != std::string::npos; start = end + 2) {
        end = utf8.find("\r\n", start);
        lines.push_back(utf8.substr(start, end == std::string::npos ? end : end - start));
    }
    return lines;
}

/// The error that a call raises; nothing when it raises none.
inline std::optional<RaisedError> ErrorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const RaisedError& error) {
        return error;
    }
    return std::nullopt;
}

/// Matches a raised error by all that the launch engine fills in.
MATCHER_P3(IsError, number, source, description, "") {
    *result_listener << "where the error is "
                     << (arg ? std::to_string(arg->number) + ", " + text::ToUtf8(arg->source) +
                                   ", " + text::ToUtf8(arg->description)
                             : "none");
    return arg && arg->number == number && text::ToUtf8(arg->source) == source &&
           text::ToUtf8(arg->description) == description;
}

/// The objects that a launch object works with: the launcher is C:\Prog\Start.exe.
struct LaunchWorld {
    FakeRegistry registry;
    FakeFileSystem files;
    TextCodec1252 codec;
    FakeUi ui;
    ProgramInfo program = TestProgram();
    LaunchEnvironment environment{registry, files, codec, codec, ui, program};
};

/// A launch object in a world without files and registry values.
class LaunchFixture : public ::testing::Test, protected LaunchWorld {
protected:
    cuTarvex tarvex_{environment};

    /// Lets the search for Access succeed with C:\Office\msaccess.exe.
    void InstallAccess() {
        files.AddFile(u"C:\\Office\\msaccess.exe");
        tarvex_.Properties().accPath = u"C:\\Office";
    }

    std::string CommandLine() const { return text::ToUtf8(tarvex_.CommandLine()); }
    std::string MaskedLine() const { return text::ToUtf8(tarvex_.CommandLineHiddenUserPW()); }
    std::vector<std::string> DebugLines() const { return Lines(tarvex_.DebugLog()); }

    /// The log's lines from a section's header up to the line before the next section, without the
    /// empty line between them.
    std::vector<std::string> Section(const std::string& header) const {
        std::vector<std::string> lines;
        bool inside = false;
        for (const std::string& line : DebugLines()) {
            inside = (inside && line.substr(0, 1) != "[") || line == header;
            if (inside) {
                lines.push_back(line);
            }
        }
        if (!lines.empty() && lines.back().empty()) {
            lines.pop_back();
        }
        return lines;
    }

    /// The error that GetCommandLine raises; nothing when it raises none.
    std::optional<RaisedError> RunError() {
        return ErrorOf([this] { tarvex_.GetCommandLine(); });
    }
};

using StringList = std::vector<std::string>;

}  // namespace tarvex

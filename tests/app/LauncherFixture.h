#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "app/Application.h"
#include "errors/MessageTable.h"
#include "tests/support/FakeApp.h"
#include "tests/support/FakeBrandConstants.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FakeUi.h"
#include "tests/support/FakeVersionResource.h"
#include "tests/support/TestProgram.h"
#include "text/TextCodec1252.h"

namespace tarvex {

/// A launcher C:\Prog\Start.exe with Access in C:\Office and a database in C:\Prog\Daten, and every
/// part of the system that it touches.
class LauncherFixture : public testing::Test {
protected:
    using Values = FakeBrandConstants::Values;

    LauncherFixture() {
        files.AddFile(u"C:\\Office\\msaccess.exe");
        files.AddFile(u"C:\\Prog\\Start.exe");
        files.AddFile(u"C:\\Prog\\Daten\\Kunden.mdb");
    }

    /// The settings that most tests start from.
    static Values Kunden() {
        return {{kFieldAccPath, u"C:\\Office"},
                {kFieldDBPath, u"Daten"},
                {kFieldDBFilename, u"Kunden.mdb"},
                {kFieldUser, u"Meier"},
                {kFieldPwd, u"a/b"},
                {kFieldRuntime, u"1"}};
    }

    /// Runs one launch with these settings and arguments.
    void Launch(const Values& values, std::u16string arguments = {}) {
        constants = FakeBrandConstants(values);
        LaunchWithConstants(std::move(arguments));
    }

    void LaunchWithConstants(std::u16string arguments = {}) {
        program.arguments = std::move(arguments);
        appError = std::make_unique<cuAppError>(ui, texts, program);
        log = std::make_unique<LogFile>(files, clock, codec, program);
        const LaunchEnvironment environment{registry, files, codec, codec, ui, program};
        application = std::make_unique<Application>(ApplicationParts{
            environment, *appError, constants, windows, process, clock, *log, versions});
        application->Init();
    }

    /// Puts a stored value into the mark of that name.
    void Store(std::u16string_view name, std::u16string_view stored) {
        for (std::u16string& mark : constants.marks) {
            if (const std::size_t header = HeaderLength(mark, name); header != 0) {
                const std::size_t length = mark.size();
                mark.replace(header, mark.size() - header, stored);
                mark.resize(length, u' ');
            }
        }
    }

    void RemoveMark(std::u16string_view name) {
        std::erase_if(constants.marks,
                      [name](const std::u16string& mark) { return HeaderLength(mark, name) != 0; });
    }

    std::u16string OnlyDebugText() const {
        return windows.debugWindows.size() == 1 ? windows.debugWindows.front().text
                                                : u"<not exactly one log window>";
    }

    FakeUi ui;
    FakeRegistry registry;
    FakeFileSystem files;
    FakeClock clock;
    FakeProcess process;
    FakeAppWindows windows;
    FakeVersionResource versions;
    TextCodec1252 codec;
    MessageTable texts;
    ProgramInfo program = TestProgram();
    FakeBrandConstants constants;
    std::unique_ptr<cuAppError> appError;
    std::unique_ptr<LogFile> log;
    std::unique_ptr<Application> application;

private:
    /// Characters before the value of the mark; 0 when it is not the mark of that name.
    static std::size_t HeaderLength(const std::u16string& mark, std::u16string_view name) {
        const std::u16string field = u"|" + std::u16string(name) + u"|";
        const std::size_t place = mark.find(field);
        return place == std::u16string::npos ? 0 : place + field.size();
    }
};

}  // namespace tarvex

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32System.h"
#include "platform/win32/WindowsApi.h"
#include "tests/support/FakeDllSearch_win32.h"
#include "tests/support/ImportHook_win32.h"
#include "tests/support/TestFolder.h"
#include "text/Text.h"

namespace tarvex {

namespace {

DWORD startFlags = 0;
std::vector<UniqueProcess> startedPrograms;

BOOL WINAPI RecordStart(LPCWSTR application, LPWSTR line, LPSECURITY_ATTRIBUTES process,
                        LPSECURITY_ATTRIBUTES thread, BOOL inherit, DWORD flags, LPVOID environment,
                        LPCWSTR folder, LPSTARTUPINFOW startup, LPPROCESS_INFORMATION information) {
    FakeDllSearch::Calls().emplace_back("start");
    startFlags = flags;
    auto* const start = reinterpret_cast<decltype(CreateProcessW)*>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "CreateProcessW")));
    if (start(application, line, process, thread, inherit, flags, environment, folder, startup,
              information) == FALSE) {
        return FALSE;
    }
    startedPrograms.emplace_back(OpenProcess(SYNCHRONIZE, FALSE, information->dwProcessId));
    return TRUE;
}

DWORD allowedProcess = 0;
bool allowAnswer = false;

BOOL WINAPI AnswerAllow(DWORD process) {
    allowedProcess = process;
    return allowAnswer ? TRUE : FALSE;
}

bool timerHandled = false;

void CALLBACK OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
    timerHandled = true;
}

/// A folder with blanks, umlauts and characters outside the code page that holds the stand-in.
class Win32ProcessTest : public testing::Test {
protected:
    void SetUp() override {
        folder_.MakeFolder(kName);
        std::u16string standIn = u"Z:" + text::FromUtf8(TARVEX_STANDIN);
        standIn = text::Replace(standIn, u"/", u"\\");
        ASSERT_TRUE(CopyFileW(Wide(standIn), Wide(Program()), TRUE)) << GetLastError();
        wchar_t current[MAX_PATH];
        GetCurrentDirectoryW(MAX_PATH, current);
        current_ = FromWide(current);
    }

    // A program that still runs would keep its folder from being removed.
    void TearDown() override {
        for (const UniqueProcess& program : startedPrograms) {
            WaitForSingleObject(program.Get(), 10000);
        }
        startedPrograms.clear();
    }

    std::u16string Program() const {
        return folder_.Path(std::u16string(kName) + u"\\msaccess.exe");
    }

    /// What the stand-in recorded, once it has.
    std::string Record() const {
        for (int wait = 0; wait < 500; ++wait) {
            const auto bytes = folder_.Bytes(std::u16string(kName) + u"\\msaccess.rec");
            if (bytes && bytes->ends_with("\r\n\r\n")) {
                return *bytes;
            }
            Sleep(20);
        }
        return "no record within ten seconds";
    }

    static constexpr std::u16string_view kName = u"Büro Ω 日本";
    TestFolder folder_;
    std::u16string current_;
    FakeDllSearch search_{{.hasDefault = false, .hasFolder = true}};
    ImportHook start_{"CreateProcessW", RecordStart};
};

TEST_F(Win32ProcessTest, StartsTheLineUnchangedAndMaximised) {
    const std::u16string line =
        u"\"" + Program() + u"\" \"C:\\Größe Ω\\Kunden.mdb\"  /user \"a b\" ;";
    EXPECT_NE(Win32Process().StartMaximised(line), 0u);
    const std::string record = Record();
    const std::string expected = "line=" + text::ToUtf8(line) +
                                 "\r\narg=C:\\Größe Ω\\Kunden.mdb\r\narg=/user\r\narg=a b\r\narg=;"
                                 "\r\nshow=3\r\nnCmdShow=3\r\ndir=" +
                                 text::ToUtf8(current_) + "\r\nticks=";
    EXPECT_EQ(record.substr(0, expected.size()), expected);
}

TEST_F(Win32ProcessTest, ReturnsTheIdOfTheRunningProcessWithoutWaiting) {
    SetEnvironmentVariableW(L"STUB_STAY_MS", L"3000");
    const std::uint32_t id = Win32Process().StartMaximised(u"\"" + Program() + u"\"");
    SetEnvironmentVariableW(L"STUB_STAY_MS", nullptr);
    ASSERT_NE(id, 0u);
    HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, id);
    ASSERT_NE(process, nullptr);
    EXPECT_EQ(WaitForSingleObject(process, 0), DWORD{WAIT_TIMEOUT});
    EXPECT_EQ(WaitForSingleObject(process, 10000), WAIT_OBJECT_0);
    CloseHandle(process);
}

TEST_F(Win32ProcessTest, TellsWhetherTheSystemHandsTheForegroundOn) {
    const ImportHook hook("AllowSetForegroundWindow", AnswerAllow);
    for (const bool answer : {false, true}) {
        allowAnswer = answer;
        EXPECT_EQ(Win32Process().AllowForeground(4711), answer);
        EXPECT_EQ(allowedProcess, 4711u);
    }
}

TEST_F(Win32ProcessTest, HandlesMessagesUntilTheProcessHasEnded) {
    timerHandled = false;
    Win32Process process;
    SetEnvironmentVariableW(L"STUB_STAY_MS", L"1500");
    ASSERT_NE(process.StartMaximised(u"\"" + Program() + u"\""), 0u);
    SetEnvironmentVariableW(L"STUB_STAY_MS", nullptr);
    const DWORD start = GetTickCount();
    int turns = 0;
    for (; GetTickCount() - start < 200; ++turns) {
        EXPECT_FALSE(process.HandleMessages(20));
    }
    EXPECT_LT(turns, 50) << "it waits";
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, OnTimer);
    EXPECT_FALSE(process.HandleMessages(1000));
    EXPECT_LT(GetTickCount() - start, 1000u) << "a message ends the wait";
    EXPECT_TRUE(timerHandled);
    KillTimer(nullptr, timer);
    while (GetTickCount() - start < 10000 && !process.HandleMessages(20)) {
    }
    EXPECT_TRUE(process.HandleMessages(0));
}

TEST_F(Win32ProcessTest, SeesOnlyOtherProgramsInTheForeground) {
    Win32Process process;
    const auto becomes = [&process](bool other) {
        const DWORD start = GetTickCount();
        while (process.OtherInForeground() != other && GetTickCount() - start < 5000) {
            process.HandleMessages(20);
        }
        return process.OtherInForeground() == other;
    };
    const HWND window = CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9,
                                        nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(window);
    EXPECT_EQ(GetForegroundWindow(), window);
    EXPECT_FALSE(process.OtherInForeground());
    SetEnvironmentVariableW(L"STUB_WINDOW_MS", L"0");
    SetEnvironmentVariableW(L"STUB_STAY_MS", L"2000");
    const std::uint32_t id = process.StartMaximised(u"\"" + Program() + u"\"");
    SetEnvironmentVariableW(L"STUB_STAY_MS", nullptr);
    SetEnvironmentVariableW(L"STUB_WINDOW_MS", nullptr);
    process.AllowForeground(id);
    EXPECT_TRUE(becomes(true));
    while (!process.HandleMessages(20)) {
    }
    DestroyWindow(window);
    EXPECT_TRUE(becomes(false)) << "without any window";
}

TEST_F(Win32ProcessTest, WhatCannotBeStartedGivesZero) {
    folder_.MakeFile(u"leer.exe", "");
    folder_.MakeFile(u"text.exe", "kein Programm");
    Win32Process process;
    EXPECT_EQ(process.StartMaximised(u"\"" + folder_.Path(u"leer.exe") + u"\""), 0u);
    EXPECT_EQ(process.StartMaximised(u"\"" + folder_.Path(u"text.exe") + u"\""), 0u);
    EXPECT_EQ(process.StartMaximised(u"\"" + folder_.Path(u"fehlt.exe") + u"\""), 0u);
    EXPECT_EQ(process.StartMaximised(u"\"" + folder_.Path() + u"\""), 0u);
    EXPECT_EQ(process.StartMaximised(u""), 0u);
}

TEST_F(Win32ProcessTest, StartedProgramHasTheDefaultErrorMode) {
    const UINT before = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    Win32Process().StartMaximised(u"\"" + Program() + u"\"");
    EXPECT_EQ(SetErrorMode(before), UINT{SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX});
    EXPECT_NE(Record().find("\r\nerrorMode=0\r\n"), std::string::npos) << Record();
    // Wine gives every program the default one, whether it is asked to or not.
    EXPECT_EQ(startFlags, DWORD{CREATE_DEFAULT_ERROR_MODE});
}

TEST_F(Win32ProcessTest, RestrictedSearchForDllsIsNotInherited) {
    const std::vector<std::string> expected{"folder none", "start", "folder ''"};
    Win32Process().StartMaximised(u"\"" + Program() + u"\"");
    EXPECT_EQ(search_.Calls(), expected);
    // Nor is it given up for the box that tells of a failed start.
    search_.Calls().clear();
    EXPECT_EQ(Win32Process().StartMaximised(u"\"" + folder_.Path(u"fehlt.exe") + u"\""), 0u);
    EXPECT_EQ(search_.Calls(), expected);
}

}  // namespace

}  // namespace tarvex

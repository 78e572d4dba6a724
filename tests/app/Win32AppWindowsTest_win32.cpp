#include "app/Win32AppWindows_win32.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <vector>

#include "errors/MessageTable.h"
#include "platform/win32/WideText.h"
#include "resources/ResourceIds.h"
#include "tests/support/BitmapFile.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeUi.h"
#include "tests/support/ImportHook_win32.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestProgram.h"
#include "tests/support/WindowDriver_win32.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

/// Out of memory at every use.
class FailingCodec : public TextCodec {
public:
    std::string ToAnsi(std::u16string_view /*text*/) const override { throw std::bad_alloc(); }
    std::u16string FromAnsi(std::string_view /*bytes*/) const override { throw std::bad_alloc(); }
};

/// Fails when the picture has closed.
class FailingUi : public FakeUi {
public:
    void SetPointerDefault() override {
        ++calls;
        throw std::bad_alloc();
    }
    int calls = 0;
};

std::vector<std::u16string> loadedLibraries;

HMODULE WINAPI RecordLibrary(const wchar_t* name) {
    loadedLibraries.emplace_back(FromWide(name));
    return nullptr;
}

struct ShownBox {
    std::vector<std::u16string> librariesBefore;
    HWND owner;
    std::u16string text;
    std::u16string title;
    UINT style;
};

std::vector<ShownBox> shownBoxes;

int WINAPI RecordBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT style) {
    shownBoxes.push_back({loadedLibraries, owner, std::u16string(FromWide(text)),
                          std::u16string(FromWide(title)), style});
    return IDOK;
}

int WINAPI FailInsteadOfABox(HWND /*owner*/, const char* /*text*/, const char* /*title*/,
                             UINT /*style*/) {
    throw std::bad_alloc();
}

class Win32AppWindowsTest : public testing::Test {
protected:
    FailingUi ui;
    MessageTable texts;
    ProgramInfo program = TestProgram();
    cuAppError appError{ui, texts, program};
    FakeFileSystem files;
    FailingCodec ansi;
    Win32AppWindows windows{appError, ui, files, ansi};
};

TEST_F(Win32AppWindowsTest, LastResortIsAWideBoxWithTheMessageAndTheTitle) {
    shownBoxes.clear();
    loadedLibraries.clear();
    const ImportHook hook("MessageBoxW", RecordBox);
    const ImportHook load("LoadLibraryW", RecordLibrary);
    Win32AppWindows::ShowLastResort();
    ASSERT_EQ(shownBoxes.size(), 1u);
    EXPECT_EQ(shownBoxes[0].librariesBefore, std::vector<std::u16string>{u"comctl32.dll"});
    EXPECT_EQ(shownBoxes[0].owner, nullptr);
    EXPECT_EQ(shownBoxes[0].text, u"Das Startprogramm kann nicht ausgeführt werden.");
    EXPECT_EQ(shownBoxes[0].title, u"Tarvex");
    EXPECT_EQ(shownBoxes[0].style, 16u);
}

TEST_F(Win32AppWindowsTest, LogWindowThatFailsClosesAndTheLaunchGoesOn) {
    DebugWindow content;
    content.text = u"Text";
    bool gone = false;
    WindowDriver::Run([&] { EXPECT_NO_THROW(windows.ShowDebug(content)); },
                      [&] {
                          const HWND window = WindowDriver::WaitFor(L"frmDebug");
                          SendMessageW(window, WM_COMMAND, ID_DEBUG_SAVE, 0);
                          gone = WindowDriver::Until([&] { return IsWindow(window) == FALSE; });
                      });
    EXPECT_TRUE(gone);
}

TEST_F(Win32AppWindowsTest, PictureThatFailsDoesNotEndTheLaunch) {
    const TestFolder folder;
    folder.MakeFile(u"Bild.bmp", BitmapFile(4, 4));
    bool shown = true;
    EXPECT_NO_THROW(shown = windows.ShowPicture({u"Kunden", folder.Path(u"Bild.bmp"), 1, 0}));
    EXPECT_FALSE(shown);
    EXPECT_EQ(ui.calls, 1);
}

TEST_F(Win32AppWindowsTest, BoxThatFailsCountsAsEnded) {
    CaptionBox box;
    box.text = u"Text";
    box.captions[0] = u"&Beenden";
    box.captions[1] = u"&Details";
    const ImportHook hook("MessageBoxA", FailInsteadOfABox);
    int pressed = 0;
    EXPECT_NO_THROW(pressed = windows.ShowCaptionBox(box));
    EXPECT_EQ(pressed, 1);
}

/// Windows that work, and a picture that has just closed.
class WindowAfterThePicture : public testing::Test {
protected:
    WindowAfterThePicture() {
        folder.MakeFile(u"Bild.bmp", BitmapFile(200, 100));
        EXPECT_TRUE(windows->ShowPicture({u"Kunden", folder.Path(u"Bild.bmp"), 200, 0}));
        anchor = GetForegroundWindow();
        EXPECT_EQ(GetWindowThreadProcessId(anchor, nullptr), GetCurrentThreadId());
    }

    /// Shows a window and expects that it comes to the front as one of its own, and that the anchor
    /// goes.
    void ExpectInFront(const std::function<void()>& show, const wchar_t* className) {
        WindowDriver::Run(show, [&] {
            const HWND window = WindowDriver::WaitFor(className);
            EXPECT_TRUE(WindowDriver::Until([&] { return GetForegroundWindow() == window; }));
            EXPECT_TRUE(WindowDriver::Until([&] { return IsWindow(anchor) == FALSE; }));
            EXPECT_EQ(GetWindow(window, GW_OWNER), nullptr) << "it stands in the taskbar";
            PostMessageW(window, WM_CLOSE, 0, 0);
        });
    }

    TestFolder folder;
    FakeUi ui;
    MessageTable texts;
    ProgramInfo program = TestProgram();
    cuAppError appError{ui, texts, program};
    FakeFileSystem files;
    TextCodec1252 ansi;
    std::unique_ptr<Win32AppWindows> windows =
        std::make_unique<Win32AppWindows>(appError, ui, files, ansi);
    HWND anchor = nullptr;
};

TEST_F(WindowAfterThePicture, LogWindowTakesThePlaceOfTheAnchor) {
    ExpectInFront([&] { windows->ShowDebug({}); }, L"frmDebug");
}

TEST_F(WindowAfterThePicture, ErrorBoxTakesThePlaceOfTheAnchor) {
    ExpectInFront([&] { windows->ShowCaptionBox({u"Text", u"Titel", {}, 0}); }, L"#32770");
}

TEST_F(WindowAfterThePicture, AnchorGoesWithTheObjectWhenThereIsNone) {
    EXPECT_TRUE(IsWindow(anchor));
    windows.reset();
    EXPECT_FALSE(IsWindow(anchor));
}

}  // namespace
}  // namespace tarvex

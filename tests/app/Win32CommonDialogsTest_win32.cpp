#include "platform/win32/Win32Dialogs.h"

#include <gtest/gtest.h>

#include "platform/win32/WideText.h"
#include "platform/win32/Win32TextCodec.h"
#include "tests/support/FakeUi.h"
#include "tests/support/TestFolder.h"
#include "tests/support/WindowDriver_win32.h"
#include "util/QvFileDialog.h"

namespace tarvex {
namespace {

constexpr wchar_t kDialogClass[] = L"#32770";
constexpr int kFileName = 1148;

class Win32CommonDialogsTest : public testing::Test {
protected:
    FileDialogOptions Options() const {
        FileDialogOptions options;
        options.title = u"Größe wählen";
        options.startFolder = folder.Path();
        options.filter = u"Protokolle|*.err";
        options.defaultName = u"Müller.err";
        options.defaultExtension = u"err";
        return options;
    }

    /// The first dialog, once it shows the proposed name.
    static HWND WaitForDialog() {
        const HWND window = WindowDriver::WaitFor(kDialogClass);
        WindowDriver::Until([&] { return !NameIn(window).empty(); });
        return window;
    }

    static std::u16string NameIn(HWND window) {
        return WindowDriver::TextOf(GetDlgItem(window, kFileName));
    }

    static void Confirm(HWND window, const std::u16string& name) {
        SetDlgItemTextW(window, kFileName, Wide(name));
        PostMessageW(window, WM_COMMAND, IDOK, 0);
    }

    TestFolder folder;
    SystemTextCodec ansi;
    FakeUi ui;
    Win32CommonDialogs dialogs;
    QvFileDialog dialog{dialogs, ansi, ui};
};

TEST_F(Win32CommonDialogsTest, SaveReturnsTheNameTypedWithTheDefaultExtension) {
    ChosenFile chosen;
    std::u16string title;
    std::u16string proposed;
    WindowDriver::Run([&] { chosen = dialog.GetSaveFileName(Options()); },
                      [&] {
                          const HWND window = WaitForDialog();
                          title = WindowDriver::TextOf(window);
                          proposed = NameIn(window);
                          Confirm(window, u"Büro");
                      });
    EXPECT_EQ(u"Größe wählen", title);
    EXPECT_EQ(u"Müller.err", proposed);
    EXPECT_EQ(folder.Path(u"Büro.err"), chosen.path);
    EXPECT_EQ(u"Büro.err", chosen.name);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(Win32CommonDialogsTest, SaveOverAnExistingFileAsksFirst) {
    folder.MakeFile(u"da.err", "alt");
    ChosenFile chosen;
    bool asked = false;
    WindowDriver::Run([&] { chosen = dialog.GetSaveFileName(Options()); },
                      [&] {
                          const HWND window = WaitForDialog();
                          Confirm(window, u"da.err");
                          HWND question = nullptr;
                          asked = WindowDriver::Until([&] {
                              question = GetLastActivePopup(window);
                              return question != window && GetDlgItem(question, IDYES) != nullptr;
                          });
                          PostMessageW(question, WM_COMMAND, IDYES, 0);
                      });
    EXPECT_TRUE(asked);
    EXPECT_EQ(folder.Path(u"da.err"), chosen.path);
}

TEST_F(Win32CommonDialogsTest, CancelGivesNothing) {
    ChosenFile chosen{u"x", u"x"};
    WindowDriver::Run([&] { chosen = dialog.GetSaveFileName(Options()); },
                      [&] { PostMessageW(WaitForDialog(), WM_COMMAND, IDCANCEL, 0); });
    EXPECT_EQ(u"", chosen.path);
    EXPECT_EQ(u"", chosen.name);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(Win32CommonDialogsTest, OpenReturnsAnExistingFile) {
    folder.MakeFile(u"da.err", "alt");
    ChosenFile chosen;
    WindowDriver::Run([&] { chosen = dialog.GetOpenFileName(Options()); },
                      [&] { Confirm(WaitForDialog(), u"da.err"); });
    EXPECT_EQ(folder.Path(u"da.err"), chosen.path);
    EXPECT_EQ(u"da.err", chosen.name);
}

TEST_F(Win32CommonDialogsTest, FolderBrowserReturnsAFolderUnlessCancelled) {
    for (const WPARAM button : {WPARAM{IDOK}, WPARAM{IDCANCEL}}) {
        std::u16string chosen;
        WindowDriver::Run(
            [&] { chosen = dialog.BrowseForFolder(u"Ziel wählen", folder.Path()); },
            [&] { PostMessageW(WindowDriver::WaitFor(kDialogClass), WM_COMMAND, button, 0); });
        EXPECT_EQ(button == IDCANCEL, chosen.empty());
    }
}

}  // namespace
}  // namespace tarvex

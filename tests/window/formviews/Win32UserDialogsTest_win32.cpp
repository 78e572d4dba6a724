#include "window/formviews/Win32UserDialogs_win32.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/win32/WideText.h"
#include "tests/support/CutTexts_win32.h"
#include "tests/support/FakeForm.h"
#include "tests/support/GdiLedger_win32.h"
#include "tests/support/WindowDriver_win32.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t kClass[] = L"TarvexDialog";

class Win32UserDialogsTest : public testing::Test {
protected:
    Win32UserDialogsTest() {
        question.text = u"Kunden.exe wurde geändert.\nSollen die Änderungen gespeichert werden?";
        question.captions = {u"&Speichern", u"&Nicht speichern, Änderungen verwerfen",
                             u"&Abbrechen"};
        question.cancel = 2;
    }

    std::int32_t Ask(const std::function<void(HWND)>& drive) {
        std::int32_t answer = -1;
        WindowDriver::Run([&] { answer = dialogs.Ask(question); },
                          [&] { drive(WindowDriver::WaitFor(kClass)); });
        return answer;
    }
    static std::vector<HWND> Buttons(HWND window) {
        std::vector<HWND> buttons;
        HWND child = nullptr;
        while ((child = FindWindowExW(window, child, L"BUTTON", nullptr)) != nullptr) {
            buttons.push_back(child);
        }
        return buttons;
    }
    static HWND FocusOf(HWND window) {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
        return info.hwndFocus;
    }
    static void Key(HWND window, WPARAM key) {
        WindowDriver::Until([&] { return IsChild(window, FocusOf(window)) != FALSE; });
        PostMessageW(FocusOf(window), WM_KEYDOWN, key, 1);
    }

    TextCodec1252 ansi;
    Win32UserDialogs dialogs{u"Tarvex-Konfiguration", ansi};
    BoxQuestion question;
};

TEST_F(Win32UserDialogsTest, QuestionShowsItsTextAndCaptions) {
    std::u16string title;
    std::vector<std::u16string> captions;
    std::vector<std::string> cut;
    bool hasText = false;
    Ask([&](HWND window) {
        title = WindowDriver::TextOf(window);
        for (const HWND button : Buttons(window)) {
            captions.push_back(WindowDriver::TextOf(button));
        }
        hasText = FindWindowExW(window, nullptr, L"STATIC",
                                L"Kunden.exe wurde geändert.\r\nSollen die Änderungen gespeichert "
                                L"werden?") != nullptr;
        cut = CutTexts(window);
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(u"Tarvex-Konfiguration", title);
    EXPECT_EQ(question.captions, captions);
    EXPECT_TRUE(hasText);
    EXPECT_THAT(cut, IsEmpty());
}

TEST_F(Win32UserDialogsTest, EachButtonIsAnAnswer) {
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(static_cast<std::int32_t>(i),
                  Ask([&](HWND window) { SendMessageW(Buttons(window)[i], BM_CLICK, 0, 0); }));
    }
}

TEST_F(Win32UserDialogsTest, EscapeAndCloseBoxAreTheCancelButton) {
    question.cancel = 1;
    EXPECT_EQ(1, Ask([&](HWND window) { Key(window, VK_ESCAPE); }));
    EXPECT_EQ(1, Ask([&](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }));
}

TEST_F(Win32UserDialogsTest, EnterIsTheFirstButton) {
    EXPECT_EQ(0, Ask([&](HWND window) { Key(window, VK_RETURN); }));
}

TEST_F(Win32UserDialogsTest, QuestionWithoutCancelButtonWaitsForAnAnswer) {
    question.cancel = -1;
    bool open = false;
    EXPECT_EQ(1, Ask([&](HWND window) {
                  SendMessageW(window, WM_CLOSE, 0, 0);
                  open = IsWindow(window) != FALSE;
                  SendMessageW(Buttons(window)[1], BM_CLICK, 0, 0);
              }));
    EXPECT_TRUE(open);
}

TEST_F(Win32UserDialogsTest, EscapeClosesABoxWithOneButton) {
    question.captions = {u"OK"};
    question.cancel = -1;
    EXPECT_EQ(0, Ask([&](HWND window) { Key(window, VK_ESCAPE); }));
}

TEST_F(Win32UserDialogsTest, QuestionsGiveEverythingBack) {
    const GdiLedger ledger;
    Ask([&](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); });
    EXPECT_GT(ledger.Taken(), 0);
    EXPECT_EQ("", ledger.Open());
}

TEST_F(Win32UserDialogsTest, FormIsShownInAWindow) {
    FakeForm form;
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"Name"}};
    bool accepted = false;
    WindowDriver::Run(
        [&] {
            accepted = dialogs.ShowForm(form, {u"Name", u"OK", u"Abbrechen"});
        },
        [&] { SendMessageW(GetDlgItem(WindowDriver::WaitFor(kClass), IDOK), BM_CLICK, 0, 0); });
    EXPECT_TRUE(accepted);
    EXPECT_THAT(form.log, ElementsAre("Accept"));
}

TEST_F(Win32UserDialogsTest, CopiedTextIsOnTheClipboard) {
    dialogs.CopyToClipboard(u"tarvexcf brand \"C:\\Büro\"\r\n€");
    EXPECT_EQ(u"tarvexcf brand \"C:\\Büro\"\r\n€", dialogs.Clipboard());
    dialogs.CopyToClipboard(u"");
    EXPECT_EQ(u"", dialogs.Clipboard());
}

TEST_F(Win32UserDialogsTest, EmptyClipboardHasNoText) {
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ(u"", dialogs.Clipboard());
}

/// A file dialog of the system, which is of the class of all dialogs.
void DriveFileDialog(const std::function<void(HWND)>& drive) {
    drive(WindowDriver::WaitFor(L"#32770"));
}

std::u16string CurrentFolder() {
    wchar_t folder[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, folder);
    return std::u16string(FromWide(folder));
}

TEST_F(Win32UserDialogsTest, FileIsChosenAndTheCurrentFolderStays) {
    const std::u16string before = CurrentFolder();
    std::u16string title;
    std::u16string path;
    FileQuestion asked;
    asked.title = u"Startprogramm öffnen";
    asked.folder = u"C:\\windows";
    asked.filter = u"Programme|*.exe";
    WindowDriver::Run([&] { path = dialogs.ChooseFile(asked); },
                      [&] {
                          DriveFileDialog([&](HWND window) {
                              title = WindowDriver::TextOf(window);
                              SetDlgItemTextW(window, 1148, L"C:\\windows\\regedit.exe");
                              WindowDriver::Until([&] {
                                  PostMessageW(window, WM_COMMAND, IDOK, 0);
                                  Sleep(100);
                                  return IsWindow(window) == FALSE;
                              });
                          });
                      });
    EXPECT_EQ(u"Startprogramm öffnen", title);
    EXPECT_EQ(u"C:\\windows\\regedit.exe", path);
    EXPECT_EQ(before, CurrentFolder());
}

TEST_F(Win32UserDialogsTest, CancelledFileDialogsGiveNothing) {
    FileQuestion asked;
    asked.title = u"Speichern unter";
    asked.folder = u"C:\\windows";
    asked.name = u"Kunden.exe";
    std::u16string path = u"x";
    std::u16string proposed;
    const auto cancel = [&] {
        DriveFileDialog([&](HWND window) {
            proposed = WindowDriver::TextOf(GetDlgItem(window, 1148));
            WindowDriver::Until([&] {
                PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
                Sleep(100);
                return IsWindow(window) == FALSE;
            });
        });
    };
    WindowDriver::Run([&] { path = dialogs.ChooseNewFile(asked); }, cancel);
    EXPECT_EQ(u"Kunden.exe", proposed);
    EXPECT_EQ(u"", path);
    path = u"x";
    WindowDriver::Run([&] { path = dialogs.ChooseFolder(u"Ordner wählen", u"C:\\windows"); },
                      cancel);
    EXPECT_EQ(u"", path);
}

}  // namespace
}  // namespace tarvex

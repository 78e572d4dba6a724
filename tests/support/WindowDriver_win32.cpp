#include "tests/support/WindowDriver_win32.h"

#include <gtest/gtest.h>

#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr DWORD kPatience = 5000;

struct Search {
    const wchar_t* className;  // null: any
    HWND found = nullptr;
};

BOOL CALLBACK Match(HWND window, LPARAM argument) {
    auto& search = *reinterpret_cast<Search*>(argument);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t className[100] = {};
    GetClassNameW(window, className, 100);
    if (process != GetCurrentProcessId() || IsWindowVisible(window) == FALSE ||
        (search.className != nullptr && lstrcmpW(className, search.className) != 0)) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

HWND Find(const wchar_t* className) {
    Search search{className};
    EnumWindows(Match, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

struct Drive {
    const std::function<void()>& drive;
    HANDLE shown;  // signalled when the test's thread is done with its window
};

DWORD CALLBACK DriveThread(void* argument) {
    const auto& job = *static_cast<const Drive*>(argument);
    job.drive();
    while (WaitForSingleObject(job.shown, kPatience) == WAIT_TIMEOUT) {
        const HWND window = Find(nullptr);
        ADD_FAILURE() << "a window is still open";
        if (window != nullptr) {
            PostMessageW(window, WM_CLOSE, 0, 0);
        }
    }
    return 0;
}

}  // namespace

void WindowDriver::Run(const std::function<void()>& show, const std::function<void()>& drive) {
    const UniqueHandle<HANDLE, CloseHandle> shown(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    Drive job{drive, shown.Get()};
    const UniqueHandle<HANDLE, CloseHandle> thread(
        CreateThread(nullptr, 0, DriveThread, &job, 0, nullptr));
    ASSERT_TRUE(thread);
    show();
    SetEvent(shown.Get());
    WaitForSingleObject(thread.Get(), INFINITE);
}

HWND WindowDriver::WaitFor(const wchar_t* className) {
    HWND window = nullptr;
    Until([&] {
        window = Find(className);
        return window != nullptr;
    });
    EXPECT_NE(nullptr, window) << "no such window";
    return window;
}

bool WindowDriver::Until(const std::function<bool()>& holds) {
    const DWORD start = GetTickCount();
    while (!holds()) {
        if (GetTickCount() - start > kPatience) {
            return false;
        }
        Sleep(5);
    }
    return true;
}

std::u16string WindowDriver::TextOf(HWND window) {
    const LRESULT length = SendMessageW(window, WM_GETTEXTLENGTH, 0, 0);
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    const LRESULT copied =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

}  // namespace tarvex

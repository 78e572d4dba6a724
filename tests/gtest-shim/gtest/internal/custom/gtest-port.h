#pragma once
// The compiler's win32 thread model has no std::mutex, which GoogleTest's own Notification needs;
// the customisation point of GoogleTest lets one event object take its place. The headers of
// Windows come from the project's own file, without the macros that would rename members of the
// tested classes.
#include "../../../../../platform/win32/WindowsApi.h"

#define GTEST_HAS_NOTIFICATION_ 1

namespace testing::internal {

class Notification {
public:
    Notification() : event_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;
    ~Notification() { CloseHandle(event_); }
    void Notify() { SetEvent(event_); }
    void WaitForNotification() { WaitForSingleObject(event_, INFINITE); }

private:
    HANDLE event_;
};

}  // namespace testing::internal

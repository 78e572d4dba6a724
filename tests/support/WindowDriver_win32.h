#pragma once

#include <functional>
#include <string>

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// Works on the windows of this process from a thread of its own while the test's thread shows
/// them. Every wait is limited; one that ends in vain fails the test.
class WindowDriver {
public:
    /// Runs `show`, which returns when its window has closed, and `drive` beside it. Closes the
    /// windows that are still open when `drive` is done for five seconds.
    static void Run(const std::function<void()>& show, const std::function<void()>& drive);

    /// The visible top-level window of that class, null when there is none within five seconds.
    static HWND WaitFor(const wchar_t* className);

    /// Whether `holds` becomes true within five seconds.
    static bool Until(const std::function<bool()>& holds);

    static std::u16string TextOf(HWND window);
};

}  // namespace tarvex

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct HWND__;

namespace tarvex {

class Json;

using WindowHandle = HWND__*;

/// In pixels of the screen.
struct Rectangle {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool operator==(const Rectangle&) const = default;
};

struct Control {
    WindowHandle handle = nullptr;
    std::int32_t id = 0;
    std::u16string className;
    std::u16string text;
    std::uint32_t style = 0;
    bool visible = false;
    bool enabled = false;
    Rectangle rectangle;

    bool operator==(const Control&) const = default;
};

/// What can be seen of a top-level window from outside, at one moment.
struct Window {
    WindowHandle handle = nullptr;
    std::u16string title;
    std::u16string className;
    std::uint32_t style = 0;
    std::uint32_t extendedStyle = 0;
    bool enabled = false;
    bool foreground = false;
    Rectangle rectangle;
    Rectangle client;
    std::vector<Control> controls;  ///< children of children too, in the order of the system

    bool operator==(const Window&) const = default;
};

/// The visible top-level windows of a process, topmost first.
std::vector<WindowHandle> VisibleWindows(std::uint32_t processId);

std::u16string WindowTitle(WindowHandle window);
std::u16string WindowClass(WindowHandle window);

/// What WM_GETTEXT gives; empty when the window does not answer within two seconds.
std::u16string WindowText(WindowHandle window);

Window ReadWindow(WindowHandle window);

/// Waits until the window's program takes its messages, two seconds at most.
void AwaitAnswer(WindowHandle window);

/// The first visible child, or child of a child, with that id.
std::optional<Control> FindVisibleControl(WindowHandle window, std::int32_t id);

/// Writes the window as one object.
void WriteJson(Json& json, const Window& window);

}  // namespace tarvex

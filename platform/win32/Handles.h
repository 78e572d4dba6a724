#pragma once

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// Owns a handle of Windows and closes it. Null and INVALID_HANDLE_VALUE mean: none.
template <class Handle, auto Close>
class UniqueHandle {
public:
    UniqueHandle() = default;
    explicit UniqueHandle(Handle handle) : handle_(handle) {}
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.handle_) {
        other.handle_ = nullptr;
    }
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        if (this != &other) {
            Reset();
            handle_ = other.handle_;
            other.handle_ = nullptr;
        }
        return *this;
    }
    ~UniqueHandle() { Reset(); }

    explicit operator bool() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
    Handle Get() const { return handle_; }

    /// For functions that return a handle through a pointer.
    Handle* Receive() {
        Reset();
        return &handle_;
    }

    /// Closes before the end of the object's life.
    void Reset() {
        if (*this) {
            Close(handle_);
        }
        handle_ = nullptr;
    }

private:
    Handle handle_ = nullptr;
};

using UniqueFile = UniqueHandle<HANDLE, CloseHandle>;
using UniqueProcess = UniqueHandle<HANDLE, CloseHandle>;
using UniqueRegistryKey = UniqueHandle<HKEY, RegCloseKey>;

/// The device context of a window, null: of the screen, for the time of a block.
class WindowDc {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    ~WindowDc() { ReleaseDC(window_, dc_); }
    HDC Get() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

}  // namespace tarvex

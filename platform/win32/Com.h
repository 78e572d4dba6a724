#pragma once

#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// COM for the time of a block; `ole` is ole32.dll.
class ComApartment {
public:
    explicit ComApartment(const SystemLibrary& ole)
        : uninitialize_(ole.Function<decltype(CoUninitialize)>("CoUninitialize")) {
        auto* const initialize = ole.Function<decltype(CoInitialize)>("CoInitialize");
        if (initialize == nullptr || FAILED(initialize(nullptr))) {
            uninitialize_ = nullptr;
        }
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;
    ~ComApartment() {
        if (uninitialize_ != nullptr) {
            uninitialize_();
        }
    }

private:
    decltype(CoUninitialize)* uninitialize_;
};

/// Owns a reference to a COM object.
template <class Interface>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(ComPtr&& other) noexcept : object_(other.object_) { other.object_ = nullptr; }
    ComPtr& operator=(ComPtr&&) = delete;
    ~ComPtr() {
        if (object_ != nullptr) {
            object_->Release();
        }
    }

    explicit operator bool() const { return object_ != nullptr; }
    Interface* Get() const { return object_; }

    /// For functions that return a reference; call them once only.
    Interface** Receive() { return &object_; }
    void** ReceiveVoid() { return reinterpret_cast<void**>(&object_); }

private:
    Interface* object_ = nullptr;
};

}  // namespace tarvex

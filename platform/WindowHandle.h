#pragma once

namespace tarvex {

/// A window of the system (HWND); null: none.
using WindowHandle = void*;

}  // namespace tarvex

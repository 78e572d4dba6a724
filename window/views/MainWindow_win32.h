#pragma once

#include "platform/win32/ModalWindow.h"

namespace tarvex {

/// The window of the configurator.
class MainWindow : public ModalWindow {
public:
    /// Shows it until it is closed.
    void Run();

protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
};

}  // namespace tarvex

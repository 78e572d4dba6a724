#pragma once

#include "platform/Ui.h"

namespace tarvex {

/// A user interface that nobody sees.
class NoUi : public Ui {
public:
    bool PointerIsDefault() const override { return true; }
    void SetPointerDefault() override {}
    void SetPointerBusy() override {}
    int ShowMessageBox(const MessageBoxRequest&) override { return 0; }
};

}  // namespace tarvex

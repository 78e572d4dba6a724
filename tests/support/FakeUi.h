#pragma once

#include <vector>

#include "platform/Ui.h"

namespace tarvex {

/// Records message boxes and changes of the mouse pointer; answers boxes from a queue.
class FakeUi : public Ui {
public:
    std::vector<MessageBoxRequest> boxes;
    std::vector<bool> pointerDefaultInBox;  ///< the pointer's state while each box was shown
    std::vector<int> answers;               ///< taken from the front; 1 (IDOK) when none is left
    bool pointerDefault = true;
    int pointerChanges = 0;  ///< counts only calls that changed the pointer

    bool PointerIsDefault() const override { return pointerDefault; }
    void SetPointerDefault() override { ChangePointer(true); }
    void SetPointerBusy() override { ChangePointer(false); }

    int ShowMessageBox(const MessageBoxRequest& request) override {
        boxes.push_back(request);
        pointerDefaultInBox.push_back(pointerDefault);
        if (answers.empty()) {
            return 1;
        }
        const int answer = answers.front();
        answers.erase(answers.begin());
        return answer;
    }

private:
    void ChangePointer(bool toDefault) {
        pointerChanges += pointerDefault == toDefault ? 0 : 1;
        pointerDefault = toDefault;
    }
};

}  // namespace tarvex

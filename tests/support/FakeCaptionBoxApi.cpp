#include "tests/support/FakeCaptionBoxApi.h"

#include <algorithm>

#include "text/Text.h"

namespace tarvex {

namespace {

int boxWindow = 0;

std::u16string OwnerText(WindowHandle owner) {
    return owner == nullptr ? u"keiner" : u"Fenster";
}

}  // namespace

std::uintptr_t FakeCaptionBoxApi::StartTimer(WindowHandle owner, std::uintptr_t id,
                                             unsigned milliseconds, TimerProcedure procedure) {
    log.push_back(u"start " + OwnerText(owner) + u" " +
                  text::Decimal(static_cast<std::int64_t>(id)) + u" " +
                  text::Decimal(milliseconds));
    procedure_ = procedure;
    running_ = true;
    return systemTimer;
}

void FakeCaptionBoxApi::StopTimer(WindowHandle owner, std::uintptr_t id) {
    log.push_back(u"stop " + OwnerText(owner) + u" " +
                  text::Decimal(static_cast<std::int64_t>(id)));
    running_ = false;
}

WindowHandle FakeCaptionBoxApi::ActiveWindow() const {
    return boxIsActive ? &boxWindow : nullptr;
}

bool FakeCaptionBoxApi::HasItem(WindowHandle /*dialog*/, int item) const {
    return std::find(items.begin(), items.end(), item) != items.end();
}

void FakeCaptionBoxApi::SetItemText(WindowHandle dialog, int item, std::u16string_view text) {
    if (inTimer) {
        inTimer();
    }
    log.push_back(u"text " + text::Decimal(item) + u" " + std::u16string(text));
    if (HasItem(dialog, item)) {
        captions[item] = text;
    }
}

void FakeCaptionBoxApi::FitButtons(WindowHandle /*dialog*/, const std::vector<int>& buttons) {
    std::u16string line = u"fit";
    for (const int button : buttons) {
        line += u" " + text::Decimal(button);
    }
    log.push_back(line);
}

int FakeCaptionBoxApi::ShowMessageBox(WindowHandle owner, std::u16string_view text,
                                      std::u16string_view title, std::uint32_t boxStyle) {
    log.push_back(u"box " + OwnerText(owner) + u" " + std::u16string(title) + u": " +
                  std::u16string(text));
    style = boxStyle;
    captions.clear();
    if (timerFires && running_) {
        FireTimer();
    }
    return answer;
}

}  // namespace tarvex

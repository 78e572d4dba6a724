#include "window/formviews/QuestionBox_win32.h"

#include <algorithm>

#include "platform/win32/WideText.h"
#include "text/Text.h"
#include "window/formviews/ChildControl_win32.h"

namespace tarvex {

namespace {

constexpr int kMargin = 16;  // at 96 pixels per inch, as all lengths here
constexpr int kIcon = 32;
constexpr int kIconGap = 12;
constexpr int kWidestText = 420;
constexpr int kNarrowestText = 160;
constexpr int kFirstId = 101;  // of the buttons after the default one

struct System {
    LPCWSTR icon;
    UINT sound;
};

System SystemOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Information:
            return {reinterpret_cast<LPCWSTR>(IDI_INFORMATION), MB_ICONINFORMATION};
        case BoxIcon::Warning:
            return {reinterpret_cast<LPCWSTR>(IDI_WARNING), MB_ICONWARNING};
        case BoxIcon::Error:
            return {reinterpret_cast<LPCWSTR>(IDI_ERROR), MB_ICONERROR};
        default:
            return {reinterpret_cast<LPCWSTR>(IDI_QUESTION), MB_ICONQUESTION};
    }
}

int IdOf(std::int32_t number) {
    return number == 0 ? IDOK : kFirstId + static_cast<int>(number);
}

}  // namespace

QuestionBox::QuestionBox(HWND owner, std::u16string title, const BoxQuestion& question)
    : DialogWindow(owner), title_(std::move(title)), question_(question) {}

std::int32_t QuestionBox::Ask() {
    Frame frame;
    frame.title = title_;
    const auto count = static_cast<std::int32_t>(question_.captions.size());
    for (std::int32_t i = 0; i < count; ++i) {
        frame.buttons.push_back({IdOf(i), question_.captions[static_cast<std::size_t>(i)]});
    }
    // The only button of a box is also what Esc presses.
    const std::int32_t cancel = count == 1 ? 0 : question_.cancel;
    frame.cancelId = cancel < 0 ? 0 : IdOf(cancel);
    const int pressed = Show(frame);
    return pressed == IDOK ? 0 : pressed - kFirstId;
}

bool QuestionBox::CreateContent() {
    icon_ = CreateChild(Window(), L"STATIC", u"", WS_VISIBLE | SS_OWNERDRAW);
    text_ = CreateChild(Window(), L"STATIC", text::Replace(question_.text, u"\n", u"\r\n"),
                        WS_VISIBLE | SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL);
    if (icon_ == nullptr || text_ == nullptr) {
        return false;
    }
    OnFonts();
    MessageBeep(SystemOf(question_.icon).sound);
    return true;
}

int QuestionBox::TextLeft() const {
    return Fonts().Scaled(kMargin) + Fonts().Scaled(kIcon) + Fonts().Scaled(kIconGap);
}

int QuestionBox::TextWidth() const {
    int width = Fonts().Scaled(kNarrowestText);
    for (const std::u16string_view line : text::Split(question_.text, u'\n')) {
        width = std::max(width, Fonts().TextWidth(FormFont::Normal, line));
    }
    return std::min(width, Fonts().Scaled(kWidestText));
}

SIZE QuestionBox::ContentSize() {
    const int width = TextWidth();
    const int height = std::max(Fonts().TextHeight(FormFont::Normal, question_.text, width),
                                Fonts().Scaled(kIcon));
    const int margin = Fonts().Scaled(kMargin);
    return {TextLeft() + width + margin, margin + height + margin};
}

void QuestionBox::PlaceContent(const RECT& place) {
    const int margin = Fonts().Scaled(kMargin);
    const int icon = Fonts().Scaled(kIcon);
    const int left = TextLeft();
    const int width = std::max(static_cast<int>(place.right) - left - margin, 1);
    const int height = Fonts().TextHeight(FormFont::Normal, question_.text, width);
    // A short text stands at the middle of the icon.
    const int down = std::max((icon - height) / 2, 0);
    MoveWindow(icon_, margin, margin, icon, icon, TRUE);
    MoveWindow(text_, left, margin + down, width, height, TRUE);
}

void QuestionBox::OnFonts() {
    SendMessageW(text_, WM_SETFONT, reinterpret_cast<WPARAM>(Fonts().Font(FormFont::Normal)), TRUE);
}

LRESULT QuestionBox::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(second);
            FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_3DFACE));
            DrawIconEx(item.hDC, 0, 0, LoadIconW(nullptr, SystemOf(question_.icon).icon),
                       item.rcItem.right, item.rcItem.bottom, 0, nullptr, DI_NORMAL);
            return TRUE;
        }
        case WM_CTLCOLORSTATIC: {
            auto* const dc = reinterpret_cast<HDC>(first);
            SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
            SetBkColor(dc, GetSysColor(COLOR_3DFACE));
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_3DFACE));
        }
        default:
            return DialogWindow::OnMessage(message, first, second);
    }
}

}  // namespace tarvex

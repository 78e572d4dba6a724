#include "platform/win32/Win32Dialogs.h"

#include "platform/win32/SystemLibrary.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

/// What the help button of the box shown last does. The system's callback gets the topic but no
/// pointer of ours.
struct BoxHelp {
    const Win32Ui::HelpOpener& open;
    const MessageBoxRequest& request;
};

const BoxHelp* currentHelp = nullptr;

/// Opening help may show a box with help of its own, so that boxes can be nested.
class HelpOfBox {
public:
    explicit HelpOfBox(const BoxHelp& help) : before_(currentHelp) { currentHelp = &help; }
    HelpOfBox(const HelpOfBox&) = delete;
    HelpOfBox& operator=(const HelpOfBox&) = delete;
    ~HelpOfBox() { currentHelp = before_; }

private:
    const BoxHelp* before_;
};

void CALLBACK OnHelp(HELPINFO* /*information*/) {
    const BoxHelp* help = currentHelp;
    if (help == nullptr || !help->open || help->request.helpFile.empty()) {
        return;
    }
    try {
        help->open(help->request.helpFile, help->request.helpContext);
    } catch (...) {  // the box stays usable without its help
        return;
    }
}

}  // namespace

void Win32Ui::SetPointerDefault() {
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    busy_ = false;
}

void Win32Ui::SetPointerBusy() {
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    busy_ = true;
}

int Win32Ui::ShowMessageBox(const MessageBoxRequest& request) {
    PrepareCommonControls();
    if ((request.style & MB_HELP) != 0) {
        return ShowBoxWithHelp(request);
    }
    return MessageBoxA(GetActiveWindow(), ToNearestAnsi(request.text).c_str(),
                       ToNearestAnsi(request.title).c_str(), request.style);
}

int Win32Ui::ShowBoxWithHelp(const MessageBoxRequest& request) {
    const std::string text = ToNearestAnsi(request.text);
    const std::string title = ToNearestAnsi(request.title);
    MSGBOXPARAMSA parameters{};
    parameters.cbSize = sizeof parameters;
    parameters.hwndOwner = GetActiveWindow();
    parameters.lpszText = text.c_str();
    parameters.lpszCaption = title.c_str();
    parameters.dwStyle = request.style;
    parameters.lpfnMsgBoxCallback = OnHelp;
    const BoxHelp help{openHelp_, request};
    const HelpOfBox scope(help);
    return MessageBoxIndirectA(&parameters);
}

}  // namespace tarvex

#include "errors/Help.h"

#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::uint32_t kWinHelpContext = 1;    // HELP_CONTEXT
constexpr std::uint32_t kHtmlHelpContext = 15;  // HH_HELP_CONTEXT

}  // namespace

void Help::ShowHelp(WindowHandle owner, std::u16string_view path, std::int32_t context) noexcept {
    try {
        Open(owner, path, context);
    } catch (...) {
        // Help that does not come must not end what the user asked help for.
    }
}

void Help::Open(WindowHandle owner, std::u16string_view path, std::int32_t context) {
    const std::u16string_view extension = FileExtension(path);
    const bool isWinHelp = text::EqualsIgnoreCase(extension, u"hlp");
    const bool isHtmlHelp = text::EqualsIgnoreCase(extension, u"chm");
    if (!isWinHelp && !isHtmlHelp) {
        return;
    }
    if (!files_.FileExists(path)) {
        appError_.MsgShow(Message::HelpFileNotFound, box_style::kExclamationIcon, path);
    } else if (isWinHelp) {
        api_.CallWinHelp(owner, path, kWinHelpContext, context);
    } else if (!api_.CallHtmlHelp(owner, path, kHtmlHelpContext, context)) {
        appError_.MsgShow(Message::HelpTopicNotOpened, box_style::kStopIcon, path, context);
    }
}

std::u16string_view Help::FileExtension(std::u16string_view path) {
    const std::size_t dot = path.rfind(u'.');
    return dot == std::u16string_view::npos ? std::u16string_view() : path.substr(dot + 1);
}

}  // namespace tarvex

#include "launch/DiagnosticLog.h"

#include "text/Text.h"

namespace tarvex {

void DiagnosticLog::AddLog(std::u16string_view line, bool blankLineBefore) {
    text::AppendWithSeparator(text_, line, blankLineBefore ? u"\r\n\r\n" : text::kLineBreak);
}

std::u16string_view DashIfEmpty(std::u16string_view text) {
    return text.empty() ? u"-" : text;
}

}  // namespace tarvex

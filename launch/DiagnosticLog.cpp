#include "launch/DiagnosticLog.h"

#include "text/Text.h"

namespace tarvex {

void DiagnosticLog::AddLog(std::u16string_view line, bool blankLineBefore) {
    text::AppendWithSeparator(text_, line, blankLineBefore ? u"\r\n\r\n" : text::kLineBreak);
}

}  // namespace tarvex

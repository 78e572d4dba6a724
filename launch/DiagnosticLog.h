#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// The text that tells the user, line by line, what the launcher looked for and where.
class DiagnosticLog {
public:
    /// Appends a line; with `blankLineBefore` an empty line stands before it. The first line of an
    /// empty log has nothing before it in either case.
    void AddLog(std::u16string_view line, bool blankLineBefore = false);

    /// The lines joined by CR LF, without one at the end; empty when there are none.
    const std::u16string& Text() const { return text_; }

    void Clear() { text_.clear(); }

private:
    std::u16string text_;
};

}  // namespace tarvex

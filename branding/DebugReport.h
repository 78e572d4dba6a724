#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "branding/cuBranding.h"

namespace tarvex {

/// Text of lines joined by CR LF, with no line break behind the last one.
class DebugReport {
public:
    /// "label = value".
    void AddValue(std::u16string_view label, std::u16string_view value);

    /// 50 hyphens.
    void AddRule();

    const std::u16string& Text() const { return text_; }

private:
    void AddLine(std::u16string_view line);

    std::u16string text_;
};

/// "3.0.012": the revision has at least three digits.
std::u16string VersionText(std::int32_t major, std::int32_t minor, std::int32_t revision);

/// What the report shows of an item: its value, or, for a user name or password that is set, the
/// placeholder.
std::u16string_view ReportedValue(const cuBranding& item, std::u16string_view placeholder);

}  // namespace tarvex

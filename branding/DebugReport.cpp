#include "branding/DebugReport.h"

#include "branding/BrandFields.h"
#include "util/Text.h"
#include "util/mShared.h"

namespace tarvex {

void DebugReport::AddValue(std::u16string_view label, std::u16string_view value) {
    AddLine(std::u16string(label).append(u" = ").append(value));
}

void DebugReport::AddRule() {
    AddLine(std::u16string(50, u'-'));
}

void DebugReport::AddLine(std::u16string_view line) {
    AppendWithSeparator(text_, line, text::kLineBreak);
}

std::u16string VersionText(std::int32_t major, std::int32_t minor, std::int32_t revision) {
    return text::Decimal(major) + u"." + text::Decimal(minor) + u"." + text::Decimal(revision, 3);
}

std::u16string_view ReportedValue(const cuBranding& item, std::u16string_view placeholder) {
    const BrandField* const field = FindBrandField(item.Index());
    const bool hidden = field != nullptr && field->kind == FieldKind::Credential;
    return hidden && !item.Value().empty() ? placeholder : std::u16string_view(item.Value());
}

}  // namespace tarvex

#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "branding/BrandFields.h"
#include "configurator/Model.h"

namespace tarvex {

// Settings of the program file itself: its icon, and the texts that Windows shows as its
// properties. They have no marks; the numbers by which Settings keep them are none that a mark can
// have. A text has the name that the version resource gives it.

inline constexpr std::int32_t kFieldIconFile = 1001;
inline constexpr std::int32_t kFieldFileDescription = 1002;
inline constexpr std::int32_t kFieldCompanyName = 1003;
inline constexpr std::int32_t kFieldProductName = 1004;
inline constexpr std::int32_t kFieldFileVersion = 1005;
inline constexpr std::int32_t kFieldProductVersion = 1006;
inline constexpr std::int32_t kFieldLegalCopyright = 1007;
inline constexpr std::int32_t kFieldLegalTrademarks = 1008;
inline constexpr std::int32_t kFieldInternalName = 1009;
inline constexpr std::int32_t kFieldOriginalFilename = 1010;
inline constexpr std::int32_t kFieldComments = 1011;

/// Section of a settings file.
inline constexpr std::u16string_view kProgramSection = u"Programmdatei";

/// All of them, with consecutive numbers. The first is the icon, the others are texts.
inline constexpr std::array<BrandField, 11> kProgramFields = {{
    {kFieldIconFile, 260, u"IconFile", FieldKind::Path},
    {kFieldFileDescription, 500, u"FileDescription", FieldKind::Text},
    {kFieldCompanyName, 500, u"CompanyName", FieldKind::Text},
    {kFieldProductName, 500, u"ProductName", FieldKind::Text},
    {kFieldFileVersion, 500, u"FileVersion", FieldKind::Text},
    {kFieldProductVersion, 500, u"ProductVersion", FieldKind::Text},
    {kFieldLegalCopyright, 500, u"LegalCopyright", FieldKind::Text},
    {kFieldLegalTrademarks, 500, u"LegalTrademarks", FieldKind::Text},
    {kFieldInternalName, 500, u"InternalName", FieldKind::Text},
    {kFieldOriginalFilename, 500, u"OriginalFilename", FieldKind::Text},
    {kFieldComments, 500, u"Comments", FieldKind::Text},
}};

constexpr bool IsProgramField(std::int32_t number) {
    return number >= kFieldIconFile && number <= kFieldComments;
}

/// As AcceptValue, for such a field. A text is one line of any characters; an empty one is a value
/// too. Whether all texts together have room shows when they are put into the program.
AcceptedValue AcceptProgramValue(const BrandField& field, std::u16string_view entered);

}  // namespace tarvex

#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "configurator/Model.h"

namespace tarvex {

/// A setting of the program file itself: its icon, and what Windows shows as its properties. It has
/// no mark; its number, by which Settings keep it, is none that a mark can have.
struct ProgramField {
    std::int32_t number;
    std::u16string_view name;     ///< of a text: as the version resource calls it too
    std::u16string_view meaning;  ///< German, one line
    std::int32_t width;           ///< most characters
};

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
inline constexpr std::array<ProgramField, 11> kProgramFields = {{
    {kFieldIconFile, u"IconFile",
     u"Symboldatei (.ico) des Programms; relativ zur Einstellungsdatei möglich", 260},
    {kFieldFileDescription, u"FileDescription", u"Beschreibung des Programms", 500},
    {kFieldCompanyName, u"CompanyName", u"Name des Herstellers", 500},
    {kFieldProductName, u"ProductName", u"Name des Produkts", 500},
    {kFieldFileVersion, u"FileVersion", u"Version der Datei; beginnt mit Zahlen wie 1.2.3", 500},
    {kFieldProductVersion, u"ProductVersion", u"Version des Produkts; beginnt mit Zahlen wie 1.2.3",
     500},
    {kFieldLegalCopyright, u"LegalCopyright", u"Urheberrechtsvermerk", 500},
    {kFieldLegalTrademarks, u"LegalTrademarks", u"Hinweis auf Marken", 500},
    {kFieldInternalName, u"InternalName", u"interner Name", 500},
    {kFieldOriginalFilename, u"OriginalFilename", u"ursprünglicher Dateiname", 500},
    {kFieldComments, u"Comments", u"Bemerkungen", 500},
}};

/// Null when there is none.
const ProgramField* FindProgramField(std::int32_t number);
const ProgramField* FindProgramFieldByName(std::u16string_view name);

/// As AcceptValue, for such a field. A text is one line of any characters; an empty one is a value
/// too. Whether all texts together have room shows when they are put into the program.
AcceptedValue AcceptProgramValue(const ProgramField& field, std::u16string_view entered);

}  // namespace tarvex

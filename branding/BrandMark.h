#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

/// A brand mark is the text "prefix|number|width|name|" followed by a value area of `width`
/// characters. The texts are put together at run time: stored as UTF-16 in the program they would
/// be taken for a mark or a marker by whoever searches the file.
struct BrandMark {
    std::int32_t number = 0;
    std::int32_t width = 0;  ///< of the value area, in characters
    std::u16string name;
    std::u16string value;  ///< without the blanks at its ends; shorter when the text ends early
    std::u16string rest;   ///< what follows the value area
};

/// Characters of a mark before its value area, without the name.
inline constexpr std::size_t kMarkHeaderWithoutName = 18;

/// Most characters that a mark can have, name and value area included.
inline constexpr std::size_t kLongestMark = kMarkHeaderWithoutName + 9999 + 9999;

/// Reads a mark that the text begins with; nothing when there is none. Case of the prefix is
/// ignored; number and width are decimal digits.
std::optional<BrandMark> brdParseConstant(std::u16string_view text);

/// The prefix with its bar, 8 characters.
std::u16string MarkStart();

/// What stands before the value area. Number and width have at least three and four digits.
std::u16string MarkHeader(std::int32_t number, std::int32_t width, std::u16string_view name);

/// The marker of a branded or of a not yet branded program, 12 characters.
std::u16string MarkerText(bool branded);

/// The text cut or padded with blanks to `width` characters; no characters for a negative width.
std::u16string FitToWidth(std::u16string_view text, std::int32_t width);

/// UTF-16LE bytes of a text and back; an odd last byte is dropped.
std::string ToUtf16Bytes(std::u16string_view text);
std::u16string FromUtf16Bytes(std::string_view bytes);

}  // namespace tarvex

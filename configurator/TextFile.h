#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text/TextCodec.h"

namespace tarvex {

/// Byte order marks at the start of text files.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
inline constexpr std::string_view kUtf16Mark = "\xFF\xFE";
inline constexpr std::string_view kUtf16MarkHighFirst = "\xFE\xFF";

/// The text of a file, or the line that makes it none.
struct DecodedText {
    std::u16string text;
    std::int32_t badLine = 0;  ///< 1-based; 0: the whole file is text
    std::u16string problem;    ///< German, what is wrong in that line
};

/// What zero bytes in a text without a byte order mark are.
enum class ZeroBytes { Characters, HalvesOfUtf16 };

/// Reads bytes by their byte order mark (UTF-8, UTF-16 of either order); without one as UTF-8, or
/// where zero bytes say so, as UTF-16, low byte first. The mark is no part of the text.
DecodedText DecodeText(std::string_view bytes, ZeroBytes zeroBytes = ZeroBytes::Characters);

/// True when neither a byte order mark nor zero bytes say what text the bytes are.
bool IsUnmarkedText(std::string_view bytes);

/// A text that the launcher saved in the code page of its computer, or an editor in UTF-8 or UTF-16
/// later.
std::u16string DecodeSavedText(std::string_view bytes, const TextCodec& codec);

/// UTF-16 of either byte order without a mark; an odd last byte is dropped.
std::u16string FromUtf16(std::string_view bytes, bool highFirst);

/// The lines of a text, without their ends (CR LF or LF); none after the last line end.
std::vector<std::u16string_view> TextLines(std::u16string_view text);
std::vector<std::string_view> TextLines(std::string_view bytes);

}  // namespace tarvex

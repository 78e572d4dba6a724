#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Text functions with the rules of the system: they never fail on short texts, trim blanks
/// (U+0020) only, and compare without regard to case by single characters, independent of any
/// locale.
namespace tarvex::text {

inline constexpr std::u16string_view kLineBreak = u"\r\n";

/// Lower-case form of one UTF-16 unit for comparisons; covers the letters of the Windows
/// single-byte code pages (Latin, Greek, Cyrillic). Always one unit, so positions stay.
char16_t Fold(char16_t unit);

bool EqualsIgnoreCase(std::u16string_view a, std::u16string_view b);
bool StartsWithIgnoreCase(std::u16string_view text, std::u16string_view start);
bool EndsWithIgnoreCase(std::u16string_view text, std::u16string_view end);

/// 0-based position of the first occurrence without regard to case at or after `from`, npos when
/// there is none; an empty `find` is never found.
std::size_t FindIgnoreCase(std::u16string_view text, std::u16string_view find,
                           std::size_t from = 0);

/// Removes blanks (U+0020) at both ends; every other character stays.
std::u16string_view Trim(std::u16string_view text);

/// The first `count` characters, or the whole text when it is shorter.
std::u16string_view Left(std::u16string_view text, std::size_t count);

/// What follows the first `count` characters; empty when there is nothing.
std::u16string_view Drop(std::u16string_view text, std::size_t count);

/// Replaces occurrences from the left, at most `most`; inserted text is not searched again.
std::u16string Replace(std::u16string_view text, std::u16string_view find,
                       std::u16string_view replacement, std::size_t most = SIZE_MAX);

/// The pieces between the separators, empty ones included; an empty text gives one empty piece.
std::vector<std::u16string_view> Split(std::u16string_view text, char16_t separator);

/// Appends separator and item to a text, or makes the item the text when the text is empty. With
/// `skipEmpty` an empty item is not appended.
void AppendWithSeparator(std::u16string& target, std::u16string_view item,
                         std::u16string_view separator, bool skipEmpty = false);

/// The pieces of a list between its markers, which are found without regard to case. The pieces are
/// trimmed of blanks; empty ones between two markers are kept, an empty one at the end is not. A
/// marker of one character at the start of the text is dropped. Nothing for an empty text, and for
/// an empty marker, which divides nothing.
std::vector<std::u16string> SplitList(std::u16string_view text, std::u16string_view marker);

/// Decimal digits with "-" for negative numbers, padded with zeros to `minDigits`.
std::u16string Decimal(std::int64_t number, std::size_t minDigits = 1);

/// Upper-case hexadecimal digits, padded with zeros to `minDigits`.
std::u16string Hexadecimal(std::uint64_t number, std::size_t minDigits = 1);

/// A whole number of 32 bits: optional sign and digits, blanks around them allowed; nothing
/// otherwise or when it does not fit.
std::optional<std::int32_t> ParseInt32(std::u16string_view text);

/// True when the text is not empty and holds the digits 0 to 9 only.
bool IsDigits(std::u16string_view text);

/// UTF-8 to UTF-16 and back, for the text of command lines, exceptions and settings files. Invalid
/// sequences become U+FFFD.
std::u16string FromUtf8(std::string_view utf8);
std::string ToUtf8(std::u16string_view text);

}  // namespace tarvex::text

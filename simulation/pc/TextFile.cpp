#include "simulation/pc/TextFile.h"

#include <algorithm>
#include <array>

#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf16MarkHighFirst = "\xFE\xFF";

/// Characters of the bytes 80 to FF.
constexpr std::array<char16_t, 128> kCodePage850 = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF,
    0x00EE, 0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA,
    0x00F1, 0x00D1, 0x00AA, 0x00BA, 0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0, 0x00A9, 0x2563, 0x2551, 0x2557,
    0x255D, 0x00A2, 0x00A5, 0x2510, 0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4, 0x00F0, 0x00D0, 0x00CA, 0x00CB,
    0x00C8, 0x0131, 0x00CD, 0x00CE, 0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE, 0x00DE, 0x00DA, 0x00DB, 0x00D9,
    0x00FD, 0x00DD, 0x00AF, 0x00B4, 0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0};

std::u16string FromUtf16(std::string_view bytes, bool highFirst) {
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned first = static_cast<unsigned char>(bytes[2 * i]);
        const unsigned second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(highFirst ? first << 8 | second : second << 8 | first);
    }
    return text;
}

DecodedText DecodeUtf16(std::string_view bytes, bool highFirst) {
    DecodedText result{FromUtf16(bytes, highFirst), 0, {}};
    if (bytes.size() % 2 != 0) {
        const auto lineEnds = std::count(result.text.begin(), result.text.end(), u'\n');
        result.badLine = static_cast<std::int32_t>(lineEnds) + 1;
        result.problem = u"Die Datei ist abgeschnitten: Das letzte UTF-16-Zeichen ist nur halb da.";
    }
    return result;
}

DecodedText DecodeUtf8(std::string_view bytes) {
    DecodedText result{text::FromUtf8(bytes), 0, {}};
    if (text::ToUtf8(result.text) == bytes) {
        return result;
    }
    for (std::string_view rest = bytes; result.problem.empty(); ++result.badLine) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        if (text::ToUtf8(text::FromUtf8(line)) != line || end == rest.size()) {
            result.problem = u"Die Zeile ist kein gültiges UTF-8.";
        } else {
            rest.remove_prefix(end + 1);
        }
    }
    return result;
}

}  // namespace

DecodedText DecodeText(std::string_view bytes, ZeroBytes zeroBytes) {
    if (bytes.starts_with(kUtf8Mark)) {
        return DecodeUtf8(bytes.substr(kUtf8Mark.size()));
    }
    if (bytes.starts_with(kUtf16Mark)) {
        return DecodeUtf16(bytes.substr(kUtf16Mark.size()), false);
    }
    if (bytes.starts_with(kUtf16MarkHighFirst)) {
        return DecodeUtf16(bytes.substr(kUtf16MarkHighFirst.size()), true);
    }
    if (zeroBytes == ZeroBytes::HalvesOfUtf16 && bytes.find('\0') != std::string_view::npos) {
        return DecodeUtf16(bytes, false);
    }
    return DecodeUtf8(bytes);
}

bool IsUnmarkedText(std::string_view bytes) {
    return !bytes.starts_with(kUtf8Mark) && !bytes.starts_with(kUtf16Mark) &&
           !bytes.starts_with(kUtf16MarkHighFirst) && bytes.find('\0') == std::string_view::npos;
}

std::u16string FromCodePage850(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const unsigned code = static_cast<unsigned char>(byte);
        return code < 0x80 ? static_cast<char16_t>(code) : kCodePage850[code - 0x80];
    });
    return text;
}

std::vector<std::u16string_view> TextLines(std::u16string_view text) {
    std::vector<std::u16string_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(u'\n'), text.size());
        std::u16string_view line = text::Left(text, end);
        text = text::Drop(text, end + 1);
        if (line.ends_with(u'\r')) {
            line.remove_suffix(1);
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace tarvex

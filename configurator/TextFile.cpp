#include "configurator/TextFile.h"

#include <algorithm>
#include <utility>

#include "text/Text.h"

namespace tarvex {
namespace {

template <typename Text>
std::vector<Text> Lines(Text text) {
    std::vector<Text> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        Text line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        lines.push_back(line);
    }
    return lines;
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

std::u16string FromUtf16(std::string_view bytes, bool highFirst) {
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const unsigned first = static_cast<unsigned char>(bytes[2 * i]);
        const unsigned second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(highFirst ? first << 8 | second : second << 8 | first);
    }
    return text;
}

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

std::u16string DecodeSavedText(std::string_view bytes, const TextCodec& codec) {
    DecodedText decoded = DecodeText(bytes, ZeroBytes::HalvesOfUtf16);
    return decoded.badLine != 0 && IsUnmarkedText(bytes) ? codec.FromAnsi(bytes)
                                                         : std::move(decoded.text);
}

bool IsUnmarkedText(std::string_view bytes) {
    return !bytes.starts_with(kUtf8Mark) && !bytes.starts_with(kUtf16Mark) &&
           !bytes.starts_with(kUtf16MarkHighFirst) && bytes.find('\0') == std::string_view::npos;
}

std::vector<std::u16string_view> TextLines(std::u16string_view text) {
    return Lines(text);
}

std::vector<std::string_view> TextLines(std::string_view bytes) {
    return Lines(bytes);
}

}  // namespace tarvex

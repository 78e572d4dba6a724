#include "simulation/pc/RegFile.h"

#include <utility>

#include "branding/BrandMark.h"
#include "configurator/Model.h"
#include "configurator/TextFile.h"
#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::string_view kAnsiHeader = "REGEDIT4";
constexpr std::u16string_view kHeader = u"Windows Registry Editor Version 5.00";

/// Ends the reading: a file that a program wrote is damaged as a whole.
struct RegFileError {
    std::int32_t line;
    std::u16string text;
};

std::optional<std::uint32_t> HexDigit(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') {
        return unit - u'0';
    }
    const char16_t folded = text::Fold(unit);
    if (folded >= u'a' && folded <= u'f') {
        return folded - u'a' + 10;
    }
    return std::nullopt;
}

bool IsAnsiText(std::uint32_t type) {
    return type == kRegTypeText || type == kRegTypeExpandableText || type == kRegTypeTexts;
}

/// Reads characters from the start of a text to its end and counts the lines.
class RegFileReader {
public:
    RegFileReader(std::u16string_view text, const TextCodec* ansi) : text_(text), ansi_(ansi) {}

    /// After the header.
    void ReadLines(std::vector<RegFileKey>& keys) {
        while (!AtEnd()) {
            SkipBlanks();
            const char16_t first = Peek();
            if (first == u'[') {
                keys.push_back(ReadKey());
            } else if (first == u'"' || first == u'@') {
                ReadValueOf(keys);
            } else if (first != u';' && !AtLineEnd()) {
                Fail(u"Die Zeile ist weder Schlüssel noch Wert noch Kommentar.");
            }
            SkipLine();
        }
    }

    void ReadHeader() {
        const std::u16string_view header = TrimBlanksAndTabs(RestOfLine());
        if (header != (ansi_ != nullptr ? text::FromUtf8(kAnsiHeader) : std::u16string(kHeader))) {
            Fail(
                u"Die Datei ist keine Registrierungsdatei: Sie beginnt weder mit 'Windows "
                u"Registry Editor Version 5.00' noch mit 'REGEDIT4'.");
        }
        SkipLine();
    }

private:
    [[noreturn]] void Fail(std::u16string text) const {
        throw RegFileError{line_, std::move(text)};
    }

    bool AtEnd() const { return position_ == text_.size(); }
    char16_t Peek() const { return AtEnd() ? u'\0' : text_[position_]; }
    bool AtLineEnd() const {
        return AtEnd() || Peek() == u'\n' || text_.substr(position_, 2) == text::kLineBreak;
    }

    char16_t Take() {
        const char16_t unit = text_[position_++];
        if (unit == u'\n') {
            ++line_;
        }
        return unit;
    }

    bool TakeIf(std::u16string_view expected) {
        if (!text::StartsWithIgnoreCase(text_.substr(position_), expected)) {
            return false;
        }
        position_ += expected.size();
        return true;
    }

    void SkipBlanks() {
        while (Peek() == u' ' || Peek() == u'\t') {
            ++position_;
        }
    }

    std::u16string_view RestOfLine() const {
        const std::u16string_view rest = text_.substr(position_);
        const std::u16string_view line = rest.substr(0, rest.find(u'\n'));
        return line.ends_with(u'\r') ? line.substr(0, line.size() - 1) : line;
    }

    void SkipLine() {
        while (!AtEnd() && Take() != u'\n') {
        }
    }

    void ExpectLineEnd() {
        SkipBlanks();
        if (!AtLineEnd() && Peek() != u';') {
            Fail(u"Nach dem Wert steht noch etwas.");
        }
    }

    RegFileKey ReadKey() {
        // A key's name may hold a bracket itself.
        const std::u16string_view line = RestOfLine();
        const std::size_t end = line.rfind(u']');
        if (end == std::u16string_view::npos || !TrimBlanksAndTabs(line.substr(end + 1)).empty()) {
            Fail(u"Die Schlüsselzeile endet nicht mit ']'.");
        }
        RegFileKey key;
        std::u16string_view path = line.substr(1, end - 1);
        if (path.starts_with(u'-')) {
            key.deleted = true;
            path.remove_prefix(1);
        }
        if (path.find(u'\0') != std::u16string_view::npos) {
            Fail(u"Der Schlüssel enthält das Zeichen mit dem Code 0.");
        }
        const std::u16string_view root = path.substr(0, path.find(u'\\'));
        // Hardware profiles are part of many exports, though no launcher can ask for them.
        if (HKeyFromName(root) == kNoHKey &&
            !text::EqualsIgnoreCase(root, u"HKEY_CURRENT_CONFIG")) {
            Fail(u"'" + std::u16string(root) + u"' ist kein Hauptschlüssel.");
        }
        key.path = path;
        return key;
    }

    void ReadValueOf(std::vector<RegFileKey>& keys) {
        if (keys.empty()) {
            Fail(u"Der Wert steht unter keinem Schlüssel.");
        }
        RegFileValue value;
        if (Peek() == u'"') {
            value.name = ReadQuoted();
        } else {
            Take();
        }
        SkipBlanks();
        if (!TakeIf(u"=")) {
            Fail(u"Nach dem Namen des Wertes fehlt '='.");
        }
        SkipBlanks();
        ReadData(value);
        if (keys.back().deleted) {
            Fail(u"Unter einem gelöschten Schlüssel steht ein Wert.");
        }
        keys.back().values.push_back(std::move(value));
        ExpectLineEnd();
    }

    void ReadData(RegFileValue& value) {
        if (Peek() == u'"') {
            value.data = ToUtf16Bytes(ReadQuoted() + u'\0');
        } else if (TakeIf(u"dword:")) {
            value.type = kRegTypeNumber;
            const std::uint32_t number = ReadHexNumber();
            value.data.emplace();
            for (unsigned shift = 0; shift < 32; shift += 8) {
                value.data->push_back(static_cast<char>(number >> shift & 0xFF));
            }
        } else if (TakeIf(u"hex:")) {
            value.type = kRegTypeBinary;
            value.data = ReadBytes();
        } else if (TakeIf(u"hex(")) {
            value.type = ReadHexNumber();
            if (!TakeIf(u"):")) {
                Fail(u"Nach dem Werttyp fehlt '):'.");
            }
            value.data = ReadBytes();
            if (ansi_ != nullptr && IsAnsiText(value.type)) {
                value.data = ToUtf16Bytes(ansi_->FromAnsi(*value.data));
            }
        } else if (!TakeIf(u"-")) {
            Fail(
                u"Der Wert hat keine bekannte Form (Text in Anführungszeichen, dword:, hex: oder "
                u"'-').");
        }
    }

    /// A text in quotation marks; it may hold line breaks.
    std::u16string ReadQuoted() {
        const std::int32_t start = line_;
        std::u16string result;
        Take();
        while (!AtEnd()) {
            char16_t unit = Take();
            if (unit == u'"') {
                return result;
            }
            if (unit == u'\\') {
                unit = Peek();
                if (unit != u'\\' && unit != u'"') {
                    Fail(
                        u"Nach '\\' folgt in einem Text nur '\\' oder '\"' (ein '\\' wird doppelt "
                        u"geschrieben).");
                }
                Take();
            }
            if (unit == u'\0') {
                Fail(u"Der Text enthält das Zeichen mit dem Code 0.");
            }
            result.push_back(unit);
        }
        throw RegFileError{start, u"Der Text in Anführungszeichen hat kein Ende."};
    }

    std::uint32_t ReadHexNumber() {
        std::uint32_t number = 0;
        int digits = 0;
        for (; HexDigit(Peek()); ++digits) {
            if (digits == 8) {
                Fail(u"Die Zahl hat mehr als acht Hexadezimalziffern.");
            }
            number = number << 4 | *HexDigit(Take());
        }
        if (digits == 0) {
            Fail(u"Hier steht keine Hexadezimalzahl.");
        }
        return number;
    }

    /// "43,00,\" and on the next line "3a,00"; nothing at all is no bytes.
    std::string ReadBytes() {
        std::string bytes;
        bool open = false;  // after a comma
        for (;;) {
            SkipBlanks();
            if (TakeIf(u"\\")) {
                SkipBlanks();
                if (AtEnd() || !AtLineEnd()) {
                    Fail(u"Die Fortsetzungszeile fehlt.");
                }
                SkipLine();
                continue;
            }
            if (!open && !bytes.empty()) {
                return bytes;
            }
            if (!HexDigit(Peek())) {
                if (bytes.empty()) {
                    return bytes;
                }
                Fail(u"Nach dem Komma fehlt ein Byte.");
            }
            const std::uint32_t byte = ReadHexNumber();
            if (byte > 0xFF) {
                Fail(u"Ein Byte hat mehr als zwei Hexadezimalziffern.");
            }
            bytes.push_back(static_cast<char>(byte));
            SkipBlanks();
            open = TakeIf(u",");
        }
    }

    std::u16string_view text_;
    const TextCodec* ansi_;  // null: a file in UTF-16
    std::size_t position_ = 0;
    std::int32_t line_ = 1;
};

}  // namespace

ParsedRegFile ParseRegFile(std::string_view bytes, std::u16string_view name,
                           const TextCodec& ansi) {
    ParsedRegFile result;
    const auto report = [&](std::int32_t line, std::u16string text) {
        result.problems.push_back({std::u16string(name), line, {}, std::move(text)});
    };
    const bool isAnsi = bytes.starts_with(kAnsiHeader);
    const DecodedText decoded = isAnsi ? DecodedText{ansi.FromAnsi(bytes), 0, {}}
                                       : DecodeText(bytes, ZeroBytes::HalvesOfUtf16);
    try {
        RegFileReader reader(decoded.text, isAnsi ? &ansi : nullptr);
        reader.ReadHeader();
        if (decoded.badLine != 0) {
            report(decoded.badLine, decoded.problem);
            return result;
        }
        reader.ReadLines(result.keys);
    } catch (const RegFileError& error) {
        report(error.line, error.text);
    }
    return result;
}

}  // namespace tarvex

#include "configurator/LauncherImage.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "configurator/program/PeHeader.h"
#include "configurator/program/ProgramFields.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kBlock = 32768;
constexpr std::size_t kLongestName = 100;
constexpr std::size_t kMarkerDigitIndex = 9;
constexpr std::u16string_view kMarkPrefix = u"@#BRD#@|";
constexpr std::u16string_view kMarkerUnbranded = u"@#BRANDED0#@";
constexpr std::u16string_view kMarkerBranded = u"@#BRANDED1#@";

char16_t Unit(std::string_view bytes, std::size_t at) {
    return static_cast<char16_t>(static_cast<std::uint8_t>(bytes[at]) |
                                 static_cast<std::uint8_t>(bytes[at + 1]) << 8U);
}

/// Up to `count` characters of UTF-16LE at an offset, fewer at the end of the file.
std::u16string Characters(std::string_view bytes, std::size_t at, std::size_t count) {
    std::u16string text;
    for (; count > 0 && at + 2 <= bytes.size(); --count, at += 2) {
        text += Unit(bytes, at);
    }
    return text;
}

char16_t UpperAscii(char16_t unit) {
    return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
}

/// Offsets of all occurrences of an upper-case text in UTF-16LE, case of A to Z ignored, because
/// that is how cuBrand looks for what it changes.
std::vector<std::size_t> FindAll(std::string_view bytes, std::u16string_view find) {
    std::vector<std::size_t> found;
    const char first = static_cast<char>(find[0]);
    for (std::size_t at = bytes.find(first); at != std::string_view::npos;
         at = bytes.find(first, at + 1)) {
        if (bytes.size() - at < 2 * find.size()) {
            break;
        }
        std::size_t same = 0;
        while (same < find.size() && UpperAscii(Unit(bytes, at + 2 * same)) == find[same]) {
            ++same;
        }
        if (same == find.size()) {
            found.push_back(at);
        }
    }
    return found;
}

std::u16string Place(std::size_t offset) {
    return u"an Position 0x" + text::Hexadecimal(offset, 1);
}

struct Header {
    std::int32_t number;
    std::size_t width;
    std::u16string name;
    std::size_t characters;  // before the value area
};

std::optional<Header> ReadHeader(std::string_view bytes, std::size_t start) {
    const std::u16string all = Characters(bytes, start, 18 + kLongestName);
    std::u16string_view rest = all;
    if (!rest.starts_with(kMarkPrefix)) {
        return std::nullopt;
    }
    rest.remove_prefix(kMarkPrefix.size());
    const std::u16string_view number = text::Left(rest, 3);
    const std::u16string_view width = text::Left(text::Drop(rest, 4), 4);
    const std::u16string_view bars = u"||";
    if (rest.size() < 9 || !text::IsDigits(number) || !text::IsDigits(width) ||
        rest[3] != bars[0] || rest[8] != bars[1]) {
        return std::nullopt;
    }
    rest.remove_prefix(9);
    const std::size_t end = rest.find(u'|');
    if (end == std::u16string_view::npos) {
        return std::nullopt;
    }
    return Header{*text::ParseInt32(number), static_cast<std::size_t>(*text::ParseInt32(width)),
                  std::u16string(rest.substr(0, end)), 18 + end};
}

/// The constant that holds a mark has a byte count before the text and a zero after it.
bool IsWholeConstant(std::string_view bytes, std::size_t start, std::size_t characters) {
    const std::size_t size = 2 * characters;
    if (start < 4 || bytes.size() - start < size + 2) {
        return false;
    }
    const std::uint32_t count =
        Unit(bytes, start - 4) | static_cast<std::uint32_t>(Unit(bytes, start - 2)) << 16U;
    return count == size && Unit(bytes, start + size) == 0;
}

}  // namespace

class LauncherImage::Reader {
public:
    Reader(std::string_view bytes, std::u16string_view name) : bytes_(bytes) {
        image_.name_ = name;
    }

    LauncherImage Read() {
        const PeHeader header = ReadPeHeader(bytes_);
        if (!header.isProgram32) {
            Refuse({}, u"Die Datei ist kein 32-Bit-Programm für Windows.");
            return std::move(image_);
        }
        if (header.isSigned) {
            RefuseChange({}, u"Die Datei trägt eine Signatur; erst konfigurieren, dann signieren.");
        }
        ReadMarkers();
        for (const std::size_t start : FindAll(bytes_, kMarkPrefix)) {
            ReadMark(start);
        }
        if (image_.marks_.empty() && image_.unknownMarks_.empty()) {
            // What else is strange about it does not help anybody.
            image_.readProblems_.clear();
            image_.changeProblems_.clear();
            Refuse({}, u"Die Datei ist kein Startprogramm: Sie enthält keine Marken.");
            return std::move(image_);
        }
        for (const BrandField* field : FieldsByNumber()) {
            if (!IsProgramField(field->number) && !seen_.contains(field->number)) {
                image_.missingMarks_.push_back(field);
            }
        }
        return std::move(image_);
    }

private:
    /// The program compares the marker with a constant that nobody ever changes.
    void ReadMarkers() {
        const std::vector<std::size_t> unbranded = FindAll(bytes_, kMarkerUnbranded);
        const std::vector<std::size_t> branded = FindAll(bytes_, kMarkerBranded);
        image_.branded_ = unbranded.empty() && !branded.empty();
        CheckCount(unbranded, 1, u"Die Kennung");
        CheckCount(branded, image_.branded_ ? 2 : 1, u"Die Vergleichskennung");
        if (unbranded.empty() && branded.empty()) {
            Refuse({}, u"Die Kennung (konfiguriert oder nicht) fehlt.");
        } else if (unbranded.size() + branded.size() < 2) {
            Refuse({}, u"Von den zwei Kennungen, die ein Startprogramm vergleicht, fehlt eine.");
        }
        for (const auto* starts : {&unbranded, &branded}) {
            for (const std::size_t start : *starts) {
                if (!IsWholeConstant(bytes_, start, kMarkerUnbranded.size())) {
                    Refuse({}, u"Die Kennung " + Place(start) +
                                   u" ist beschädigt: Länge oder Ende stimmen nicht.");
                }
            }
        }
        if (!unbranded.empty()) {
            CheckMarkerPosition(unbranded[0]);
        }
    }

    void CheckCount(const std::vector<std::size_t>& starts, std::size_t most,
                    std::u16string_view what) {
        if (starts.size() > most) {
            Refuse({}, std::u16string(what) + u" steht mehrfach in der Datei, " +
                           Place(starts[most - 1]) + u" und " + Place(starts[most]) + u".");
        }
    }

    void CheckMarkerPosition(std::size_t start) {
        image_.markerDigit_ = start + 2 * kMarkerDigitIndex;
        if (start + 2 * kMarkerUnbranded.size() > FullBlocks()) {
            RefuseChange({}, u"Die Kennung liegt " + Place(start) +
                                 u" im letzten, unvollständigen Block der Datei und würde an "
                                 u"falscher Stelle geschrieben.");
        }
    }

    void ReadMark(std::size_t start) {
        const std::optional<Header> header = ReadHeader(bytes_, start);
        if (!header) {
            Refuse({}, u"Die Marke " + Place(start) + u" ist beschädigt.");
            return;
        }
        const BrandField* field = FindBrandField(header->number);
        if (field == nullptr) {
            const std::u16string area =
                Characters(bytes_, start + 2 * header->characters, header->width);
            image_.unknownMarks_.push_back(
                {header->number, header->width, header->name, text::Trim(area).empty()});
            return;
        }
        const std::u16string mark = u"Die Marke " + text::Decimal(field->number, 3) + u" ";
        if (!seen_.insert({field->number, true}).second) {
            Refuse(field->name, mark + u"kommt mehrfach vor, noch einmal " + Place(start) + u".");
            return;
        }
        if (header->name != field->name ||
            header->width != static_cast<std::size_t>(field->width)) {
            Refuse(field->name, mark + u"ist beschädigt: sie heißt '" + header->name + u"' mit " +
                                    text::Decimal(static_cast<std::int64_t>(header->width)) +
                                    u" Zeichen statt '" + std::u16string(field->name) + u"' mit " +
                                    text::Decimal(field->width) + u".");
            return;
        }
        if (!IsWholeConstant(bytes_, start, header->characters + header->width)) {
            Refuse(field->name, mark + u"ist beschädigt: Länge oder Ende stimmen nicht.");
            return;
        }
        const std::size_t valueStart = start + 2 * header->characters;
        image_.marks_[field->number] = {start, valueStart,
                                        Characters(bytes_, valueStart, header->width)};
        CheckPosition(*field, mark, start, valueStart);
    }

    /// cuBrand loads a mark only when the 16 bytes of its prefix lie in one block, and reports a
    /// wrong position for what it finds in the last, partial block.
    void CheckPosition(const BrandField& field, const std::u16string& mark, std::size_t start,
                       std::size_t valueStart) {
        const std::size_t prefixEnd = start + 2 * kMarkPrefix.size();
        if (valueStart > FullBlocks()) {
            RefuseChange(field.name, mark + u"liegt " + Place(start) +
                                         u" im letzten, unvollständigen Block der Datei und würde "
                                         u"an falscher Stelle geschrieben.");
        } else if (start / kBlock != (prefixEnd - 1) / kBlock) {
            RefuseChange(field.name,
                         mark + u"liegt " + Place(start) +
                             u" auf der Grenze zweier Blöcke und würde nicht gefunden.");
        }
    }

    std::size_t FullBlocks() const { return bytes_.size() / kBlock * kBlock; }

    void Refuse(std::u16string_view field, std::u16string text) {
        image_.readProblems_.push_back({image_.name_, 0, std::u16string(field), std::move(text)});
    }

    void RefuseChange(std::u16string_view field, std::u16string text) {
        image_.changeProblems_.push_back({image_.name_, 0, std::u16string(field), std::move(text)});
    }

    std::string_view bytes_;
    LauncherImage image_;
    std::map<std::int32_t, bool> seen_;
};

LauncherImage LauncherImage::Read(std::string_view bytes, std::u16string_view name) {
    return Reader(bytes, name).Read();
}

Problems LauncherImage::ProblemsOfSetting(const Settings& settings) const {
    Problems problems;
    for (const BrandField* field : missingMarks_) {
        if (!settings.Value(field->number).empty()) {
            problems.push_back({name_, 0, std::u16string(field->name),
                                u"Das Startprogramm ist von einer anderen Version und hat dieses "
                                u"Feld nicht."});
        }
    }
    return problems;
}

const LauncherImage::Mark* LauncherImage::Find(std::int32_t number) const {
    const auto found = marks_.find(number);
    return found != marks_.end() ? &found->second : nullptr;
}

std::u16string LauncherImage::StoredText(std::int32_t number) const {
    const Mark* mark = Find(number);
    return mark != nullptr ? std::u16string(text::Trim(mark->area)) : std::u16string();
}

}  // namespace tarvex

#include "branding/BrandImage.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "branding/BrandFields.h"
#include "branding/BrandMark.h"

namespace tarvex {

namespace {

// The image is a row of records: byte count (4 bytes), text, zero character. Every text begins on a
// 16-byte boundary of the image and therefore of the file, so that the 16 bytes by which a mark is
// found never lie across two blocks of the file. Positions and lengths below are in characters.
constexpr std::size_t kBoundary = 8;
constexpr std::size_t kCountLength = 2;
constexpr std::size_t kZeroLength = 1;

constexpr std::size_t kMarkerLength = 12;

constexpr std::size_t NextText(std::size_t text, std::size_t length) {
    const std::size_t earliest = text + length + kZeroLength + kCountLength;
    return (earliest + kBoundary - 1) / kBoundary * kBoundary;
}

constexpr std::size_t MarkLength(const BrandField& field) {
    return kMarkHeaderWithoutName + field.name.size() + static_cast<std::size_t>(field.width);
}

constexpr std::size_t kMarkerText = kBoundary;
constexpr std::size_t kBrandedMarkerText = NextText(kMarkerText, kMarkerLength);
constexpr std::size_t kFirstMarkText = NextText(kBrandedMarkerText, kMarkerLength);

constexpr std::size_t ImageLength() {
    std::size_t text = kFirstMarkText;
    for (const BrandField& field : kBrandFields) {
        text = NextText(text, MarkLength(field));
    }
    return text;
}

struct alignas(kBoundary * sizeof(char16_t)) Image {
    char16_t units[ImageLength()];
};

/// Writes one record's text from a position on.
class RecordWriter {
public:
    consteval RecordWriter(Image& image, std::size_t text, std::size_t length)
        : out_(image.units + text) {
        const std::size_t bytes = length * sizeof(char16_t);
        out_[-2] = static_cast<char16_t>(bytes & 0xFFFF);
        out_[-1] = static_cast<char16_t>(bytes >> 16);
    }

    consteval void Put(std::u16string_view piece) {
        out_ = std::copy(piece.begin(), piece.end(), out_);
    }

    consteval void PutNumber(std::int32_t number, std::size_t digits) {
        for (std::size_t i = digits; i-- > 0; number /= 10) {
            out_[i] = static_cast<char16_t>(u'0' + number % 10);
        }
        out_ += digits;
    }

    consteval void PutBlanks(std::int32_t count) { out_ = std::fill_n(out_, count, u' '); }

private:
    char16_t* out_;
};

consteval Image MakeImage() {
    Image image{};
    RecordWriter(image, kMarkerText, kMarkerLength).Put(u"@#BRANDED0#@");
    RecordWriter(image, kBrandedMarkerText, kMarkerLength).Put(u"@#BRANDED1#@");
    std::size_t text = kFirstMarkText;
    for (const BrandField& field : kBrandFields) {
        RecordWriter mark(image, text, MarkLength(field));
        mark.Put(u"@#BRD#@|");
        mark.PutNumber(field.number, 3);
        mark.Put(u"|");
        mark.PutNumber(field.width, 4);
        mark.Put(u"|");
        mark.Put(field.name);
        mark.Put(u"|");
        mark.PutBlanks(field.width);
        text = NextText(text, MarkLength(field));
    }
    return image;
}

// Volatile, because the file's contents count, not those that the compiler knows: without it the
// program would use the empty values that it was compiled with.
[[gnu::section(".brand"), gnu::used]] constinit const volatile Image brandImage = MakeImage();

std::u16string ReadText(std::size_t text, std::size_t length) {
    std::u16string copy(length, u'\0');
    std::copy_n(brandImage.units + text, length, copy.begin());
    return copy;
}

}  // namespace

std::vector<std::u16string> BrandImage::Marks() const {
    std::vector<std::u16string> marks;
    marks.reserve(kBrandFields.size());
    std::size_t text = kFirstMarkText;
    for (const BrandField& field : kBrandFields) {
        marks.push_back(ReadText(text, MarkLength(field)));
        text = NextText(text, MarkLength(field));
    }
    return marks;
}

std::u16string BrandImage::Marker() const {
    return ReadText(kMarkerText, kMarkerLength);
}

std::u16string BrandImage::BrandedMarker() const {
    return ReadText(kBrandedMarkerText, kMarkerLength);
}

}  // namespace tarvex

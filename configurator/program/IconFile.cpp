#include "configurator/program/IconFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <numeric>
#include <utility>

#include "configurator/program/ByteNumbers.h"
#include "configurator/program/PngFile.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kFileHeader = 6;
constexpr std::size_t kFileEntry = 16;
constexpr std::size_t kEntryAlignment = 8;
constexpr std::uint32_t kBitmapHeader = 40;
constexpr std::int32_t kLargest = 256;
constexpr std::uint32_t kDepth = 32;

/// What Windows looks for, the sizes that it shows most often first.
constexpr std::array<std::int32_t, 5> kWanted = {16, 32, 48, 24, 256};

/// An image, or German why it cannot be used: the image alone, or with it the whole file.
struct Judgement {
    IconImage image;
    std::u16string leftOut;
    std::u16string damage;
};

Judgement LeftOut(std::u16string_view reason) {
    return {{}, std::u16string(reason), {}};
}

Judgement Damage(std::u16string_view reason) {
    return {{}, {}, std::u16string(reason)};
}

std::u16string SizeText(std::int64_t width, std::int64_t height) {
    return text::Decimal(width) + u" x " + text::Decimal(height);
}

std::u16string DepthText(std::int64_t width, std::int64_t height, std::int64_t bits) {
    return SizeText(width, height) + u" mit " + text::Decimal(bits) + u" Bit Farbtiefe";
}

Judgement JudgePng(std::string_view bytes) {
    const PngFile png = ReadPngFile(bytes);
    if (!png.problem.empty()) {
        return Damage(png.problem);
    }
    if (png.width != kLargest || png.height != kLargest) {
        return LeftOut(SizeText(png.width, png.height) +
                       u" als PNG; nur 256 x 256 darf so gepackt sein");
    }
    if (!png.hasColoursAndAlpha8) {
        return LeftOut(u"256 x 256 als PNG ohne 32 Bit Farbtiefe");
    }
    return {{kLargest, kLargest, std::string(bytes.substr(0, png.size))}, {}, {}};
}

/// A bitmap without a file header; below the image, in the height too, lies its mask.
Judgement JudgeBitmap(std::string_view bytes) {
    const std::uint32_t header = NumberAt(bytes, 0, 4).value_or(0);
    constexpr std::array<std::uint32_t, 6> kOtherHeaders = {12, 52, 56, 64, 108, 124};
    if (std::find(kOtherHeaders.begin(), kOtherHeaders.end(), header) != kOtherHeaders.end()) {
        return LeftOut(u"Kopf von " + text::Decimal(header) + u" statt 40 Bytes");
    }
    if (header != kBitmapHeader) {
        return Damage(u"ist weder ein Bitmap noch ein PNG-Bild");
    }
    if (bytes.size() < kBitmapHeader) {
        return Damage(u"ist abgeschnitten");
    }
    const std::uint64_t width = *NumberAt(bytes, 4, 4);
    const std::uint64_t height = *NumberAt(bytes, 8, 4) / 2;
    const std::uint32_t bits = *NumberAt(bytes, 14, 2);
    const std::uint64_t colours = *NumberAt(bytes, 32, 4);
    constexpr std::uint64_t kMost = 0x7fff;
    if (width == 0 || width > kMost || height == 0 || height > kMost ||
        *NumberAt(bytes, 8, 4) % 2 != 0) {
        return Damage(u"hat unmögliche Maße");
    }
    constexpr std::array<std::uint32_t, 6> kDepths = {1, 4, 8, 16, 24, 32};
    if (std::find(kDepths.begin(), kDepths.end(), bits) == kDepths.end() ||
        *NumberAt(bytes, 16, 4) != 0 || colours > kLargest) {
        return Damage(u"hat eine unmögliche Farbtiefe oder ist gepackt");
    }
    const std::uint64_t allColours = bits <= 8 && colours == 0 ? std::uint64_t{1} << bits : colours;
    const std::uint64_t size = kBitmapHeader + 4 * allColours +
                               height * ((width * bits + 31) / 32 * 4 + (width + 31) / 32 * 4);
    if (bytes.size() < size) {
        return Damage(u"ist abgeschnitten");
    }
    const auto signedWidth = static_cast<std::int32_t>(width);
    const auto signedHeight = static_cast<std::int32_t>(height);
    if (bits != kDepth) {
        return LeftOut(DepthText(signedWidth, signedHeight, bits) + u" statt 32");
    }
    if (signedWidth > kLargest || signedHeight > kLargest) {
        return LeftOut(SizeText(signedWidth, signedHeight) + u" ist größer als 256 x 256");
    }
    return {
        {signedWidth, signedHeight, std::string(bytes.substr(0, static_cast<std::size_t>(size)))},
        {},
        {}};
}

Judgement Judge(std::string_view bytes) {
    return IsPngFile(bytes) ? JudgePng(bytes) : JudgeBitmap(bytes);
}

/// Places in kWanted; those that nobody asks for come after all of them.
std::size_t Rank(const IconImage& image) {
    const auto found = std::find(kWanted.begin(), kWanted.end(), image.width);
    return image.width == image.height ? static_cast<std::size_t>(found - kWanted.begin())
                                       : kWanted.size();
}

std::size_t Aligned(std::size_t size) {
    return (size + kEntryAlignment - 1) / kEntryAlignment * kEntryAlignment;
}

void AppendHeader(std::string& bytes, const IconImages& images) {
    AppendNumber(bytes, 0, 2);
    AppendNumber(bytes, 1, 2);
    AppendNumber(bytes, static_cast<std::uint32_t>(images.size()), 2);
}

/// What a list and a file say about an image alike; 256 is 0 there.
void AppendEntry(std::string& bytes, const IconImage& image) {
    AppendNumber(bytes, static_cast<std::uint32_t>(image.width), 1);
    AppendNumber(bytes, static_cast<std::uint32_t>(image.height), 1);
    AppendNumber(bytes, 0, 2);
    AppendNumber(bytes, 1, 2);
    AppendNumber(bytes, kDepth, 2);
    AppendNumber(bytes, static_cast<std::uint32_t>(image.bytes.size()), 4);
}

}  // namespace

ReadIcon ReadIconFile(std::string_view bytes) {
    ReadIcon icon;
    const auto count = NumberAt(bytes, 4, 2);
    if (!count || NumberAt(bytes, 0, 4) != 0x10000U) {
        icon.problem = u"Die Datei ist keine Symboldatei (.ico).";
        return icon;
    }
    const std::size_t directory = kFileHeader + kFileEntry * *count;
    if (*count == 0 || bytes.size() < directory) {
        icon.problem = *count == 0 ? u"Die Symboldatei enthält kein Bild."
                                   : u"Das Verzeichnis der Symboldatei ist abgeschnitten.";
        return icon;
    }
    for (std::size_t i = 0; i < *count; ++i) {
        const std::size_t entry = kFileHeader + kFileEntry * i;
        const std::u16string name = u"Bild " + text::Decimal(static_cast<std::int64_t>(i + 1));
        const std::size_t size = *NumberAt(bytes, entry + 8, 4);
        const std::size_t start = *NumberAt(bytes, entry + 12, 4);
        if (start < directory || start > bytes.size() || bytes.size() - start < size) {
            icon.problem = name + u" der Symboldatei liegt nicht ganz in der Datei.";
            return icon;
        }
        Judgement judgement = Judge(bytes.substr(start, size));
        if (!judgement.damage.empty()) {
            icon.problem = name + u" der Symboldatei " + judgement.damage + u".";
            return icon;
        }
        if (judgement.leftOut.empty()) {
            icon.images.push_back(std::move(judgement.image));
        } else {
            icon.leftOut.push_back(name + u": " + judgement.leftOut);
        }
    }
    if (icon.images.empty()) {
        icon.problem =
            u"Die Symboldatei enthält kein Bild mit 32 Bit Farbtiefe, das jedes Windows "
            u"zeigt";
        std::u16string_view separator = u": ";
        for (const std::u16string& leftOut : icon.leftOut) {
            icon.problem += separator;
            icon.problem += leftOut;
            separator = u"; ";
        }
        icon.problem += u'.';
    }
    return icon;
}

IconImages ChooseImages(const IconImages& images, std::size_t room, std::size_t entries,
                        std::vector<std::u16string>& leftOut) {
    std::vector<std::size_t> order(images.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&images](std::size_t a, std::size_t b) {
        return Rank(images[a]) < Rank(images[b]);
    });
    std::vector<bool> chosen(images.size());
    std::size_t used = 0;
    for (const std::size_t i : order) {
        const IconImage& image = images[i];
        if (entries > 0 && used <= room && room - used >= image.bytes.size()) {
            chosen[i] = true;
            --entries;
            used += Aligned(image.bytes.size());
        } else {
            leftOut.push_back(SizeText(image.width, image.height) + u": kein Platz im Programm");
        }
    }
    IconImages result;
    for (std::size_t i = 0; i < images.size(); ++i) {
        if (chosen[i]) {
            result.push_back(images[i]);
        }
    }
    return result;
}

std::string WriteIconFile(const IconImages& images) {
    std::string bytes;
    AppendHeader(bytes, images);
    std::size_t place = kFileHeader + kFileEntry * images.size();
    for (const IconImage& image : images) {
        AppendEntry(bytes, image);
        AppendNumber(bytes, static_cast<std::uint32_t>(place), 4);
        place += image.bytes.size();
    }
    for (const IconImage& image : images) {
        bytes += image.bytes;
    }
    return bytes;
}

std::string IconList(const IconImages& images) {
    std::string bytes;
    AppendHeader(bytes, images);
    std::uint32_t number = 0;
    for (const IconImage& image : images) {
        AppendEntry(bytes, image);
        AppendNumber(bytes, ++number, 2);
    }
    return bytes;
}

IconImage ReadIconImage(std::string_view bytes) {
    return Judge(bytes).image;
}

}  // namespace tarvex

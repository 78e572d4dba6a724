#include "text/CodePages.h"

#include <algorithm>
#include <iterator>

#include "text/TextCodec1252.h"

namespace tarvex {

namespace {

constexpr unsigned kFirst = 0x80;
using UpperHalf = std::array<char16_t, 256 - kFirst>;

struct Table {
    int number;
    UpperHalf characters;
};

constexpr Table kTables[] = {
#define CODE_PAGE(number, ...) {number, {__VA_ARGS__}},
#include "text/CodePageTables.inc"
#undef CODE_PAGE
};

class TableCodec : public TextCodec {
public:
    explicit TableCodec(const UpperHalf& characters) : characters_(characters) {}

    std::string ToAnsi(std::u16string_view text) const override {
        std::string bytes(text.size(), '\0');
        std::transform(text.begin(), text.end(), bytes.begin(),
                       [this](char16_t unit) { return ToByte(unit); });
        return bytes;
    }

    std::u16string FromAnsi(std::string_view bytes) const override {
        std::u16string text(bytes.size(), u'\0');
        std::transform(bytes.begin(), bytes.end(), text.begin(), [this](char byte) {
            const unsigned code = static_cast<unsigned char>(byte);
            return code < kFirst ? static_cast<char16_t>(code) : characters_[code - kFirst];
        });
        return text;
    }

private:
    char ToByte(char16_t unit) const {
        if (unit < kFirst) {
            return static_cast<char>(unit);
        }
        const auto* const found = std::find(characters_.begin(), characters_.end(), unit);
        if (found == characters_.end()) {
            return '?';
        }
        return static_cast<char>(kFirst + static_cast<unsigned>(found - characters_.begin()));
    }

    const UpperHalf& characters_;
};

}  // namespace

std::unique_ptr<TextCodec> MakeCodePage(int number) {
    if (number == 1252) {
        return std::make_unique<TextCodec1252>();
    }
    const auto* const found =
        std::find_if(std::begin(kTables), std::end(kTables),
                     [number](const Table& table) { return table.number == number; });
    return found != std::end(kTables) ? std::make_unique<TableCodec>(found->characters) : nullptr;
}

}  // namespace tarvex

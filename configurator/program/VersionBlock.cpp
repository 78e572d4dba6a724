#include "configurator/program/VersionBlock.h"

#include <algorithm>

#include "branding/BrandMark.h"
#include "configurator/program/ByteNumbers.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kRecordHeader = 6;
constexpr std::size_t kAlignment = 4;
constexpr std::size_t kFixedSize = 52;
constexpr std::size_t kTranslationSize = 4;
constexpr std::uint32_t kFixedSignature = 0xfeef04bd;
constexpr std::uint32_t kMostInNumber = 0xffff;

constexpr std::u16string_view kRootKey = u"VS_VERSION_INFO";
constexpr std::u16string_view kTextsKey = u"StringFileInfo";
constexpr std::u16string_view kNamesKey = u"VarFileInfo";
constexpr std::u16string_view kTranslationKey = u"Translation";

std::string Zeroed(std::u16string_view text) {
    std::string bytes = ToUtf16Bytes(text);
    AppendNumber(bytes, 0, 2);
    return bytes;
}

/// One record of the block is being written: its length is known when it ends.
class Record {
public:
    Record(std::string& block, std::u16string_view key, bool isText) : block_(block) {
        PadTo(block_, kAlignment);
        start_ = block_.size();
        AppendNumber(block_, 0, 4);
        AppendNumber(block_, isText ? 1 : 0, 2);
        block_ += Zeroed(key);
    }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    ~Record() { PutNumber(block_, start_, static_cast<std::uint32_t>(block_.size() - start_), 2); }

    /// `size` counts characters in a text, bytes otherwise.
    void Value(std::string_view value, std::size_t size) {
        PadTo(block_, kAlignment);
        block_ += value;
        PutNumber(block_, start_ + 2, static_cast<std::uint32_t>(size), 2);
    }

private:
    std::string& block_;
    std::size_t start_ = 0;
};

/// One record that is being read; what is inside it is read by Next until that gives none.
class Piece {
public:
    /// A record that begins at an offset of the block and ends before `end`.
    static std::optional<Piece> At(std::string_view block, std::size_t start, std::size_t end) {
        const auto length = NumberAt(block.substr(0, end), start, 2);
        const auto size = NumberAt(block.substr(0, end), start + 2, 2);
        const auto isText = NumberAt(block.substr(0, end), start + 4, 2);
        if (!isText || *length < kRecordHeader || end - start < *length) {
            return std::nullopt;
        }
        Piece piece;
        piece.block_ = block.substr(0, start + *length);
        std::size_t at = start + kRecordHeader;
        for (;; at += 2) {
            const auto unit = NumberAt(piece.block_, at, 2);
            if (!unit) {
                return std::nullopt;
            }
            if (*unit == 0) {
                break;
            }
            piece.key += static_cast<char16_t>(*unit);
        }
        at = Aligned(at + 2);
        const std::size_t bytes = std::size_t{*size} * (*isText != 0 ? 2 : 1);
        if (at <= piece.block_.size()) {
            piece.value = piece.block_.substr(at, bytes);
        }
        piece.next_ = Aligned(at + piece.value.size());
        return piece;
    }

    std::optional<Piece> Next() {
        if (next_ >= block_.size()) {
            return std::nullopt;
        }
        std::optional<Piece> piece = At(block_, next_, block_.size());
        next_ = piece ? Aligned(piece->block_.size()) : block_.size();
        return piece;
    }

    std::u16string key;
    std::string_view value;

private:
    static std::size_t Aligned(std::size_t at) {
        return (at + kAlignment - 1) / kAlignment * kAlignment;
    }

    std::string_view block_;  // up to the end of the record
    std::size_t next_ = 0;
};

}  // namespace

std::optional<VersionBlock> VersionBlock::Read(std::string_view bytes) {
    std::optional<Piece> root = Piece::At(bytes, 0, bytes.size());
    if (!root || root->value.size() != kFixedSize ||
        NumberAt(root->value, 0, 4) != kFixedSignature) {
        return std::nullopt;
    }
    VersionBlock block;
    block.fixed_ = root->value;
    std::optional<Piece> texts = root->Next();
    std::optional<Piece> names = root->Next();
    std::optional<Piece> table = texts ? texts->Next() : std::nullopt;
    const std::optional<Piece> translation = names ? names->Next() : std::nullopt;
    if (!table || !translation || translation->value.size() != kTranslationSize) {
        return std::nullopt;
    }
    block.language_ = table->key;
    block.translation_ = translation->value;
    while (const std::optional<Piece> text = table->Next()) {
        std::u16string value = FromUtf16Bytes(text->value);
        if (value.empty() || value.find(u'\0') != value.size() - 1) {
            return std::nullopt;
        }
        value.pop_back();
        block.texts_.emplace_back(text->key, std::move(value));
    }
    // What else may be wrong with it: the same texts would give another block.
    return block.Build() == bytes ? std::optional(std::move(block)) : std::nullopt;
}

std::string VersionBlock::Build() const {
    std::string block;
    {
        Record root(block, kRootKey, false);
        root.Value(fixed_, fixed_.size());
        {
            const Record texts(block, kTextsKey, true);
            const Record table(block, language_, true);
            for (const auto& [name, value] : texts_) {
                // With its zero: a reader takes what follows a text of length 0 for the text.
                Record(block, name, true).Value(Zeroed(value), value.size() + 1);
            }
        }
        const Record names(block, kNamesKey, true);
        Record(block, kTranslationKey, false).Value(translation_, translation_.size());
    }
    return block;
}

std::u16string_view VersionBlock::Text(std::u16string_view name) const {
    const auto found = std::find_if(texts_.begin(), texts_.end(),
                                    [name](const auto& text) { return text.first == name; });
    return found != texts_.end() ? std::u16string_view(found->second) : std::u16string_view();
}

void VersionBlock::SetText(std::u16string_view name, std::u16string_view text) {
    const auto found = std::find_if(texts_.begin(), texts_.end(),
                                    [name](const auto& old) { return old.first == name; });
    if (found != texts_.end()) {
        found->second = text;
    } else {
        texts_.emplace_back(name, text);
    }
}

VersionBlock::Numbers VersionBlock::NumbersAt(std::size_t at) const {
    Numbers numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = NumberAt(fixed_, at + 2 * (i ^ 1U), 2).value_or(0);
    }
    return numbers;
}

void VersionBlock::SetNumbersAt(std::size_t at, const Numbers& numbers) {
    // Two numbers share four bytes, the first of them in the higher half.
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        PutNumber(fixed_, at + 2 * (i ^ 1U), numbers[i], 2);
    }
}

VersionNumbers ReadVersionNumbers(std::u16string_view text) {
    VersionNumbers result;
    std::u16string_view rest = text::Trim(text);
    for (std::size_t i = 0; !rest.empty(); ++i) {
        const std::size_t digits = std::min(rest.find_first_not_of(u"0123456789"), rest.size());
        if (digits == 0) {
            if (i == 0) {
                result.problem = u"Der Text beginnt nicht mit einer Versionsnummer wie 1.2.3.";
            }
            return result;
        }
        if (i == result.numbers.size()) {
            result.problem = u"Die Versionsnummer hat mehr als vier Zahlen.";
            return result;
        }
        for (const char16_t digit : rest.substr(0, digits)) {
            result.numbers[i] =
                std::min(10 * result.numbers[i] + (digit - u'0'), kMostInNumber + 1);
        }
        if (result.numbers[i] > kMostInNumber) {
            result.problem = u"Eine Zahl der Versionsnummer ist größer als 65535.";
            return result;
        }
        rest = text::Trim(text::Drop(rest, digits));
        if (rest.empty() || (rest[0] != u'.' && rest[0] != u',')) {
            return result;
        }
        rest = text::Trim(text::Drop(rest, 1));
    }
    return result;
}

}  // namespace tarvex

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvex {

/// The content of a version resource: the fixed numbers, and texts in one language.
class VersionBlock {
public:
    /// Four numbers of a version, each up to 65535.
    using Numbers = std::array<std::uint32_t, 4>;

    /// Reads a block that is as Build gives it, with nothing after it; nothing for any other.
    static std::optional<VersionBlock> Read(std::string_view bytes);

    /// The bytes of the resource, with nothing between its parts but what aligns them.
    std::string Build() const;

    /// The text of this name; empty too when there is none.
    std::u16string_view Text(std::u16string_view name) const;

    /// Replaces the text of this name, or adds it after the others. Not one that has the character
    /// with the code 0.
    void SetText(std::u16string_view name, std::u16string_view text);

    Numbers FileNumbers() const { return NumbersAt(kFileNumbers); }
    void SetFileNumbers(const Numbers& numbers) { SetNumbersAt(kFileNumbers, numbers); }
    Numbers ProductNumbers() const { return NumbersAt(kProductNumbers); }
    void SetProductNumbers(const Numbers& numbers) { SetNumbersAt(kProductNumbers, numbers); }

private:
    static constexpr std::size_t kFileNumbers = 8;  // in the fixed record
    static constexpr std::size_t kProductNumbers = 16;

    Numbers NumbersAt(std::size_t at) const;
    void SetNumbersAt(std::size_t at, const Numbers& numbers);

    std::string fixed_;        // the fixed record, 52 bytes
    std::u16string language_;  // of the texts, "040704B0"
    std::string translation_;  // the same as the system looks for it, 4 bytes
    std::vector<std::pair<std::u16string, std::u16string>> texts_;
};

/// Numbers that a version text begins with, or German why there are none.
struct VersionNumbers {
    VersionBlock::Numbers numbers{};
    std::u16string problem;
};

/// "1.2.3 beta" has the numbers 1, 2, 3, 0; points and commas separate them. An empty text has four
/// zeros. Refuses a text that begins with no number, one that is too large, and a fifth one.
VersionNumbers ReadVersionNumbers(std::u16string_view text);

}  // namespace tarvex

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// A line of two texts that are compared, beside each other.
struct ComparedLine {
    std::int32_t first = 0;   ///< 1-based number in the first text; 0: it does not have the line
    std::int32_t second = 0;  ///< the same in the second text
    std::u16string firstText = {};
    std::u16string secondText = {};

    bool Differs() const { return first == 0 || second == 0 || firstText != secondText; }
};

/// Puts the lines of two texts beside each other so that as many as possible are the same. Lines
/// that stand between the same neighbours are taken for a changed one. Empty lines at the end of a
/// text do not count, nor does how its lines end.
std::vector<ComparedLine> CompareTexts(std::u16string_view first, std::u16string_view second);

}  // namespace tarvex

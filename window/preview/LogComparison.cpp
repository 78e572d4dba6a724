#include "window/preview/LogComparison.h"

#include <algorithm>
#include <cstddef>

#include "configurator/TextFile.h"

namespace tarvex {
namespace {

using Lines = std::vector<std::u16string_view>;

/// Texts whose lines give a larger table than this are no logs; their lines are paired as they
/// stand.
constexpr std::size_t kLargestTable = 4'000'000;

Lines LinesOf(std::u16string_view text) {
    Lines lines = TextLines(text);
    while (!lines.empty() && lines.back().empty()) {
        lines.pop_back();
    }
    return lines;
}

/// Goes along two texts and notes what stands beside each other.
class Comparison {
public:
    Comparison(Lines first, Lines second) : first_(std::move(first)), second_(std::move(second)) {}

    std::vector<ComparedLine> Compare() {
        TakeSame(first_.size(), second_.size());
        std::size_t firstEnd = first_.size();
        std::size_t secondEnd = second_.size();
        while (firstEnd > firstAt_ && secondEnd > secondAt_ &&
               first_[firstEnd - 1] == second_[secondEnd - 1]) {
            --firstEnd;
            --secondEnd;
        }
        TakeMiddle(firstEnd, secondEnd);
        TakeSame(first_.size(), second_.size());
        return std::move(result_);
    }

private:
    /// The same lines from here on, as far as they go.
    void TakeSame(std::size_t firstEnd, std::size_t secondEnd) {
        while (firstAt_ < firstEnd && secondAt_ < secondEnd &&
               first_[firstAt_] == second_[secondAt_]) {
            Add(true, true);
        }
    }

    /// Up to the two ends, along the longest common sequence of lines.
    void TakeMiddle(std::size_t firstEnd, std::size_t secondEnd) {
        const std::size_t rows = firstEnd - firstAt_;
        const std::size_t columns = secondEnd - secondAt_;
        if (rows * columns > kLargestTable) {
            TakeChanged(firstEnd, secondEnd);
            return;
        }
        const std::size_t firstStart = firstAt_;
        const std::size_t secondStart = secondAt_;
        // Lines in common behind a place of both texts.
        std::vector<std::uint32_t> common((rows + 1) * (columns + 1));
        const auto commonAt = [&](std::size_t row, std::size_t column) -> std::uint32_t& {
            return common[row * (columns + 1) + column];
        };
        const auto same = [&](std::size_t row, std::size_t column) {
            return first_[firstStart + row] == second_[secondStart + column];
        };
        for (std::size_t row = rows; row-- > 0;) {
            for (std::size_t column = columns; column-- > 0;) {
                commonAt(row, column) = same(row, column) ? commonAt(row + 1, column + 1) + 1
                                                          : std::max(commonAt(row + 1, column),
                                                                     commonAt(row, column + 1));
            }
        }
        std::size_t row = 0;
        std::size_t column = 0;
        while (row < rows && column < columns) {
            if (same(row, column)) {
                TakeChanged(firstStart + row, secondStart + column);
                Add(true, true);
                ++row;
                ++column;
            } else if (commonAt(row + 1, column) >= commonAt(row, column + 1)) {
                ++row;
            } else {
                ++column;
            }
        }
        TakeChanged(firstEnd, secondEnd);
    }

    /// What differs up to the two ends: changed lines first, then those that only one text has.
    void TakeChanged(std::size_t firstEnd, std::size_t secondEnd) {
        while (firstAt_ < firstEnd || secondAt_ < secondEnd) {
            Add(firstAt_ < firstEnd, secondAt_ < secondEnd);
        }
    }

    void Add(bool ofFirst, bool ofSecond) {
        ComparedLine line;
        if (ofFirst) {
            line.firstText = first_[firstAt_++];
            line.first = static_cast<std::int32_t>(firstAt_);
        }
        if (ofSecond) {
            line.secondText = second_[secondAt_++];
            line.second = static_cast<std::int32_t>(secondAt_);
        }
        result_.push_back(std::move(line));
    }

    Lines first_;
    Lines second_;
    std::size_t firstAt_ = 0;
    std::size_t secondAt_ = 0;
    std::vector<ComparedLine> result_;
};

}  // namespace

std::vector<ComparedLine> CompareTexts(std::u16string_view first, std::u16string_view second) {
    return Comparison(LinesOf(first), LinesOf(second)).Compare();
}

}  // namespace tarvex

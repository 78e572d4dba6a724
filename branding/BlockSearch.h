#pragma once

#include <cstddef>
#include <string>

namespace tarvex {

/// Searches a file block by block for bytes, case of the letters A to Z ignored. Each block is seen
/// joined with the block before it, so that an occurrence across their boundary is found.
class BlockSearch {
public:
    /// `bytes` must not be empty for anything to be found.
    explicit BlockSearch(std::string bytes);

    /// Length of the block that the next one is joined with; 0 before the first.
    std::size_t PreviousLength() const { return previousLength_; }

    /// The 1-based position of the first occurrence in the joined blocks; 0 when there is none.
    /// Ends the search when it finds one.
    std::size_t FindInNext(std::string block);

private:
    std::string bytes_;
    std::string tail_;  ///< end of the previous block that an occurrence can begin in
    std::size_t previousLength_ = 0;
};

}  // namespace tarvex

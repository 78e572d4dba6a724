#include "branding/BlockSearch.h"

#include <algorithm>
#include <utility>

namespace tarvex {

namespace {

// Folded by hand: locale functions and the rules for UTF-16 text ignore zero bytes or see letters
// in bytes that are not text.
void FoldAscii(std::string& bytes) {
    for (char& byte : bytes) {
        if (byte >= 'A' && byte <= 'Z') {
            byte = static_cast<char>(byte + ('a' - 'A'));
        }
    }
}

}  // namespace

BlockSearch::BlockSearch(std::string bytes) : bytes_(std::move(bytes)) {
    FoldAscii(bytes_);
}

std::size_t BlockSearch::FindInNext(std::string block) {
    if (bytes_.empty()) {
        return 0;
    }
    FoldAscii(block);
    const std::string joined = tail_ + block;
    const std::size_t found = joined.find(bytes_);
    if (found != std::string::npos) {
        return previousLength_ - tail_.size() + found + 1;
    }
    // Nothing begins further in front: the block has been searched as a whole.
    const std::size_t kept = std::min(bytes_.size() - 1, block.size());
    tail_ = block.substr(block.size() - kept);
    previousLength_ = block.size();
    return 0;
}

}  // namespace tarvex

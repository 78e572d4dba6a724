#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "branding/BrandMark.h"
#include "errors/RaisedError.h"

namespace tarvex {

inline constexpr std::size_t kBlock = 32768;

/// The error that an operation raises; fails the test and is empty when it raises none.
template <class Operation>
RaisedError ErrorOf(Operation&& operation) {
    try {
        std::forward<Operation>(operation)();
    } catch (const RaisedError& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return {};
}

/// Expects an error with these parts.
inline void ExpectError(const RaisedError& error, std::int32_t number,
                        std::u16string_view description, std::u16string_view source) {
    EXPECT_EQ(error.number, number);
    EXPECT_EQ(error.description, description);
    EXPECT_EQ(error.source, source);
}

/// A mark as it stands in a program: header and value area.
inline std::u16string Mark(std::int32_t number, std::int32_t width, std::u16string_view name,
                           std::u16string_view value = {}) {
    return MarkHeader(number, width, name) + FitToWidth(value, width);
}

/// Bytes of a file into which marks and markers are put. The filler is not part of any mark.
class FileBytes {
public:
    explicit FileBytes(std::size_t length) : bytes_(length, '\x5A') {}

    /// Puts a text as UTF-16LE at a 0-based offset.
    FileBytes& Put(std::size_t offset, std::u16string_view text) {
        const std::string piece = ToUtf16Bytes(text);
        const std::size_t inside = std::min(piece.size(), bytes_.size() - offset);
        bytes_.replace(offset, inside, piece, 0, inside);
        return *this;
    }

    operator std::string() const { return bytes_; }

private:
    std::string bytes_;
};

}  // namespace tarvex

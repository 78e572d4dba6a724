#pragma once

#include <cstdint>
#include <string_view>

namespace tarvex {

/// Application errors of the branding classes; the number raised is 0x80040000 plus this one.
enum class BrandError : std::int32_t {
    PositionsDiffer = 1,
    ItemNotSaved = 2,
    AlreadyBranded = 3,
    NoItems = 4,
    NoMarker = 5,
    WrongMode = 6,
    NoFileName = 7,
    FileMissing = 8,
    NoIdentifier = 9,
    NoPosition = 10,
    WrongLength = 11
};

/// The number under which the error is raised.
std::int32_t BrandErrorNumber(BrandError error);

/// Raises the error with its German text; `name` is that of the item or file that the text names.
/// The source is empty.
[[noreturn]] void RaiseBrandError(BrandError error, std::u16string_view name = {});

/// WrongMode, with the text for an attempt to write.
[[noreturn]] void RaiseCannotWrite();

}  // namespace tarvex

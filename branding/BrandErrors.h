#pragma once

#include <cstdint>
#include <string_view>

#include "errors/RaisedError.h"

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
    WrongLength = 11,
};

/// The number under which the error is raised.
std::int32_t NumberOf(BrandError error);

/// The error with its German text and no source, ready to be thrown; `name` is that of the item or
/// file that the text names.
RaisedError MakeError(BrandError error, std::u16string_view name = {});

}  // namespace tarvex

#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "text/TextCodec.h"

namespace tarvex {

/// The code pages that a described computer may have, for messages.
inline constexpr std::u16string_view kPcCodePages = u"874 und 1250 bis 1258";

/// The ANSI code page of a described computer; null when a description cannot have it.
std::unique_ptr<TextCodec> MakePcCodec(std::int32_t codePage);

}  // namespace tarvex

#pragma once

#include <string_view>

namespace tarvex {

/// The application's title: caption and source name wherever no configured name takes its place.
inline constexpr std::u16string_view kAppTitle = u"Tarvex";

}  // namespace tarvex

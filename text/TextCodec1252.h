#pragma once

#include "text/TextCodec.h"

namespace tarvex {

/// The Western European ANSI code page 1252, the same on every system. Its five unassigned bytes
/// stand for the control characters of the same number, as Windows converts them.
class TextCodec1252 : public TextCodec {
public:
    std::string ToAnsi(std::u16string_view text) const override;
    std::u16string FromAnsi(std::string_view bytes) const override;
};

}  // namespace tarvex

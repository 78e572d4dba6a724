#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "branding/BrandFields.h"
#include "text/TextCodec.h"

namespace tarvex {

/// A value in the form in which it stands in a mark, not yet padded to the field's width.
struct StoredValue {
    std::u16string stored;   ///< empty for an empty value and when there is a problem
    std::u16string problem;  ///< German, why the field cannot hold the value; empty when it can
    std::size_t length = 0;  ///< characters that the value takes, also when they are too many; 0
                             ///< when it holds a character that no value can hold
};

/// The stored form of a plain value for the settings codec `codec` (one byte per character). Blanks
/// at the ends of the value are dropped, except in a credential, where they count. A value is
/// refused when it does not fit the field, when it holds a character outside the code page, or
/// when it would be read back differently. What the value means is not checked.
StoredValue MakeStoredValue(const BrandField& field, std::u16string_view plain,
                            const TextCodec& codec);

/// The plain value of a field's stored form. For a credential whose numbers cannot be read a
/// runtime error is raised, as by DecodeNumberList.
std::u16string PlainValue(const BrandField& field, std::u16string_view stored,
                          const TextCodec& codec);

}  // namespace tarvex

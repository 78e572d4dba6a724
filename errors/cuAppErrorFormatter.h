#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "errors/cuAppError.h"

namespace tarvex {

/// Turns the pending error into the block of text that the error details show.
class cuAppErrorFormatter {
public:
    /// Number, source, line and description of the pending error, a labelled row each, wrapped at
    /// 80 characters; lines are separated by CR LF. The place module, ": ", procedure is added to
    /// the source. Source and line appear at ErrLevel 2 only; the text is empty at level 0 and
    /// below.
    static std::u16string GetFormattedError(const cuAppError& errorObject,
                                            std::u16string_view module,
                                            std::u16string_view procedure);

    /// Breaks each paragraph (separated by CR LF) at blanks into lines of at most `width`
    /// characters. A paragraph with a longer word stays as it is.
    static std::u16string WordWrap(std::u16string_view text, std::size_t width);
};

}  // namespace tarvex

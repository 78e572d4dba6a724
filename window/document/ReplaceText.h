#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "window/document/Document.h"

namespace tarvex {

/// A piece of text that gives way to another wherever it occurs.
struct TextReplacement {
    std::u16string find;
    std::u16string replacement;
    bool matchCase = false;
};

/// What a replacement makes of a field.
struct ReplaceChange {
    std::int32_t number = 0;
    std::u16string before;
    std::u16string after;
    std::u16string problem;  ///< German, why the field cannot take it; empty when it can
};

/// The fields that hold the text, in the order of their numbers: paths, file names and key-list
/// entries, also those that the user has parked, since a place that has moved has moved for them
/// too. The icon file is left out: its picture is in the document, and the launcher never looks for
/// it. Nothing for an empty text.
std::vector<ReplaceChange> FindReplacements(const Document& document,
                                            const TextReplacement& replacement);

/// Enters the changes without a problem, each as one step of its field.
void ApplyReplacements(Document& document, const std::vector<ReplaceChange>& changes);

}  // namespace tarvex

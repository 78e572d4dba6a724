#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "configurator/checks/Finding.h"

namespace tarvex {

/// True when the launcher divides the texts of this list at the list marker, so that one field may
/// hold several entries.
bool IsDividedList(const KeyListFields& list);

/// The entries that the launcher reads from a field's text, in order, as they stand there with
/// their blanks. Joined by the list marker they are the text again, but for a marker at its end.
/// Nothing for a text of blanks.
std::vector<std::u16string> EntriesOfField(const KeyListFields& list, std::u16string_view text);

/// The reverse of EntriesOfField.
std::u16string JoinEntries(const std::vector<std::u16string>& entries);

/// True when the launcher can read the entry.
bool IsReadableEntry(std::u16string_view entry);

/// What the checks say of that field alone with that text.
Findings FindingsOfField(std::int32_t number, std::u16string_view text);

/// "noch 61 von 100 Zeichen", "1 Zeichen zu viel".
std::u16string RoomText(std::int32_t left, std::int32_t width);

}  // namespace tarvex

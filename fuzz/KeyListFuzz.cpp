#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {
namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// No text is lost but blanks and markers, and a piece holds no marker that could be found.
void CheckSplit(const std::u16string& text, std::u16string_view marker) {
    const std::vector<std::u16string> pieces = text::SplitList(text, marker);
    std::size_t characters = 0;
    for (const std::u16string& piece : pieces) {
        characters += piece.size();
        Require(text::Trim(piece) == piece);
        Require(text::FindIgnoreCase(piece, marker) == std::u16string::npos);
    }
    Require(pieces.empty() == text.empty());
    Require(characters <= text.size());
}

/// What was parsed builds an entry that parses to the same fields.
void CheckParse(const std::u16string& text) {
    const KeyListEntry entry = ParseKeyListEntry(text).entry;
    if (entry.root == kNoHKey) {
        Require(BuildKeyListEntry(entry).empty());
        return;
    }
    Require(!HKeyName(entry.root).empty());
    // An empty field is written without its mark, and an empty key path without its separator: such
    // an entry may be read back differently.
    if (entry.keyPath.empty() || entry.subFolder.empty() || entry.fileName.empty()) {
        return;
    }
    const KeyListEntry again = ParseKeyListEntry(BuildKeyListEntry(entry)).entry;
    Require(again.root == entry.root && again.valueName == entry.valueName &&
            again.subFolder == entry.subFolder && again.fileName == entry.fileName);
}

}  // namespace
}  // namespace tarvex

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::u16string text(size / 2, u'\0');
    if (!text.empty()) {
        std::memcpy(text.data(), data, text.size() * 2);
    }
    tarvex::CheckSplit(text, u"%|%");
    tarvex::CheckSplit(text, u"\\");
    tarvex::CheckParse(text);
    return 0;
}

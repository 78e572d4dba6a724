#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex {

/// One brand mark as the program works with it.
class cuBranding {
public:
    /// Field number.
    std::int32_t Index() const { return index_; }
    void SetIndex(std::int32_t index) { index_ = index; }

    const std::u16string& Name() const { return name_; }
    void SetName(std::u16string_view name) { name_ = name; }

    /// Width of the value area in characters.
    std::int32_t NumChars() const { return numChars_; }
    void SetNumChars(std::int32_t numChars) { numChars_ = numChars; }

    /// 1-based byte position of the value area in the file; 0 when the mark is from no file.
    std::int32_t StartPosition() const { return startPosition_; }
    void SetStartPosition(std::int32_t startPosition) { startPosition_ = startPosition; }

    /// The value without padding. Setting a different text, case included, makes the item dirty.
    const std::u16string& Value() const { return value_; }
    void SetValue(std::u16string_view value);

    bool Dirty() const { return dirty_; }

private:
    friend class cuBrandings;

    void ClearDirty() { dirty_ = false; }

    std::int32_t key_ = 0;  ///< under which its collection finds it, whatever the index becomes
    std::int32_t index_ = 0;
    std::u16string name_;
    std::int32_t numChars_ = 0;
    std::int32_t startPosition_ = 0;
    std::u16string value_;
    bool dirty_ = false;
};

}  // namespace tarvex

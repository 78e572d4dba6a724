#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string_view>

#include "branding/cuBranding.h"

namespace tarvex {

/// The marks of one program or file, each under its field number. Enumeration yields them in the
/// order in which they were added. References stay valid until their item is removed.
class cuBrandings {
public:
    using iterator = std::list<cuBranding>::iterator;
    using const_iterator = std::list<cuBranding>::const_iterator;

    /// True when any item is dirty.
    bool Dirty() const;

    /// The item of that number; an unknown one raises runtime error 5.
    cuBranding& Item(std::int32_t number);
    const cuBranding& Item(std::int32_t number) const;

    /// The first item of that name, case ignored; null when there is none.
    cuBranding* ItemByName(std::u16string_view name);

    std::size_t Count() const { return items_.size(); }

    /// Adds an item; it is dirty when the value is not empty. A number that is already there raises
    /// runtime error 457 and leaves the collection as it was.
    cuBranding& Add(std::u16string_view name, std::u16string_view value, std::int32_t number,
                    std::int32_t numChars);

    /// An unknown number raises runtime error 5.
    void Remove(std::int32_t number);

    void Clear() { items_.clear(); }
    void UnDirtyAll();

    iterator begin() { return items_.begin(); }
    iterator end() { return items_.end(); }
    const_iterator begin() const { return items_.begin(); }
    const_iterator end() const { return items_.end(); }

private:
    /// Where the item of that number is; the end when there is none.
    const_iterator Position(std::int32_t number) const;

    /// The same, raising runtime error 5 when there is none.
    const_iterator Find(std::int32_t number) const;

    std::list<cuBranding> items_;
};

}  // namespace tarvex

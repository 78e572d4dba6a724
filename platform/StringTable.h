#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// The program's numbered texts.
class StringTable {
public:
    virtual ~StringTable() = default;

    /// The text with that id as it is stored; empty when there is none.
    virtual std::u16string Load(std::int32_t id) const = 0;
};

}  // namespace tarvex

#pragma once

#include "platform/StringTable.h"

namespace tarvex {

/// The string table in the resources of the running program.
class Win32StringTable : public StringTable {
public:
    std::u16string Load(std::int32_t id) const override;
};

}  // namespace tarvex

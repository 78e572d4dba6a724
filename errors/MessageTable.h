#pragma once

#include "platform/StringTable.h"

namespace tarvex {

/// The message texts as the launcher's string table holds them, compiled in: for programs that do
/// not carry the launcher's resources.
class MessageTable : public StringTable {
public:
    std::u16string Load(std::int32_t id) const override;
};

}  // namespace tarvex

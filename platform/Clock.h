#pragma once

#include <string>

namespace tarvex {

/// The time of day as the user's settings write it.
class Clock {
public:
    virtual ~Clock() = default;

    /// Short date, a blank and the long time, for example "24.12.2004 08:15:00"; both parts always.
    virtual std::u16string GeneralDateTime() const = 0;
};

}  // namespace tarvex

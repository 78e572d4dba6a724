#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// The time of day as the user's settings write it, and the time that goes by.
class Clock {
public:
    virtual ~Clock() = default;

    /// Short date, a blank and the long time, for example "24.12.2004 08:15:00"; both parts always.
    virtual std::u16string GeneralDateTime() const = 0;

    /// Milliseconds since some time in the past; begins at 0 again after the largest number.
    virtual std::uint32_t Milliseconds() const = 0;
};

}  // namespace tarvex

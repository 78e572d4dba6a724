#pragma once

#include "platform/Clock.h"

namespace tarvex {

/// The local time in the formats of the user's regional settings.
class Win32Clock : public Clock {
public:
    std::u16string GeneralDateTime() const override;
};

}  // namespace tarvex

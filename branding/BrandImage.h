#pragma once

#include <string>
#include <vector>

#include "branding/BrandConstants.h"

namespace tarvex {

/// The constants of the launcher's own image, as they stand in its file: the configuration program
/// overwrites them there. Linked into the launcher only, so that no other file holds them.
class BrandImage : public BrandConstants {
public:
    std::vector<std::u16string> Marks() const override;
    std::u16string Marker() const override;
    std::u16string BrandedMarker() const override;
};

}  // namespace tarvex

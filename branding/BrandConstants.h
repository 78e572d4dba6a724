#pragma once

#include <string>
#include <vector>

namespace tarvex {

/// The brand marks and the branded marker that are compiled into the running program. The
/// launcher's come from its own image (BrandImage); tests hand in lists of their own.
class BrandConstants {
public:
    virtual ~BrandConstants() = default;

    /// The full texts of all marks, value areas included, in the program's order.
    virtual std::vector<std::u16string> Marks() const = 0;

    /// The marker as it stands in the image at run time; 12 characters.
    virtual std::u16string Marker() const = 0;

    /// The form that the marker has in a branded program. The configuration program never changes
    /// it.
    virtual std::u16string BrandedMarker() const = 0;
};

}  // namespace tarvex

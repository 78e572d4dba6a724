#pragma once

#include <map>
#include <string>
#include <vector>

#include "branding/BrandConstants.h"
#include "configurator/LauncherImage.h"
#include "configurator/Model.h"

namespace tarvex {

/// The marks of a launcher that is not running: those of its file, or those that branding would
/// give it.
class StoredConstants : public BrandConstants {
public:
    /// What stands in the marks of a launcher's file. A mark that is missing there is an empty one.
    static StoredConstants FromImage(const LauncherImage& image);

    /// What a launcher branded with these settings would hold; `codec` is that of the settings. A
    /// value that its field cannot hold is a problem, with `place` for the file, and left out.
    static StoredConstants FromSettings(const Settings& settings, std::u16string_view place,
                                        const TextCodec& codec, Problems& problems);

    std::vector<std::u16string> Marks() const override;
    std::u16string Marker() const override;
    std::u16string BrandedMarker() const override;

private:
    std::map<std::int32_t, std::u16string> areas_;  ///< value areas by field number
    bool branded_ = true;
};

}  // namespace tarvex

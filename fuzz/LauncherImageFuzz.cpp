#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "branding/BrandFields.h"
#include "configurator/LauncherImage.h"

/// Any bytes can be read, and every mark that is found lies inside the file with its whole value.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const tarvex::LauncherImage image = tarvex::LauncherImage::Read(bytes, u"a.exe");
    for (const tarvex::BrandField& field : tarvex::kBrandFields) {
        const tarvex::LauncherImage::Mark* mark = image.Find(field.number);
        if (mark == nullptr) {
            continue;
        }
        const bool inside = mark->start < mark->valueStart && mark->valueStart <= size &&
                            mark->area.size() <= (size - mark->valueStart) / 2;
        if (!inside || image.StoredText(field.number).size() > mark->area.size()) {
            std::abort();
        }
    }
    return 0;
}

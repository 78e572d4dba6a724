#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/BitmapFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvex;
    if (size == 0) {
        return 0;
    }
    // Half of the inputs need not find out how a bitmap begins.
    const bool helped = data[0] % 2 == 0;
    const std::string file = (helped ? "BM" : "") + std::string(data + 1, data + size);
    const std::string_view view = file;
    const bool truncated = IsTruncatedBitmap(view);
    // What has all its pixels keeps them when more follows, what lacks some does so when it is cut.
    if (!truncated && view.starts_with("BM") && IsTruncatedBitmap(file + file)) {
        std::abort();
    }
    const std::string_view cut = view.substr(0, file.size() - file.size() * data[0] / 256);
    if (truncated && cut.starts_with("BM") && !IsTruncatedBitmap(cut)) {
        std::abort();
    }
    return 0;
}

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "configurator/program/IconFile.h"

/// Any bytes can be read, and the images that are taken from them make a file that says the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const tarvex::ReadIcon icon = tarvex::ReadIconFile(bytes);
    if (!icon.problem.empty()) {
        return 0;
    }
    std::vector<std::u16string> leftOut;
    const tarvex::IconImages chosen = tarvex::ChooseImages(icon.images, 32768, 12, leftOut);
    if (chosen.size() + leftOut.size() != icon.images.size()) {
        std::abort();
    }
    const tarvex::ReadIcon again = tarvex::ReadIconFile(tarvex::WriteIconFile(icon.images));
    if (again.images != icon.images || !again.leftOut.empty()) {
        std::abort();
    }
    return 0;
}

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "simulation/pc/RegFile.h"
#include "text/TextCodec1252.h"

/// Any bytes after the header of either kind give keys or one problem with its line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const tarvex::TextCodec1252 codec;
    for (const std::string_view header :
         {"", "REGEDIT4\n", "Windows Registry Editor Version 5.00\n"}) {
        const tarvex::ParsedRegFile parsed =
            tarvex::ParseRegFile(std::string(header).append(bytes), u"a.reg", codec);
        if (parsed.problems.size() > 1 ||
            (!parsed.problems.empty() && parsed.problems[0].line <= 0)) {
            std::abort();
        }
    }
    return 0;
}

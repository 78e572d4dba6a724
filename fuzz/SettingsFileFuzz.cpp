#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "configurator/SettingsFile.h"
#include "text/TextCodec1252.h"

/// Any bytes give settings or problems, and settings without problems survive being written and
/// read again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const tarvex::TextCodec1252 codec;
    const tarvex::ParsedSettings first = tarvex::ParseSettings(bytes, u"a.ini", codec);
    if (!first.problems.empty()) {
        return 0;
    }
    const tarvex::ParsedSettings second =
        tarvex::ParseSettings(tarvex::WriteSettings(first.settings, u"a"), u"b.ini", codec);
    if (!second.problems.empty()) {
        std::abort();
    }
    for (const auto& [number, entry] : first.settings.Entries()) {
        if (second.settings.Value(number) != entry.value) {
            std::abort();
        }
    }
    return 0;
}

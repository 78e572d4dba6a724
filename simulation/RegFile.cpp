#include "simulation/RegFile.h"

namespace tarvex {

ParsedRegFile ParseRegFile(std::string_view bytes, std::u16string_view name,
                           const TextCodec& ansi) {
    static_cast<void>(bytes);
    static_cast<void>(name);
    static_cast<void>(ansi);
    return {};
}

}  // namespace tarvex

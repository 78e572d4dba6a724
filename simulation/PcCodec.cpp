#include "simulation/PcCodec.h"

#include "text/TextCodec1252.h"

namespace tarvex {

std::unique_ptr<TextCodec> MakePcCodec(std::int32_t codePage) {
    return codePage == 1252 ? std::make_unique<TextCodec1252>() : nullptr;
}

}  // namespace tarvex

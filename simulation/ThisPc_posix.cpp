#include "simulation/ThisPc.h"

namespace tarvex {

std::unique_ptr<ThisPc> OpenThisPc() {
    return nullptr;
}

}  // namespace tarvex

#pragma once

#include <cstdint>

namespace tarvex {

/// The program's numbered texts by their names. Number, name and text stand in Messages.inc, once for
/// the code and for the string table of the program.
enum class Message : std::int32_t {
#define TARVEX_MESSAGE(number, name, text) name = number,
#include "resources/Messages.inc"
#undef TARVEX_MESSAGE
};

}  // namespace tarvex

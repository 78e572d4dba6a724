# Warnings that every target of the project is compiled with; all of them are errors.
add_library(tarvex_warnings INTERFACE)
target_compile_options(tarvex_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wundef)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 warns of overlapping copies inside its own std::string operator+ when it optimises.
    target_compile_options(tarvex_warnings INTERFACE -Wno-restrict)
endif()

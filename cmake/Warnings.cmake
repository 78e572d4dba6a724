# Warnings that every target of the project is compiled with; all of them are errors.
add_library(tarvex_warnings INTERFACE)
target_compile_options(tarvex_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wundef)

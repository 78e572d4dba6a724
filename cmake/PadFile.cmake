# cmake -DFILE=program.exe -DMULTIPLE=32768 -P PadFile.cmake
# Appends blanks until the length is a multiple, so that no part of the program lies in a last partial
# block: the configuration program locates marks wrongly there.
file(SIZE "${FILE}" size)
math(EXPR missing "(${MULTIPLE} - ${size} % ${MULTIPLE}) % ${MULTIPLE}")
if(missing GREATER 0)
    string(REPEAT " " ${missing} padding)
    file(APPEND "${FILE}" "${padding}")
endif()
file(SIZE "${FILE}" padded)
math(EXPR rest "${padded} % ${MULTIPLE}")
if(NOT rest EQUAL 0)
    message(FATAL_ERROR "${FILE} has ${padded} bytes, not a multiple of ${MULTIPLE}")
endif()

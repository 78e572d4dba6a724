# tarvex.exe: the launcher as it is shipped, unbranded.
if(NOT WIN32)
    return()
endif()
add_executable(tarvex WIN32 app/mMain_win32.cpp app/LibraryErrors_win32.cpp branding/BrandImage.cpp
               resources/tarvex.rc)
target_link_libraries(tarvex PRIVATE tarvex_app tarvex_warnings)
target_link_options(tarvex PRIVATE -s -Wl,--tsaware)
find_package(Python3 REQUIRED COMPONENTS Interpreter)
file(GLOB resourceFiles CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/*)

# The room for a vendor's icon and version texts, cmake/fill_room.py says of what kind. Blanks, because
# CMake cannot write zeros.
set(roomFolder ${CMAKE_BINARY_DIR}/room)
set(roomFiles)
foreach(size pool:32768 image:8 group:174 room:44 version:4096)
    string(REPLACE ":" ";" size ${size})
    list(GET size 0 name)
    list(GET size 1 bytes)
    string(REPEAT " " ${bytes} blanks)
    file(GENERATE OUTPUT ${roomFolder}/${name}.bin CONTENT "${blanks}")
    list(APPEND roomFiles ${roomFolder}/${name}.bin)
endforeach()
set_source_files_properties(resources/tarvex.rc PROPERTIES OBJECT_DEPENDS "${resourceFiles};${roomFiles}"
    COMPILE_DEFINITIONS TARVEX_ROOM INCLUDE_DIRECTORIES ${roomFolder})
add_custom_command(OUTPUT ${roomFolder}/defaults.res
    COMMAND ${CMAKE_RC_COMPILER} -I ${CMAKE_SOURCE_DIR} -O res
            ${CMAKE_SOURCE_DIR}/resources/defaults.rc ${roomFolder}/defaults.res
    DEPENDS ${resourceFiles} VERBATIM)
target_sources(tarvex PRIVATE ${roomFolder}/defaults.res)

set_property(TARGET tarvex APPEND PROPERTY LINK_DEPENDS ${roomFolder}/defaults.res
             ${CMAKE_SOURCE_DIR}/cmake/fill_room.py ${CMAKE_SOURCE_DIR}/cmake/check_image.py
             ${CMAKE_SOURCE_DIR}/cmake/check_program.py ${CMAKE_SOURCE_DIR}/cmake/check_room.py)
# The limit holds for what is shipped: small enough to be sent by mail and started from a network share.
if(TARVEX_WHOLE_PROGRAM)
    set(TARVEX_SIZE_LIMIT 294912)
else()
    set(TARVEX_SIZE_LIMIT 524288)
    set_target_properties(tarvex PROPERTIES EXCLUDE_FROM_ALL ON)
endif()
add_custom_command(TARGET tarvex POST_BUILD
    COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/cmake/fill_room.py $<TARGET_FILE:tarvex>
            ${roomFolder}/defaults.res
    COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/cmake/check_image.py $<TARGET_FILE:tarvex>
            ${TARVEX_SIZE_LIMIT}
    VERBATIM)

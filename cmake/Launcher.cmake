# tarvex.exe: the launcher as it is shipped, unbranded.
if(NOT WIN32)
    return()
endif()
add_executable(tarvex WIN32 app/mMain_win32.cpp app/LibraryErrors_win32.cpp branding/BrandImage.cpp
               resources/tarvex.rc)
target_link_libraries(tarvex PRIVATE tarvex_app tarvex_warnings)
target_link_options(tarvex PRIVATE -s -Wl,--tsaware)
set_property(TARGET tarvex APPEND PROPERTY LINK_DEPENDS ${CMAKE_SOURCE_DIR}/cmake/PadFile.cmake
             ${CMAKE_SOURCE_DIR}/cmake/check_image.py)
# The limit holds for what is shipped: small enough to be sent by mail and started from a network share.
if(TARVEX_WHOLE_PROGRAM)
    set(TARVEX_SIZE_LIMIT 262144)
else()
    set(TARVEX_SIZE_LIMIT 524288)
    set_target_properties(tarvex PROPERTIES EXCLUDE_FROM_ALL ON)
endif()
find_package(Python3 REQUIRED COMPONENTS Interpreter)
file(GLOB resourceFiles CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/*)
set_source_files_properties(resources/tarvex.rc PROPERTIES OBJECT_DEPENDS "${resourceFiles}")
add_custom_command(TARGET tarvex POST_BUILD
    COMMAND ${CMAKE_COMMAND} -DFILE=$<TARGET_FILE:tarvex> -DMULTIPLE=32768
            -P ${CMAKE_SOURCE_DIR}/cmake/PadFile.cmake
    COMMAND Python3::Interpreter ${CMAKE_SOURCE_DIR}/cmake/check_image.py $<TARGET_FILE:tarvex>
            ${TARVEX_SIZE_LIMIT}
    VERBATIM)

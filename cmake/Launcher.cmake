# tarvex.exe: the launcher as it is shipped, unbranded.
if(NOT WIN32 OR NOT EXISTS ${CMAKE_SOURCE_DIR}/app/mMain_win32.cpp)
    return()
endif()
add_executable(tarvex WIN32 app/mMain_win32.cpp branding/BrandImage.cpp resources/tarvex.rc)
target_link_libraries(tarvex PRIVATE tarvex_app tarvex_warnings)
target_link_options(tarvex PRIVATE -s -Wl,--tsaware)
set_property(TARGET tarvex APPEND PROPERTY LINK_DEPENDS ${CMAKE_SOURCE_DIR}/cmake/PadFile.cmake)
file(GLOB resourceFiles CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/resources/*)
set_source_files_properties(resources/tarvex.rc PROPERTIES OBJECT_DEPENDS "${resourceFiles}")
add_custom_command(TARGET tarvex POST_BUILD
    COMMAND ${CMAKE_COMMAND} -DFILE=$<TARGET_FILE:tarvex> -DMULTIPLE=32768
            -P ${CMAKE_SOURCE_DIR}/cmake/PadFile.cmake
    VERBATIM)

# tarvexcf: the vendor's tool. On Windows tarvexcf.com is its command line and tarvexcf.exe its window: at a
# prompt "tarvexcf" finds the .com first.
if(NOT WIN32)
    add_executable(tarvexcf commands/main_posix.cpp)
    target_link_libraries(tarvexcf PRIVATE tarvex_commands tarvex_warnings)
    return()
endif()
add_executable(tarvexcf commands/main_win32.cpp)
set_target_properties(tarvexcf PROPERTIES SUFFIX .com)
target_link_options(tarvexcf PRIVATE -s)
target_link_libraries(tarvexcf PRIVATE tarvex_commands tarvex_warnings)

add_executable(tarvexcf_window WIN32 window/main_win32.cpp resources/tarvexcf.rc)
set_target_properties(tarvexcf_window PROPERTIES OUTPUT_NAME tarvexcf)
set_source_files_properties(resources/tarvexcf.rc PROPERTIES OBJECT_DEPENDS "${resourceFiles}")
target_link_options(tarvexcf_window PRIVATE -s -Wl,--tsaware)
target_link_libraries(tarvexcf_window PRIVATE tarvex_window tarvex_warnings)

find_package(Python3 REQUIRED COMPONENTS Interpreter)
foreach(program tarvexcf:console tarvexcf_window:window)
    string(REPLACE ":" ";" program ${program})
    list(GET program 0 target)
    list(GET program 1 kind)
    set(script ${CMAKE_SOURCE_DIR}/cmake/check_program.py)
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
    add_custom_command(TARGET ${target} POST_BUILD
        COMMAND Python3::Interpreter ${script} $<TARGET_FILE:${target}> ${kind} VERBATIM)
endforeach()
if(TARVEX_WHOLE_PROGRAM)
    # The window has two threads, and what it shares with the launcher is compiled there for one.
    set_target_properties(tarvexcf tarvexcf_window PROPERTIES EXCLUDE_FROM_ALL ON)
endif()

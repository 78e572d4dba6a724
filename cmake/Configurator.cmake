# tarvexcf: the vendor's tool; on Windows tarvexcf.com is its command line.
if(WIN32)
    add_executable(tarvexcf commands/main_win32.cpp)
    set_target_properties(tarvexcf PROPERTIES SUFFIX .com)
    target_link_options(tarvexcf PRIVATE -s)
else()
    add_executable(tarvexcf commands/main_posix.cpp)
endif()
target_link_libraries(tarvexcf PRIVATE tarvex_commands tarvex_warnings)

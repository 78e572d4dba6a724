# tarvexcf: the vendor's tool; on Windows tarvexcf.com is its command line.
find_path(TARVEX_CLI11_INCLUDE CLI/CLI.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(cli11Include ${TARVEX_CLI11_INCLUDE})
if(CMAKE_CROSSCOMPILING)
    # The header-only library alone: the rest of the folder belongs to another system.
    set(cli11Include ${CMAKE_BINARY_DIR}/include)
    file(MAKE_DIRECTORY ${cli11Include})
    file(CREATE_LINK ${TARVEX_CLI11_INCLUDE}/CLI ${cli11Include}/CLI SYMBOLIC)
endif()
target_include_directories(tarvex_commands SYSTEM PRIVATE ${cli11Include})

if(WIN32)
    add_executable(tarvexcf commands/main_win32.cpp)
    set_target_properties(tarvexcf PROPERTIES SUFFIX .com)
    target_link_options(tarvexcf PRIVATE -s)
else()
    add_executable(tarvexcf commands/main_posix.cpp)
endif()
target_link_libraries(tarvexcf PRIVATE tarvex_commands tarvex_warnings)

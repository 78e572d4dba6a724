# tarvex_sources(VARIABLE FOLDER [EXCEPT FILE...])
# The C++ files of a folder and its parts that this system compiles: files named *_win32.cpp only for
# Windows, *_posix.cpp only elsewhere.
function(tarvex_sources variable folder)
    cmake_parse_arguments(arg "" "" "EXCEPT" ${ARGN})
    file(GLOB files CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
    if(NOT folder STREQUAL platform)  # whose parts are systems
        file(GLOB more CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*/*.cpp)
        list(APPEND files ${more})
    endif()
    if(WIN32)
        list(FILTER files EXCLUDE REGEX "_posix\\.cpp$")
    else()
        list(FILTER files EXCLUDE REGEX "_win32\\.cpp$")
    endif()
    foreach(except IN LISTS arg_EXCEPT)
        list(FILTER files EXCLUDE REGEX "/${except}$")
    endforeach()
    set(${variable} ${files} PARENT_SCOPE)
endfunction()

# tarvex_folder(FOLDER FLOOR n [DEPENDS FOLDER...] [EXCEPT FILE...])
# One library tarvex_FOLDER from one source folder; DEPENDS names folders on lower floors.
function(tarvex_folder folder)
    cmake_parse_arguments(arg "" "FLOOR" "DEPENDS;EXCEPT" ${ARGN})
    tarvex_sources(files ${folder} EXCEPT ${arg_EXCEPT})
    if(folder STREQUAL platform)
        if(WIN32)
            file(GLOB more CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/win32/*.cpp)
        else()
            file(GLOB more CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/platform/posix/*.cpp)
        endif()
        list(APPEND files ${more})
    endif()
    add_library(tarvex_${folder} STATIC ${files})
    set_target_properties(tarvex_${folder} PROPERTIES LINKER_LANGUAGE CXX TARVEX_FLOOR ${arg_FLOOR})
    target_link_libraries(tarvex_${folder} PUBLIC tarvex_options PRIVATE tarvex_warnings)
    foreach(depend IN LISTS arg_DEPENDS)
        get_target_property(floor tarvex_${depend} TARVEX_FLOOR)
        if(NOT floor LESS arg_FLOOR)
            message(FATAL_ERROR "${folder} (floor ${arg_FLOOR}) must not link ${depend} (floor ${floor})")
        endif()
        target_link_libraries(tarvex_${folder} PUBLIC tarvex_${depend})
    endforeach()
    set_property(GLOBAL APPEND PROPERTY TARVEX_FLOORS ${folder}:${arg_FLOOR})
endfunction()

# Part of every build: the includes keep to the floors that the folders were declared with.
function(tarvex_check_floors)
    get_property(floors GLOBAL PROPERTY TARVEX_FLOORS)
    set(files)
    foreach(floor IN LISTS floors)
        string(REGEX REPLACE ":.*" "" folder ${floor})
        file(GLOB_RECURSE more CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.h
             ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
        list(APPEND files ${more})
    endforeach()
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    set(script ${CMAKE_SOURCE_DIR}/cmake/check_floors.py)
    # Nothing but macros for the resource compiler and the program: it stands at the ground.
    add_custom_command(OUTPUT floors.checked
        COMMAND Python3::Interpreter ${script} ${CMAKE_SOURCE_DIR} resources:1 ${floors}
        COMMAND ${CMAKE_COMMAND} -E touch floors.checked
        DEPENDS ${script} ${files} VERBATIM)
    add_custom_target(tarvex_floors ALL DEPENDS floors.checked)
    # Before anything else is compiled, whichever target is asked for.
    add_dependencies(tarvex_options tarvex_floors)
endfunction()

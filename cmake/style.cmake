# The target "style": clang-format on every file, clang-tidy on every source of the libraries. The target
# "style_command": clang-tidy on the sources of the command, whose headers of JSON and of the command line
# take it many minutes, so that ./test leaves it out. A file is looked at again only when it, a header or the
# configuration changed.
find_program(CLANG_FORMAT NAMES clang-format-14 clang-format)
find_program(CLANG_TIDY NAMES clang-tidy-14 clang-tidy)
if(NOT CLANG_FORMAT OR NOT CLANG_TIDY)
    return()
endif()

file(GLOB_RECURSE headers CONFIGURE_DEPENDS src/*.h suite/*.h command/*.h)
file(GLOB_RECURSE sources CONFIGURE_DEPENDS src/*.cpp suite/*.cpp command/*.cpp)
file(GLOB_RECURSE others CONFIGURE_DEPENDS tests/*.h tests/*.cpp tools/*.cpp examples/*.c examples/*.cpp
    benchmarks/*.h benchmarks/*.cpp fuzz/*.cpp)

set(stamps ${PROJECT_BINARY_DIR}/style)
file(MAKE_DIRECTORY ${stamps})
add_custom_command(
    OUTPUT ${stamps}/format
    COMMAND ${CLANG_FORMAT} --dry-run --Werror ${headers} ${sources} ${others}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamps}/format
    DEPENDS ${headers} ${sources} ${others} .clang-format
    COMMENT "Checking the format of all files" VERBATIM)
set(checked ${stamps}/format)
foreach(source ${sources})
    string(MAKE_C_IDENTIFIER ${source} name)
    add_custom_command(
        OUTPUT ${stamps}/${name}
        COMMAND ${CLANG_TIDY} --quiet -p ${PROJECT_BINARY_DIR}
            --extra-arg=-Wno-ignored-optimization-argument ${source}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamps}/${name}
        DEPENDS ${source} ${headers} .clang-tidy
        COMMENT "Checking ${source}" VERBATIM)
    if(source MATCHES "^${PROJECT_SOURCE_DIR}/command/")
        list(APPEND checked_command ${stamps}/${name})
    else()
        list(APPEND checked ${stamps}/${name})
    endif()
endforeach()
add_custom_target(style DEPENDS ${checked})
add_custom_target(style_command DEPENDS ${checked_command})

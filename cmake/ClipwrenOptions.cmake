# Compiler settings that every target of ours shares, in one interface target.
option(CLIPWREN_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)
set(CLIPWREN_SANITIZER "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")
option(CLIPWREN_FUZZING "Build the fuzzers instead of the tests; needs clang" OFF)

add_library(clipwren_options INTERFACE)
target_include_directories(clipwren_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_compile_definitions(clipwren_options INTERFACE
    CLIPWREN_VERSION="${PROJECT_VERSION}"
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_FOREACH
    QT_NO_KEYWORDS)
target_compile_options(clipwren_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor
    -Woverloaded-virtual -Wold-style-cast -Wextra-semi -Wimplicit-fallthrough)
if(CLIPWREN_WARNINGS_AS_ERRORS)
    target_compile_options(clipwren_options INTERFACE -Werror)
endif()
if(CLIPWREN_SANITIZER)
    target_compile_options(clipwren_options INTERFACE
        -fsanitize=${CLIPWREN_SANITIZER} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(clipwren_options INTERFACE -fsanitize=${CLIPWREN_SANITIZER})
endif()

if(CLIPWREN_FUZZING)
    target_compile_options(clipwren_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
find_program(MOLD_PROGRAM mold)
if(MOLD_PROGRAM AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_link_options(clipwren_options INTERFACE -fuse-ld=mold)
endif()

# Build switches, and the compile settings that every target of this project shares.

option(CORVANE_BUILD_APPS "Build the reference programs" ${PROJECT_IS_TOP_LEVEL})
option(CORVANE_BUILD_QT "Build the layer on Qt, and the programs that show windows" OFF)
option(CORVANE_BUILD_TESTS "Build the tests" OFF)
option(CORVANE_BUILD_BENCH "Build the benchmarks" OFF)
option(CORVANE_BUILD_FUZZ "Build the fuzz targets (clang only)" OFF)
option(CORVANE_PRECOMPILED_HEADERS
    "Read the standard headers once; without it every source shows that it includes what it uses" OFF)
option(CORVANE_WARNINGS_AS_ERRORS "Treat warnings as errors" OFF)
set(CORVANE_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined")

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "" FORCE)
endif()

include(GNUInstallDirs)

# Compile and link settings used inside this project only; never exported.
add_library(corvane_settings INTERFACE)
target_compile_options(corvane_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    # gcc 12 takes ordinary concatenation of strings for overlapping copies.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${CORVANE_WARNINGS_AS_ERRORS}>:-Werror>)
if(CORVANE_SANITIZE)
    # Here and not on the interface target, so that every object of the tree agrees.
    add_compile_options(-fsanitize=${CORVANE_SANITIZE} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${CORVANE_SANITIZE})
endif()

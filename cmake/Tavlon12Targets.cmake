# Compiler settings shared by all targets, and the procedures that make the libraries and programs.

include(CheckIPOSupported)

# Functions linked across files cost nothing at run time, so small procedures may stay in their own source.
# The objects are "fat": the window's tests link them as they are, instead of optimising the engine once per test.
set(TAVLON12_USE_LTO OFF)
if(TAVLON12_LTO AND CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    check_ipo_supported(RESULT TAVLON12_USE_LTO LANGUAGES CXX)
endif()

# Any 64-bit PC since 2009 has these instructions; the search counts bits at every node.
include(CheckCXXCompilerFlag)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    check_cxx_compiler_flag(-march=x86-64-v2 TAVLON12_HAS_X86_64_V2)
    if(TAVLON12_HAS_X86_64_V2)
        add_compile_options(-march=x86-64-v2)
    endif()
endif()

if(TAVLON12_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(TAVLON12_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()
if(TAVLON12_SANITIZE OR CMAKE_BUILD_TYPE STREQUAL "Debug")
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

function(tavlon12_compile_settings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
        $<$<BOOL:${TAVLON12_WERROR}>:-Werror>)
    # GCC 12 sees an overlap in every "text" + std::string (GCC bug 105651).
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        target_compile_options(${target} PRIVATE -Wno-restrict)
    endif()
endfunction()

# tavlon12_library(name [LTO] SOURCES file... DEPENDS library...)
# A library without a source becomes an interface library, so that a folder of headers is linked like any other.
function(tavlon12_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "LTO" "" "SOURCES;DEPENDS")
    if(arg_SOURCES)
        add_library(${name} STATIC ${arg_SOURCES})
        target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
        target_link_libraries(${name} PUBLIC ${arg_DEPENDS})
        tavlon12_compile_settings(${name})
        if(arg_LTO AND TAVLON12_USE_LTO)
            set_target_properties(${name} PROPERTIES INTERPROCEDURAL_OPTIMIZATION ON)
            target_compile_options(${name} PRIVATE -ffat-lto-objects)
        endif()
    else()
        add_library(${name} INTERFACE)
        target_include_directories(${name} INTERFACE "${CMAKE_SOURCE_DIR}/src")
        target_link_libraries(${name} INTERFACE ${arg_DEPENDS})
    endif()
endfunction()

# Link with optimisation across files (programs, core tests, benchmarks) ...
function(tavlon12_link_optimised target)
    if(TAVLON12_USE_LTO)
        set_target_properties(${target} PROPERTIES INTERPROCEDURAL_OPTIMIZATION ON)
    endif()
endfunction()

# ... or take the objects as they are (the window's tests: many executables, none of them about speed).
function(tavlon12_link_plain target)
    if(TAVLON12_USE_LTO)
        target_link_options(${target} PRIVATE -fno-lto)
    endif()
endfunction()

# Tests are compiled more often than they run: what they test is optimised, they need not be.
function(tavlon12_quick_to_compile target)
    if(CMAKE_BUILD_TYPE STREQUAL "Release")
        target_compile_options(${target} PRIVATE -O1)
    endif()
endfunction()

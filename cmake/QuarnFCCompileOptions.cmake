# SPDX-License-Identifier: MIT
# Options every translation unit of this project is compiled with, and those a host needs.

include(CheckIPOSupported)

if(QUARNFC_LTO)
  check_ipo_supported(RESULT QUARNFC_IPO_SUPPORTED LANGUAGES CXX)
endif()

# Off where the compiler is somebody else's choice: a warning that a newer one has must not stop them.
option(QUARNFC_WERROR "Treat warnings as errors" OFF)

# quarnfc_compile_options(<target>): C++20, warnings, hidden symbols.
function(quarnfc_compile_options target)
  quarnfc_link_runtime(${target})
  target_compile_features(${target} PRIVATE cxx_std_20)
  set_target_properties(
    ${target}
    PROPERTIES CXX_EXTENSIONS OFF
               CXX_VISIBILITY_PRESET hidden
               C_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON)
  if(MSVC)
    # Plain functions are extern "C" and may throw std::bad_alloc: /EHsc alone would deny it.
    target_compile_options(${target} PRIVATE /W4 /utf-8 /permissive- /EHsc- /guard:cf
                                             $<$<BOOL:${QUARNFC_WERROR}>:/WX>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
      # As below.
      target_compile_options(
        ${target}
        PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-delete-non-abstract-non-virtual-dtor>)
    endif()
  else()
    target_compile_options(
      ${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow
                        $<$<BOOL:${QUARNFC_WERROR}>:-Werror>
                        # Sessions and their like have no virtual destructor, by their stated layout.
                        $<$<COMPILE_LANGUAGE:CXX>:-Wno-delete-non-virtual-dtor>)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
      # GCC 12 takes "text" + std::string for a copy onto itself at -O3 (its fault 105651).
      target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
    endif()
    if(NOT WIN32)
      # The library's wide text is UTF-16 on every target.
      target_compile_options(${target} PRIVATE -fshort-wchar)
    endif()
  endif()
endfunction()

# quarnfc_link_runtime(<target>): the run-time part of this build's own, where there is one.
function(quarnfc_link_runtime target)
  if(TARGET quarnfc_runtime AND NOT target STREQUAL quarnfc_runtime)
    target_link_libraries(${target} PRIVATE quarnfc_runtime)
  endif()
endfunction()

# quarnfc_library_options(<target>): what the sources of the library and of qn are checked for beyond
# that.
function(quarnfc_library_options target)
  quarnfc_compile_options(${target})
  if(NOT MSVC)
    target_compile_options(${target} PRIVATE -Wnon-virtual-dtor -Wconversion -Wsign-conversion)
  endif()
endfunction()

# With precompiled headers GCC 12 tells of what it sees in the standard library at -O3.
option(QUARNFC_PRECOMPILE "Read once what most sources of the library and of qn include" OFF)

# quarnfc_precompile(<target>): does that for a target. Every source still names what it uses: most
# builds do without this.
function(quarnfc_precompile target)
  if(NOT QUARNFC_PRECOMPILE)
    return()
  endif()
  target_precompile_headers(${target} PRIVATE <algorithm> <charconv> <memory> <optional> <string>
                            <string_view> <vector>)
endfunction()

# quarnfc_host_options(<target>): what a host inherits by linking the library.
function(quarnfc_host_options target)
  target_compile_features(${target} INTERFACE cxx_std_17)
  target_include_directories(
    ${target} INTERFACE "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>"
                        "$<INSTALL_INTERFACE:include>")
  if(NOT WIN32)
    target_compile_options(${target} INTERFACE -fshort-wchar)
  endif()
endfunction()

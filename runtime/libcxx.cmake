# SPDX-License-Identifier: MIT
# libc++ for this target, from Debian's sources of the version whose headers are installed.
# scripts/fetch-libcxx.sh puts them there.
set(QUARNFC_LIBCXX_SOURCE_DIR "${PROJECT_SOURCE_DIR}/build/libcxx/src"
    CACHE PATH "Sources of libc++ (the folder src)")
if(NOT EXISTS "${QUARNFC_LIBCXX_SOURCE_DIR}/algorithm.cpp")
  message(FATAL_ERROR "The sources of libc++ are not in ${QUARNFC_LIBCXX_SOURCE_DIR}; "
                      "scripts/fetch-libcxx.sh puts them there.")
endif()

set(sources
    algorithm
    any
    atomic
    barrier
    bind
    call_once
    charconv
    chrono
    condition_variable
    condition_variable_destructor
    error_category
    exception
    expected
    filesystem/directory_entry
    filesystem/directory_iterator
    filesystem/filesystem_clock
    filesystem/filesystem_error
    filesystem/int128_builtins
    filesystem/operations
    filesystem/path
    fstream
    functional
    future
    hash
    ios
    ios.instantiations
    iostream
    locale
    memory
    memory_resource
    mutex
    mutex_destructor
    new_helpers
    optional
    ostream
    print
    random
    regex
    ryu/d2fixed
    ryu/d2s
    ryu/f2s
    shared_mutex
    stdexcept
    string
    support/win32/locale_win32
    support/win32/support
    support/win32/thread_win32
    system_error
    thread
    valarray
    variant
    vector
    verbose_abort)
list(TRANSFORM sources PREPEND "${QUARNFC_LIBCXX_SOURCE_DIR}/")
list(TRANSFORM sources APPEND ".cpp")

add_library(quarnfc_libcxx STATIC ${sources})
target_include_directories(quarnfc_libcxx PRIVATE "${QUARNFC_LIBCXX_SOURCE_DIR}")
target_compile_definitions(
  quarnfc_libcxx PRIVATE _LIBCPP_BUILDING_LIBRARY LIBCXX_BUILDING_LIBCXXABI=0 _CRT_STDIO_ISO_WIDE_SPECIFIERS
                         _FILE_OFFSET_BITS=64
                         _LIBCPP_REMOVE_TRANSITIVE_INCLUDES)
target_compile_options(quarnfc_libcxx PRIVATE /std:c++latest /EHsc -w -Wno-error)
if(QUARNFC_SPLIT_DEBUG)
  cmake_path(RELATIVE_PATH QUARNFC_LIBCXX_SOURCE_DIR BASE_DIRECTORY "${CMAKE_BINARY_DIR}"
             OUTPUT_VARIABLE relative)
  foreach(path IN ITEMS "${QUARNFC_LIBCXX_SOURCE_DIR}" "${relative}")
    target_compile_options(quarnfc_libcxx PRIVATE
                           "/clang:-ffile-prefix-map=${path}=/usr/src/libcxx/src")
  endforeach()
endif()

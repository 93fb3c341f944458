# SPDX-License-Identifier: MIT
# A reader of a public header finds its source without searching: a source has the header's name, or
# the header names its sources, and these exist.
# Usage: cmake -D ROOT=<project> -P header_sources.cmake
cmake_policy(VERSION 3.25)

# check_headers(<folder> <source folder>...): the headers of a folder of include/quarnfc against the
# sources in the folders.
function(check_headers folder)
  set(stems)
  foreach(source_folder IN LISTS ARGN)
    file(GLOB_RECURSE sources "${ROOT}/${source_folder}/*.cpp")
    foreach(source IN LISTS sources)
      get_filename_component(stem "${source}" NAME_WE)
      list(APPEND stems "${stem}")
    endforeach()
  endforeach()
  file(GLOB headers "${ROOT}/include/quarnfc/${folder}*.h")
  foreach(header IN LISTS headers)
    get_filename_component(name "${header}" NAME_WE)
    file(READ "${header}" text)
    string(REGEX MATCHALL "[a-z0-9_]+[*]?[.]cpp" named "${text}")
    if(NOT named AND NOT name IN_LIST stems AND NOT name IN_LIST without_source)
      message(SEND_ERROR "${folder}${name}.h does not say where it is implemented")
    endif()
    foreach(source IN LISTS named)
      string(REGEX REPLACE "[*]?[.]cpp$" "" stem "${source}")
      if(NOT stem IN_LIST stems)
        message(SEND_ERROR "${folder}${name}.h names ${source}, which does not exist")
      endif()
    endforeach()
  endforeach()
endfunction()

# Macros, types, inline functions and the umbrella: nothing to implement, or by the platform.
set(without_source export overloads percent_encoding platform_types quarnfc)
check_headers("" core json geo net codec io platform)
# Those in ext/ are whole by themselves.
check_headers(c/ c)

# SPDX-License-Identifier: MIT
# Every public header compiles alone, included twice, in C++17; all together, the last first, compile
# in C++20 after the platform's own headers. The umbrella header includes them all and also stands
# before those. Compiling is the test: the objects are part of the build and are linked into nothing.

set(include_dir "${PROJECT_SOURCE_DIR}/include")
# Listed by pattern: a header that somebody adds must not escape the check.
file(GLOB headers RELATIVE "${include_dir}" CONFIGURE_DEPENDS "${include_dir}/quarnfc/*.h")
# The header-only additions stand beside the umbrella header.
file(GLOB additions RELATIVE "${include_dir}" CONFIGURE_DEPENDS "${include_dir}/quarnfc/ext/*.h")
set(generated "${CMAKE_CURRENT_BINARY_DIR}/headers")

# header_unit(<list> <name> <line>...): a generated source of the lines, added to the list.
function(header_unit list name)
  string(REPLACE ";" "\n" text "${ARGN}")
  file(CONFIGURE OUTPUT "${generated}/${name}" CONTENT "${text}\n" @ONLY)
  set(${list} "${${list}}" "${generated}/${name}" PARENT_SCOPE)
endfunction()

if(WIN32)
  set(platform_headers "#include <windows.h>" "#include <wininet.h>")
endif()
set(umbrella "#include <quarnfc/quarnfc.h>")
foreach(header IN LISTS headers)
  get_filename_component(name "${header}" NAME_WE)
  set(include "#include <${header}>")
  header_unit(units17 "${name}_17.cpp" "${include}" "${include}")
  list(PREPEND all_headers "${include}")
  string(TOUPPER "${name}" guard)
  list(APPEND umbrella "#if !defined(QUARNFC_${guard}_H_)" "#error \"${header} is missing\"" "#endif")
endforeach()
foreach(header IN LISTS additions)
  get_filename_component(name "${header}" NAME_WE)
  set(include "#include <${header}>")
  header_unit(units17 "ext_${name}_17.cpp" "${include}" "${include}")
  list(PREPEND all_headers "${include}")
endforeach()
header_unit(units20 all_20.cpp ${platform_headers} ${all_headers})
header_unit(units17 umbrella.cpp ${umbrella} ${platform_headers})
list(APPEND units17 "${CMAKE_CURRENT_SOURCE_DIR}/careful_host.cpp")
foreach(name plain version)
  header_unit(units_c ${name}.c "#include <quarnfc/${name}.h>" "#include <quarnfc/${name}.h>")
endforeach()

foreach(standard 17 20)
  add_library(quarnfc_headers_cxx${standard} OBJECT ${units${standard}})
  set_target_properties(quarnfc_headers_cxx${standard}
                        PROPERTIES CXX_STANDARD ${standard} CXX_STANDARD_REQUIRED ON
                                   CXX_EXTENSIONS OFF)
endforeach()
add_library(quarnfc_headers_c OBJECT ${units_c})
set_target_properties(quarnfc_headers_c PROPERTIES C_STANDARD 99 C_EXTENSIONS OFF)
foreach(target quarnfc_headers_cxx17 quarnfc_headers_cxx20 quarnfc_headers_c)
  target_link_libraries(${target} PRIVATE QuarnFC::QuarnFC)
  if(MSVC)
    target_compile_options(
      ${target} PRIVATE /Od /W4 /utf-8 /permissive- $<$<BOOL:${QUARNFC_WERROR}>:/WX>
                        # As below.
                        $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wno-delete-non-abstract-non-virtual-dtor>)
  else()
    target_compile_options(
      ${target} PRIVATE -O0 -Wall -Wextra -Wpedantic -Wshadow $<$<BOOL:${QUARNFC_WERROR}>:-Werror>
                        $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor -Wdelete-non-virtual-dtor>
                        # clang shows this one inside the standard library's owners.
                        $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wno-delete-non-abstract-non-virtual-dtor>)
  endif()
endforeach()
if(QUARNFC_MSVC_ABI)
  # The platform's headers are the other compiler's, which has done it with them.
  set_target_properties(quarnfc_headers_cxx20 PROPERTIES EXCLUDE_FROM_ALL ON)
endif()

# Linking the library switches off no warning in a host's own code: one that deserves them gets them.
if(NOT MSVC)
  add_library(quarnfc_careless_host OBJECT EXCLUDE_FROM_ALL careless_host.cpp)
  target_link_libraries(quarnfc_careless_host PRIVATE QuarnFC::QuarnFC)
  target_compile_options(quarnfc_careless_host PRIVATE -Wnon-virtual-dtor -Wdelete-non-virtual-dtor
                                                       -Werror)
  quarnfc_check(hosts_keep_their_warnings ${CMAKE_COMMAND} --build "${PROJECT_BINARY_DIR}" --target
                quarnfc_careless_host)
  set_tests_properties(
    hosts_keep_their_warnings
    PROPERTIES PASS_REGULAR_EXPRESSION "=non-virtual-dtor.*=delete-non-virtual-dtor")
endif()

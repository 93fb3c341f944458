# SPDX-License-Identifier: MIT
# The version stands in CMakeLists.txt, for the build, and in a header that needs no build, for
# hosts; they must say the same. Changing it: both, and NEWS.md.
file(STRINGS "${PROJECT_SOURCE_DIR}/include/quarnfc/version.h" lines REGEX "^#define QUARNFC_VERSION_")
foreach(part MAJOR MINOR PATCH TEXT)
  string(REGEX MATCH "QUARNFC_VERSION_${part} \"?([0-9.]+)" found "${lines}")
  set(header_${part} "${CMAKE_MATCH_1}")
endforeach()
set(header_version "${header_MAJOR}.${header_MINOR}.${header_PATCH}")
if(NOT header_version STREQUAL PROJECT_VERSION OR NOT header_TEXT STREQUAL PROJECT_VERSION)
  message(FATAL_ERROR "include/quarnfc/version.h says ${header_version} and \"${header_TEXT}\", "
                      "CMakeLists.txt says ${PROJECT_VERSION}")
endif()
# A change of the header is checked at once.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
                                       "${PROJECT_SOURCE_DIR}/include/quarnfc/version.h")

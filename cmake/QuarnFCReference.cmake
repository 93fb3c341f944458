# SPDX-License-Identifier: MIT
# The target `reference`: the reference of the public headers as HTML, by Doxygen, which must not
# have a word of warning. With QUARNFC_BUILD_REFERENCE it is built and installed with the rest.
find_program(QUARNFC_DOXYGEN doxygen)
if(NOT QUARNFC_DOXYGEN)
  if(QUARNFC_BUILD_REFERENCE)
    message(FATAL_ERROR "QUARNFC_BUILD_REFERENCE needs doxygen")
  endif()
  return()
endif()

configure_file("${PROJECT_SOURCE_DIR}/docs/Doxyfile.in" "${PROJECT_BINARY_DIR}/Doxyfile" @ONLY)
file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/quarnfc/*.h" "${PROJECT_SOURCE_DIR}/include/quarnfc/*/*.h")
add_custom_command(
  OUTPUT "${PROJECT_BINARY_DIR}/reference/html/index.html"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${PROJECT_BINARY_DIR}/reference"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${PROJECT_BINARY_DIR}/reference"
  COMMAND "${QUARNFC_DOXYGEN}" "${PROJECT_BINARY_DIR}/Doxyfile"
  DEPENDS ${headers} "${PROJECT_BINARY_DIR}/Doxyfile"
          "${PROJECT_SOURCE_DIR}/docs/doxygen-comments.awk"
          "${PROJECT_SOURCE_DIR}/docs/reference.dox"
  COMMENT "Writing the reference"
  VERBATIM)
set(all)
if(QUARNFC_BUILD_REFERENCE)
  set(all ALL)
endif()
add_custom_target(reference ${all} DEPENDS "${PROJECT_BINARY_DIR}/reference/html/index.html")

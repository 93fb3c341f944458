# SPDX-License-Identifier: MIT
# The examples in the public headers are compiled, and run where they need nothing from outside.

find_program(QUARNFC_AWK awk REQUIRED)
# Listed by pattern: a header that somebody adds must have an example.
file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/include/quarnfc/*.h"
     "${PROJECT_SOURCE_DIR}/include/quarnfc/c/*.h" "${PROJECT_SOURCE_DIR}/include/quarnfc/ext/*.h")

# These need a server, or leave something behind beside the library.
set(compiled_headers ${headers})
set(compiled_only
    c/http
    c/http_call
    crash_dump
    ext/http_call
    ext/http_transfer
    ext/outcome
    internet
    internet_api
    internet_exception
    internet_file)
if(NOT QUARNFC_HTTP)
  list(APPEND compiled_only ext/http_response url)
endif()
list(JOIN compiled_only "|" compiled_only)
list(FILTER compiled_headers INCLUDE REGEX "/quarnfc/(${compiled_only})\\.h$")
list(REMOVE_ITEM headers ${compiled_headers})

# header_examples(<source> <header>...): the examples of the headers as tests in a generated source.
function(header_examples source)
  set(script "${CMAKE_CURRENT_SOURCE_DIR}/extract_examples.awk")
  add_custom_command(
    OUTPUT "${source}"
    COMMAND "${QUARNFC_AWK}" -v "out=${source}" -f "${script}" ${ARGN}
    DEPENDS "${script}" ${ARGN}
    COMMENT "Extracting the examples of the public headers"
    VERBATIM)
endfunction()

set(run_source "${CMAKE_CURRENT_BINARY_DIR}/header_examples.cpp")
set(compiled_source "${CMAKE_CURRENT_BINARY_DIR}/compiled_header_examples.cpp")
header_examples("${run_source}" ${headers})
header_examples("${compiled_source}" ${compiled_headers})

# A target for each, so that the programs may be built from other folders.
add_library(quarnfc_header_examples OBJECT "${run_source}")
add_library(quarnfc_compiled_header_examples OBJECT "${compiled_source}")
foreach(target quarnfc_header_examples quarnfc_compiled_header_examples)
  quarnfc_test_options(${target})
  target_link_libraries(${target} PRIVATE QuarnFC::QuarnFC)
endforeach()
target_link_libraries(quarnfc_tests PRIVATE quarnfc_header_examples)

# SPDX-License-Identifier: MIT
# Writes the names of an import library into a module-definition file, for tools that make an import
# library of their own.
# Usage: cmake -D READOBJ=llvm-readobj -D LIBRARY=QuarnFC.lib -D DEF=QuarnFC.def -P QuarnFCWriteDef.cmake
execute_process(COMMAND "${READOBJ}" "${LIBRARY}" OUTPUT_VARIABLE members COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\nType: [a-z]+\nName type: [a-z]+\nExport name: [^\n]+" exports "${members}")
if(NOT exports)
  message(FATAL_ERROR "${LIBRARY} names no exports")
endif()
set(lines "LIBRARY QuarnFC.dll\nEXPORTS\n")
foreach(export IN LISTS exports)
  string(REGEX MATCH "Type: ([a-z]+).*Export name: (.+)" export "${export}")
  string(APPEND lines "    ${CMAKE_MATCH_2}")
  if(NOT CMAKE_MATCH_1 STREQUAL "code")
    string(APPEND lines " DATA")
  endif()
  string(APPEND lines "\n")
endforeach()
file(WRITE "${DEF}" "${lines}")

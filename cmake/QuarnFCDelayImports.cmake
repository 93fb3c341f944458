# SPDX-License-Identifier: MIT
# quarnfc_delay_imports(<target>): a host that only wants strings does not wait until the internet,
# shell, desktop and automation DLLs with all that they load are there: each is loaded at the first
# call of one of the functions listed here. (With a MinGW compiler. The linker of the build with the
# Microsoft C++ ABI would need a helper function that is part of Visual C++.)
#
# A function that is not listed brings its DLL back to the start; the tests look at the imports.
function(quarnfc_delay_imports target)
  quarnfc_delay_import(${target} ADVAPI32 DeregisterEventSource RegisterEventSourceA ReportEventA)
  quarnfc_delay_import(${target} OLEAUT32 SysAllocStringLen SysFreeString SysReAllocStringLen)
  quarnfc_delay_import(${target} SHLWAPI UrlUnescapeA)
  quarnfc_delay_import(${target} USER32 CharToOemA CharUpperBuffW OemToCharA)
  quarnfc_delay_import(
    ${target}
    WININET
    HttpAddRequestHeadersA
    HttpEndRequestA
    HttpOpenRequestA
    HttpQueryInfoA
    HttpSendRequestA
    HttpSendRequestExA
    InternetCanonicalizeUrlA
    InternetCloseHandle
    InternetConnectA
    InternetCrackUrlA
    InternetGetCookieA
    InternetGetLastResponseInfoA
    InternetOpenA
    InternetOpenUrlA
    InternetQueryDataAvailable
    InternetQueryOptionA
    InternetReadFile
    InternetSetCookieA
    InternetSetFilePointer
    InternetSetOptionExA
    InternetSetStatusCallback
    InternetWriteFile)
endfunction()

# A library that stands in front of the system's import library and is found first. Its path as the
# tool is told it becomes part of symbols, so it is without the build's folder.
function(quarnfc_delay_import target dll)
  set(folder "${PROJECT_BINARY_DIR}/delay")
  set(definition "${folder}/${dll}.def")
  set(library "${folder}/lib${dll}.a")
  list(JOIN ARGN "\n" names)
  file(CONFIGURE OUTPUT "${definition}" CONTENT "LIBRARY ${dll}.dll\nEXPORTS\n${names}\n")
  add_custom_command(
    OUTPUT "${library}"
    COMMAND "${CMAKE_DLLTOOL}" --input-def "${dll}.def" --output-delaylib "lib${dll}.a"
    DEPENDS "${definition}"
    WORKING_DIRECTORY "${folder}"
    VERBATIM)
  add_custom_target(quarnfc_delay_${dll} DEPENDS "${library}")
  add_dependencies(${target} quarnfc_delay_${dll})
  target_link_libraries(${target} PRIVATE "${library}")
endfunction()

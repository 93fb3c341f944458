# SPDX-License-Identifier: MIT
# A stand-in for Visual C++ for projects outside of the tree: the compiler of the preset
# windows-msvc-abi and, in the place of the libraries that come with Visual C++, those that a build of
# that preset has made. QUARNFC_RUNTIME_BUILD is its folder.
include("${CMAKE_CURRENT_LIST_DIR}/../../cmake/toolchain-msvc-abi.cmake")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUARNFC_RUNTIME_BUILD)
set(libraries "/libpath:${QUARNFC_RUNTIME_BUILD}/imports"
              "${QUARNFC_RUNTIME_BUILD}/runtime/quarnfc_runtime.lib"
              "${QUARNFC_RUNTIME_BUILD}/runtime/quarnfc_libcxx.lib")
foreach(name vcruntime140 ucrt_convert ucrt_math ucrt_string ucrt_time ucrt kernel32 user32 advapi32)
  list(APPEND libraries ${name}.lib)
endforeach()
list(JOIN libraries " " libraries)
set(CMAKE_C_STANDARD_LIBRARIES "${libraries}" CACHE STRING "" FORCE)
set(CMAKE_CXX_STANDARD_LIBRARIES "${libraries}" CACHE STRING "" FORCE)

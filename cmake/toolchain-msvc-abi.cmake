# SPDX-License-Identifier: MIT
# Cross compiler for Windows x64 with the Microsoft C++ ABI: clang-cl and lld-link with the headers
# of MinGW-w64 (the system's interface) and of libc++ (the standard library). What Visual C++ itself
# would bring along is in runtime/.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(QUARNFC_LLVM_DIR /usr/lib/llvm-19 CACHE PATH "Where clang, lld and the headers of libc++ are")
set(QUARNFC_MINGW_DIR /usr/x86_64-w64-mingw32 CACHE PATH "Headers and import libraries")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUARNFC_LLVM_DIR QUARNFC_MINGW_DIR)
set(QUARNFC_MSVC_ABI ON)

set(CMAKE_C_COMPILER "${QUARNFC_LLVM_DIR}/bin/clang-cl")
set(CMAKE_CXX_COMPILER "${QUARNFC_LLVM_DIR}/bin/clang-cl")
set(CMAKE_LINKER "${QUARNFC_LLVM_DIR}/bin/lld-link")
set(CMAKE_AR "${QUARNFC_LLVM_DIR}/bin/llvm-lib")
set(CMAKE_MT "${QUARNFC_LLVM_DIR}/bin/llvm-mt")
set(CMAKE_RC_COMPILER "${QUARNFC_LLVM_DIR}/bin/llvm-rc")
set(CMAKE_C_COMPILER_TARGET x86_64-pc-windows-msvc19.38.0)
set(CMAKE_CXX_COMPILER_TARGET x86_64-pc-windows-msvc19.38.0)

# Objects are kept for the next build where the compiler cache is installed. With this compiler it
# keeps none that use precompiled headers.
set(CMAKE_C_COMPILER_LAUNCHER "${CMAKE_CURRENT_LIST_DIR}/clang-cl.sh")
set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_CURRENT_LIST_DIR}/clang-cl.sh")
find_program(QUARNFC_CCACHE ccache)
if(QUARNFC_CCACHE)
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# Programs can be linked once runtime/ is built.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

# The headers of MinGW-w64 speak GNU's dialect, which this compiler knows. The tests for it hide what
# else the names would tell: code must ask for _MSC_VER first, or better not at all.
string(JOIN " " system_headers
       -nobuiltininc "-imsvc ${QUARNFC_LLVM_DIR}/lib/clang/19/include"
       "-imsvc ${QUARNFC_MINGW_DIR}/include"
       -D_HAS_EXCEPTIONS=1 -D_UCRT -D__MSVCRT_VERSION__=0x0E00 -D_WIN32_WINNT=0x0601
       -D__GNUC__=4 -D__GNUC_MINOR__=2 -D__GNUC_PATCHLEVEL__=1 -D__MINGW32__ -D__MINGW64__)
string(JOIN " " standard_library
       "-imsvc ${CMAKE_CURRENT_LIST_DIR}/../runtime/include"
       "-imsvc ${QUARNFC_LLVM_DIR}/include/c++/v1"
       -D_LIBCPP_DISABLE_EXTERN_TEMPLATE -D_LIBCPP_DISABLE_VISIBILITY_ANNOTATIONS)
set(CMAKE_C_FLAGS_INIT "/Zl ${system_headers}")
set(CMAKE_CXX_FLAGS_INIT "/Zl ${standard_library} ${system_headers}")
set(CMAKE_RC_FLAGS_INIT "-I ${QUARNFC_MINGW_DIR}/include")
set(CMAKE_MSVC_RUNTIME_LIBRARY MultiThreadedDLL)
set(CMAKE_MSVC_DEBUG_INFORMATION_FORMAT Embedded)
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "/nodefaultlib /debug /opt:ref,icf /manifest:no")
endforeach()
set(CMAKE_C_STANDARD_LIBRARIES "" CACHE STRING "" FORCE)
set(CMAKE_CXX_STANDARD_LIBRARIES "" CACHE STRING "" FORCE)

set(CMAKE_FIND_ROOT_PATH "${QUARNFC_MINGW_DIR}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../scripts/run-wine.sh")

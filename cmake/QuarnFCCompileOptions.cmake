# Options every translation unit of this project is compiled with, and those a host needs.

include(CheckIPOSupported)

if(QUARNFC_LTO)
  check_ipo_supported(RESULT QUARNFC_IPO_SUPPORTED LANGUAGES CXX)
endif()

# quarnfc_compile_options(<target>): C++20, warnings as errors, hidden symbols.
function(quarnfc_compile_options target)
  target_compile_features(${target} PRIVATE cxx_std_20)
  set_target_properties(
    ${target}
    PROPERTIES CXX_EXTENSIONS OFF
               CXX_VISIBILITY_PRESET hidden
               C_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /WX /utf-8 /permissive- /EHsc)
  else()
    target_compile_options(
      ${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Werror
                        $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor
                        -Wno-delete-non-virtual-dtor>)
    if(NOT WIN32)
      # The library's wide text is UTF-16 on every target.
      target_compile_options(${target} PRIVATE -fshort-wchar)
    endif()
  endif()
endfunction()

# quarnfc_host_options(<target>): what a host inherits by linking the library.
function(quarnfc_host_options target)
  target_compile_features(${target} INTERFACE cxx_std_17)
  target_include_directories(
    ${target} INTERFACE "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>"
                        "$<INSTALL_INTERFACE:include>")
  if(NOT MSVC)
    # Hosts delete sessions, connections and exceptions and derive from them; the stated layout of
    # their virtual tables has no destructor.
    target_compile_options(
      ${target} INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-non-virtual-dtor
                          -Wno-delete-non-virtual-dtor>)
  endif()
  if(NOT WIN32)
    target_compile_options(${target} INTERFACE -fshort-wchar)
  endif()
endfunction()

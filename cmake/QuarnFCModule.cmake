# SPDX-License-Identifier: MIT
# Everything about the shape of the module itself: names, version resource, linker hardening and,
# with a MinGW compiler, the run-time libraries that must stand beside the DLL.

function(quarnfc_module target)
  set_target_properties(
    ${target}
    PROPERTIES OUTPUT_NAME QuarnFC
               LINKER_LANGUAGE CXX
               RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin"
               LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
  if(QUARNFC_IPO_SUPPORTED)
    set_target_properties(quarnfc_objects ${target} PROPERTIES INTERPROCEDURAL_OPTIMIZATION ON)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
      # The test program that is linked from the same objects uses their ordinary code.
      target_compile_options(quarnfc_objects PRIVATE -ffat-lto-objects)
      if(WIN32)
        # Between several partitions a part split off an exported function is global, and exported too.
        target_link_options(${target} PRIVATE -flto-partition=one)
      endif()
    endif()
  endif()

  if(WIN32)
    # One name for every compiler: QuarnFC.dll, not libQuarnFC.dll.
    set_target_properties(${target} PROPERTIES PREFIX "")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/version.rc.in" "${PROJECT_BINARY_DIR}/version.rc"
                   @ONLY)
    target_sources(${target} PRIVATE "${PROJECT_BINARY_DIR}/version.rc")
    if(MSVC)
      quarnfc_link_runtime(${target})
      target_link_options(${target} PRIVATE /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT /guard:cf /Brepro
                          /pdbaltpath:%_PDB%)
      if(QUARNFC_MSVC_ABI)
        # Its linker writes no module-definition file.
        add_custom_command(
          TARGET ${target}
          POST_BUILD
          COMMAND
            ${CMAKE_COMMAND} -D "READOBJ=${QUARNFC_LLVM_DIR}/bin/llvm-readobj" -D
            "LIBRARY=$<TARGET_LINKER_FILE:${target}>" -D
            "DEF=$<TARGET_FILE_DIR:${target}>/QuarnFC.def" -P
            "${PROJECT_SOURCE_DIR}/cmake/QuarnFCWriteDef.cmake"
          COMMENT "Writing QuarnFC.def"
          VERBATIM)
      endif()
    else()
      target_link_options(
        ${target}
        PRIVATE -Wl,--dynamicbase
                -Wl,--high-entropy-va
                -Wl,--nxcompat
                -Wl,--no-insert-timestamp
                "-Wl,--output-def,$<TARGET_FILE_DIR:${target}>/QuarnFC.def")
      quarnfc_copy_mingw_runtime(${target})
    endif()
  else()
    set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION}
                                               SOVERSION ${PROJECT_VERSION_MAJOR})
    # The library calls its own functions, whoever else defines one of the same name: such calls are
    # direct, and short functions are inlined, as they are on Windows.
    target_compile_options(quarnfc_objects PRIVATE -fno-semantic-interposition)
    target_link_options(${target} PRIVATE -Wl,--no-undefined -Wl,-Bsymbolic-functions
                        "-Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/module.map")
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS
                                                  "${PROJECT_SOURCE_DIR}/cmake/module.map")
  endif()
endfunction()

# Hosts and the DLL share one C++ run-time library: with a private copy in each module an exception
# that crosses the boundary leaves the host's count of uncaught exceptions wrong. The copies have no
# debug information: with it they are twenty times as large.
function(quarnfc_copy_mingw_runtime target)
  set(names libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  set_target_properties(${target} PROPERTIES QUARNFC_RUNTIME_FILES "${names}" EXPORT_PROPERTIES
                                                                             QUARNFC_RUNTIME_FILES)
  foreach(name IN LISTS names)
    execute_process(
      COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${name}
      OUTPUT_VARIABLE path
      OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${path}")
      find_file(QUARNFC_RUNTIME_${name} ${name} PATHS /usr/x86_64-w64-mingw32/lib REQUIRED
                NO_DEFAULT_PATH)
      set(path "${QUARNFC_RUNTIME_${name}}")
    endif()
    add_custom_command(
      TARGET ${target}
      POST_BUILD
      COMMAND "${CMAKE_STRIP}" -o "$<TARGET_FILE_DIR:${target}>/${name}" "${path}"
      COMMENT "Copying ${name} beside the DLL"
      VERBATIM)
  endforeach()
endfunction()

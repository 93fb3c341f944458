# SPDX-License-Identifier: MIT
# With QUARNFC_SPLIT_DEBUG: release binaries with their debug information in files of their own, and
# the same bytes wherever and whenever they are built.

# quarnfc_split_debug(<target>): NAME.debug beside the binary NAME, found by debuggers through a
# link in the binary. With Visual C++'s linker that is NAME.pdb in any case, named without its folder.
function(quarnfc_split_debug target)
  if(NOT QUARNFC_SPLIT_DEBUG)
    return()
  endif()
  if(MSVC)
    target_link_options(${target} PRIVATE /Brepro /pdbaltpath:%_PDB%)
    return()
  endif()
  # A path of the build would leave its length in the file.
  set_target_properties(${target} PROPERTIES BUILD_RPATH_USE_ORIGIN ON)
  set(keep --strip-unneeded)
  if(WIN32)
    set(keep --strip-all)
    target_link_options(${target} PRIVATE -Wl,--no-insert-timestamp)
  endif()
  add_custom_command(
    TARGET ${target}
    POST_BUILD
    COMMAND "${CMAKE_OBJCOPY}" --only-keep-debug "$<TARGET_FILE:${target}>"
            "$<TARGET_FILE:${target}>.debug"
    COMMAND "${CMAKE_OBJCOPY}" ${keep} "--add-gnu-debuglink=$<TARGET_FILE:${target}>.debug"
            "$<TARGET_FILE:${target}>"
    COMMENT "Moving the debug information of ${target} into a file of its own"
    VERBATIM)
endfunction()

if(QUARNFC_SPLIT_DEBUG)
  # Paths of the build are in no binary; debuggers are told that the sources are in this folder. Of
  # the options that fit a path the last one decides.
  set(folder "/usr/src/quarnfc-${PROJECT_VERSION}")
  set(maps "-ffile-prefix-map=${PROJECT_SOURCE_DIR}=${folder}"
           "-ffile-prefix-map=${PROJECT_BINARY_DIR}=${folder}/build")
  if(MSVC)
    # The tool chain names sources by their paths from the folder of the build.
    cmake_path(RELATIVE_PATH PROJECT_SOURCE_DIR BASE_DIRECTORY "${CMAKE_BINARY_DIR}"
               OUTPUT_VARIABLE sources)
    list(APPEND maps "-ffile-prefix-map=${sources}=${folder}")
    list(TRANSFORM maps PREPEND "/clang:")
    add_compile_options(/Brepro -gno-codeview-command-line
                        "-ffile-compilation-dir=${folder}/build" ${maps})
    # An object names itself in its debug information, and no option maps that path.
    foreach(language C CXX)
      string(REPLACE "/Fo<OBJECT>" "/Fo<OBJECT> -Xclang -object-file-name=${folder}/build/<OBJECT>"
                     CMAKE_${language}_COMPILE_OBJECT "${CMAKE_${language}_COMPILE_OBJECT}")
    endforeach()
    add_link_options("/pdbsourcepath:${folder}/build")
  else()
    add_compile_options(${maps})
    add_link_options(${maps})
  endif()
endif()

# SPDX-License-Identifier: MIT
# quarnfc_copy_runtime(<host>): on Windows, puts QuarnFC.dll and the run-time libraries that belong
# to it beside the program <host> whenever that is built. Elsewhere there is nothing to do: CMake
# gives the program the library's folder. Windows looks for DLLs beside the program and ends it
# without a word when one is missing.
function(quarnfc_copy_runtime host)
  if(NOT WIN32)
    return()
  endif()
  set(files "$<TARGET_FILE:QuarnFC::QuarnFC>")
  get_target_property(names QuarnFC::QuarnFC QUARNFC_RUNTIME_FILES)
  if(names)
    list(TRANSFORM names PREPEND "$<TARGET_FILE_DIR:QuarnFC::QuarnFC>/")
    list(APPEND files ${names})
  endif()
  add_custom_command(
    TARGET ${host}
    POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${files} "$<TARGET_FILE_DIR:${host}>"
    COMMENT "Copying QuarnFC.dll beside ${host}"
    VERBATIM)
endfunction()

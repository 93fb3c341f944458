# SPDX-License-Identifier: MIT
# quarnfc_check(<name> <command>...): a program that is run by the tests beside the GoogleTest
# programs and says by its exit code whether all is well. 77 means that it could not be run.
function(quarnfc_check name)
  add_test(NAME ${name} COMMAND ${ARGN})
  set_tests_properties(${name} PROPERTIES LABELS check SKIP_RETURN_CODE 77 TIMEOUT 300)
endfunction()

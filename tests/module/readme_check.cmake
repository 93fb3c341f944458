# SPDX-License-Identifier: MIT
# The host program in the README is the sample, to the letter.
# Usage: cmake -D README=... -D SAMPLE=... -P readme_check.cmake
file(READ "${README}" readme)
file(READ "${SAMPLE}" sample)
# But for the line about its licence.
string(REGEX REPLACE "^// SPDX-[^\n]*\n+" "" sample "${sample}")
string(FIND "${readme}" "```cpp\n${sample}```\n" position)
if(position EQUAL -1)
  message(FATAL_ERROR "${README} does not show ${SAMPLE} as it is")
endif()

// SPDX-License-Identifier: MIT
// The order of texts for people to read.
#ifndef QUARNFC_CORE_TEXT_COLLATION_H_
#define QUARNFC_CORE_TEXT_COLLATION_H_

namespace quarnfc {

// Below, equal to or above 0 as left sorts in front of right, with it or behind it: by the system's
// locale or, where the system has no order for the code page, by the one of code page 936. An
// incomplete character ends its text.
int Collate(const unsigned char* left, const unsigned char* right, bool ignore_case);

}  // namespace quarnfc

#endif  // QUARNFC_CORE_TEXT_COLLATION_H_

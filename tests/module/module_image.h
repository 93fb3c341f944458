// SPDX-License-Identifier: MIT
// What the loaded module says about itself. One source file per platform.
#ifndef QUARNFC_TESTS_MODULE_MODULE_IMAGE_H_
#define QUARNFC_TESTS_MODULE_MODULE_IMAGE_H_

#include <set>
#include <string>

namespace module_image {

// Every name that the module offers to others.
std::set<std::string> ExportedNames();

// The address of an exported name; null when there is none.
void* Resolve(const char* name);

}  // namespace module_image

#endif  // QUARNFC_TESTS_MODULE_MODULE_IMAGE_H_

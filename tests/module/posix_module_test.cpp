// SPDX-License-Identifier: MIT
// The shared object's own data.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>

#include <string>

#include "support/build_paths.h"

namespace {

// The soname in the dynamic section of the loaded module.
std::string Soname() {
  void* handle = dlopen("libQuarnFC.so." QUARNFC_SOVERSION, RTLD_NOLOAD | RTLD_LAZY);
  link_map* map = nullptr;
  if (handle == nullptr || dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0) return {};
  const char* texts = nullptr;
  std::size_t offset = 0;
  for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
    if (entry->d_tag == DT_STRTAB) texts = reinterpret_cast<const char*>(entry->d_un.d_ptr);
    if (entry->d_tag == DT_SONAME) offset = entry->d_un.d_val;
  }
  const std::string name = texts == nullptr ? "" : texts + offset;
  dlclose(handle);
  return name;
}

}  // namespace

TEST(PosixModule, SonameCarriesTheMajorVersion) {
  EXPECT_EQ(Soname(), "libQuarnFC.so." QUARNFC_SOVERSION);
}

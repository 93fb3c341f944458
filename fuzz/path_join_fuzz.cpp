// SPDX-License-Identifier: MIT
// Path joining: base, zero, path.
#include <quarnfc/plain.h>
#include <quarnfc/string_utils.h>

#include <cstring>
#include <string>

#include "fuzz/input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::string base = input.Text();
  const std::string path = input.Text();

  char* joined = qnUnionPath(base.c_str(), path.c_str());
  CQNString base_string(base.c_str());
  CQNString path_string(path.c_str());
  const bool is_joined = qnUnionPathEx(base_string, path_string);

  fuzz::Expect(is_joined == (joined != nullptr));
  fuzz::Expect(base == static_cast<const char*>(base_string));
  fuzz::Expect(path_string.Find('/') == -1);
  if (is_joined) fuzz::Expect(std::strcmp(joined, path_string) == 0);
  qnFreeMem(joined);
  return 0;
}

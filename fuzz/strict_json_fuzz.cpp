// SPDX-License-Identifier: MIT
// Strict JSON in UTF-8 against a slow reference of RFC 8259: whether a text is accepted, and what
// its strings and numbers are; and what was read is written as a text that reads as the same.
#include <quarnfc/ext/json_load.h>
#include <quarnfc/ext/json_text.h>
#include <quarnfc/ext/json_write.h>

#include <cstring>
#include <string>

#include "fuzz/input.h"
#include "fuzz/json_reference.h"
#include "fuzz/strict_json_reference.h"

namespace {

using quarnfc::ext::JsonFault;
using quarnfc::ext::JsonText;
using quarnfc::ext::JsonTextError;
using quarnfc::ext::LoadJsonUtf8;
using quarnfc::ext::WriteJson;

void CheckDocument(const std::string& text) {
  JsonTextError error;
  const auto document = LoadJsonUtf8(text, &error);
  fuzz::Expect((document != nullptr) == (error.fault == JsonFault::kNone));
  fuzz::Expect(std::strlen(error.Message()) > 0);
  if (document == nullptr) return;
  const auto written = WriteJson(*document);
  fuzz::Expect(written.has_value());
  const auto again = LoadJsonUtf8(*written);
  fuzz::Expect(again != nullptr && fuzz::Dump(*again) == fuzz::Dump(*document));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  fuzz::StrictJsonReference reference(text);
  JsonText json;
  JsonTextError error;
  const bool is_read = json.Parse(text, &error);
  fuzz::Expect(is_read == reference.Read());
  fuzz::Expect(is_read == (error.fault == JsonFault::kNone));
  fuzz::Expect(error.offset <= size);
  if (is_read) fuzz::Expect(fuzz::DumpStrict(json.Root()) == reference.Tree());
  CheckDocument(text);
  return 0;
}

// SPDX-License-Identifier: MIT
// Reading JSON text, and writing, copying and looking up what was read: path, zero, text.
#include <quarnfc/json_object.h>
#include <quarnfc/json_value.h>
#include <quarnfc/plain.h>

#include <memory>

#include "fuzz/input.h"

namespace {

// A copy is written like the original, and every text that is written can be read without harm.
template <class Document>
void WriteAndCopy(const Document& document) {
  const std::unique_ptr<Document> clone(document.Clone());
  Document copy;
  copy.CopyFrom(clone.get());
  for (const bool indent : {false, true}) {
    const CQNString text = document.CreateJson(indent);
    fuzz::Expect(text == clone->CreateJson(indent));
    fuzz::Expect(text == copy.CreateJson(indent));
    CMyJsonObj().Load(text);
  }
  qnFreeMem(document.CreateUTF8Json(false));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Input input(data, size);
  const std::string path = input.Text();
  const std::string text = input.Text();

  CMyJsonValue value;
  CQNString error;
  const bool value_read = value.Load(text.c_str(), error);
  fuzz::Expect(value_read || value.IsEmpty());
  WriteAndCopy(value);

  CMyJsonObj object;
  const bool object_read = object.Load(text.c_str());
  fuzz::Expect(object_read == (value_read && value.IsObj()));
  if (object_read) fuzz::Expect(object.CreateJson(true) == value.CreateJson(true));
  if (!object_read) fuzz::Expect(object.ValueCount() == 0 && object.GetErrMsg().IsEmpty() == 0);
  WriteAndCopy(object);

  CMyJsonValue* found = nullptr;
  object.ValueEx(path.c_str(), found, false);
  if (object.SetItem(path.c_str(), 1, false, false)) {
    fuzz::Expect(object.ValueEx(path.c_str(), found, false) && found->ValueNumber() == 1);
  }
  return 0;
}

// SPDX-License-Identifier: MIT
// A JSON document: built, edited, saved, read back.
#include <quarnfc/quarnfc.h>

#include <cstdio>

int main() {
  const char* const file = "sample_document.json";
  unsigned __int64 error = 0;

  CMyJsonObj document;
  document.SetItem("server\\host", "maps.example", true, false);  // adds "server" on the way
  document.SetItem("server\\port", 8080, true, false);
  const double center[] = {112.938814, 28.228209};
  document.AddItem("center", center, 2);
  document.SetItem("server\\port", 9090, true, true);  // only an existing member
  document.DelItem("no such member");                  // does nothing

  char* const text = document.CreateUTF8Json(false);
  std::printf("%s\n", text);
  qnFreeMem(text);

  CMyJsonObj copy;
  if (!QNJsonUtils::SaveJsonFile(file, document, &error) ||
      !QNJsonUtils::ReadJsonFile(file, copy, &error)) {
    char* const report = QNErrorUtils::CreateErrorUTF8JsonByHandle(error);  // closes the handle
    std::printf("%s\n", report);
    qnFreeMem(report);
    return 1;
  }
  std::remove(file);

  int port = 0;
  CMyJsonValue* values = nullptr;  // borrowed from the document
  const bool found = copy.ValueEx("server\\port", port, true) && copy.Value("center", values);
  return found && port == 9090 && values->ValueArrItem(1)->ValueNumber() == center[1] ? 0 : 1;
}

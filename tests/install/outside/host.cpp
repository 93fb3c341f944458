// SPDX-License-Identifier: MIT
// A host's program: strings, a document, an error handle and an object that the host deletes.
#include <quarnfc/quarnfc.h>

#include <cstdio>
#include <cstring>

namespace {

int failures = 0;

void Check(bool holds, const char* what) {
  if (holds) return;
  std::printf("%s does not hold\n", what);
  ++failures;
}

void CheckStrings() {
  CQNString text;
  text.Format("%s-%d", "sheet", 12);
  Check(text == "sheet-12", "formatted text");
}

void CheckDocuments() {
  CMyJsonObj document;
  Check(document.Load("{\"server\":{\"port\":8080}}"), "a document that is read");
  int port = 0;
  Check(document.ValueEx("server\\port", port, true) && port == 8080, "a value by path");
  CMyJsonObj* copy = document.Clone();
  Check(copy->ValueCount() == 1, "a copy's member");
  delete copy;
}

void CheckErrors() {
  unsigned __int64 error = 0;
  CMyJsonObj document;
  Check(!QNJsonUtils::ReadJsonFile("no such file", document, &error), "a missing file");
  unsigned int code = 0;
  char* message = qnGetErrorA(error, &code);
  Check(message != nullptr && std::strlen(message) > 0, "the error's message");
  Check(code == CQNObject::eErrNotFound, "the error's code");
  qnFreeMem(message);
  qnCloseHandle(error);
}

}  // namespace

int main() {
  CheckStrings();
  CheckDocuments();
  CheckErrors();
  if (failures == 0) std::printf("ok\n");
  return failures;
}

/* SPDX-License-Identifier: MIT */
/* A host's program in C. */
#include <quarnfc/plain.h>
#include <quarnfc/version.h>

#include <stdio.h>
#include <string.h>

/* Exported under this name; the C++ header declares it. */
QN_PLAIN_API char* qnUnionPath(const char* base, const char* path);

int main(void) {
  unsigned int code = 7;
  char* joined = qnUnionPath("C:\\maps", "..\\sheet.json");
  int failures = joined == NULL || strcmp(joined, "C:\\sheet.json") != 0;
  if (failures != 0) printf("joined path: %s\n", joined == NULL ? "(null)" : joined);
  qnFreeMem(joined);
  if (qnGetErrorA(NULL, &code) != NULL || code != 7) ++failures;
  qnCloseHandle(NULL);
  if (qnGetVersion() != QUARNFC_VERSION_NUMBER) ++failures;
  if (failures == 0) printf("ok\n");
  return failures;
}

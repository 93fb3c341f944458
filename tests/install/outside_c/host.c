/* SPDX-License-Identifier: MIT */
/* A host's program in C: the plain functions and the flat C interface. */
#include <quarnfc/c/quarnfc.h>

#include <math.h>
#include <stdio.h>
#include <string.h>

/* Exported under this name; the C++ header declares it. */
QN_PLAIN_API char* qnUnionPath(const char* base, const char* path);

static int failures = 0;

static void Check(int holds, const char* what) {
  if (holds) return;
  printf("%s does not hold\n", what);
  ++failures;
}

/* Whether the text is the expected one; releases it. */
static int IsText(char* text, const char* expected) {
  const int same = text != NULL && strcmp(text, expected) == 0;
  qnFreeMem(text);
  return same;
}

static void CheckPlainFunctions(void) {
  unsigned int code = 7;
  Check(IsText(qnUnionPath("C:\\maps", "..\\sheet.json"), "C:\\sheet.json"), "joined path");
  Check(qnGetErrorA(NULL, &code) == NULL && code == 7, "no error");
  qnCloseHandle(NULL);
  Check(qnGetVersion() == QUARNFC_VERSION_NUMBER, "the version of the headers");
}

static void CheckDocuments(void) {
  CQNObject* error = NULL;
  /* The degree sign, which the usual code pages have. */
  QncJson* document = qncJsonParse("{\"sheet\":{\"west\":\"117\xC2\xB0\"}}", &error);
  Check(document != NULL && error == NULL, "a document that is read");
  Check(IsText(qncJsonText(qncJsonFind(document, "sheet\\west"), NULL), "117\xC2\xB0"),
        "a text of the document in UTF-8");
  qncJsonFree(document);
}

static void CheckErrors(void) {
  CQNObject* error = NULL;
  char* message;
  Check(qncJsonParse("{\"sheet\":", &error) == NULL, "half a document is refused");
  Check(qncErrorCode(error) == QNC_ERROR_INVALID_DATA, "the error's code");
  message = qncErrorMessage(error);
  Check(message != NULL && message[0] != '\0', "the error's message");
  qnFreeMem(message);
  qnCloseHandle(error);
}

static void CheckOthers(void) {
  const double degrees[2] = {117.5, 30.25};
  double metres[2];
  double back[2];
  QncProjected* system = qncProjectedFromEpsg(4548, NULL); /* CGCS2000, central meridian 117 */
  Check(IsText(qncBase64Encode("maps", 4, NULL), "bWFwcw=="), "Base64");
  Check(qncProject(system, degrees, metres, 1) && qncUnproject(system, metres, back, 1) &&
            fabs(back[0] - degrees[0]) < 1e-7 && fabs(back[1] - degrees[1]) < 1e-7,
        "a point there and back");
  qncProjectedFree(system);
}

int main(void) {
  CheckPlainFunctions();
  CheckDocuments();
  CheckErrors();
  CheckOthers();
  if (failures == 0) printf("ok\n");
  return failures;
}

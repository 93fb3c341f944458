/* SPDX-License-Identifier: MIT */
/* A host in C that uses every family of the flat C interface. */
#include <quarnfc/c/quarnfc.h>

#include <math.h>
#include <stdio.h>
#include <string.h>

static int failures = 0;

#define CHECK(condition)                                           \
  do {                                                             \
    if (!(condition)) {                                            \
      printf("line %d: %s does not hold\n", __LINE__, #condition); \
      ++failures;                                                  \
    }                                                              \
  } while (0)

/* Whether a text of the library says this; releases it. */
static int Says(char* text, const char* expected) {
  const int same = text != NULL && strcmp(text, expected) == 0;
  if (!same) printf("\"%s\" is not \"%s\"\n", text == NULL ? "(null)" : text, expected);
  qnFreeMem(text);
  return same;
}

static void Versions(void) {
  CHECK(qncInterfaceVersion() == 4);
  CHECK(qnGetVersion() == QUARNFC_VERSION_NUMBER);
}

static void Errors(void) {
  CQNObject* error = NULL;
  CHECK(qncJsonParse("{\"a\":", &error) == NULL);
  CHECK(qncErrorCode(error) == QNC_ERROR_INVALID_DATA);
  qnFreeMem(qncErrorMessage(error));
  qnCloseHandle(error);
}

static void Json(void) {
  QncJson* document = qncJsonNewObject(NULL);
  QncJson* list = qncJsonNewArray(NULL);
  double number = 0;
  CHECK(qncJsonAppendText(list, "\xE5\x8C\x97\xE4\xBA\xAC", NULL));
  CHECK(qncJsonSetValue(document, "places\\names", list, NULL));
  CHECK(qncJsonSetNumber(document, "places\\count", 1, NULL));
  qncJsonFree(list);
  CHECK(Says(qncJsonWrite(document, 0, NULL),
             "{\"places\":{\"names\":[\"\xE5\x8C\x97\xE4\xBA\xAC\"],\"count\":1}}"));
  CHECK(qncJsonNumber(qncJsonFind(document, "places\\count"), &number) && number == 1);
  qncJsonFree(document);
}

static void Csv(const char* path) {
  QncCsv* csv = qncCsvOpen(path, NULL);
  int rows = 0;
  CHECK(csv != NULL);
  CHECK(Says(qncCsvHeader(csv, 0, NULL), "code"));
  while (qncCsvNextRow(csv, NULL) == 1) ++rows;
  CHECK(rows > 3000);
  CHECK(qncCsvRewind(csv, NULL) && qncCsvNextRow(csv, NULL) == 1);
  CHECK(Says(qncCsvText(csv, 1, NULL), "\xE5\x8C\x97\xE4\xBA\xAC\xE5\xB8\x82"));
  qncCsvClose(csv);
}

static void Geodesy(void) {
  /* On the central meridian the easting is the false one. */
  const double point[2] = {114.0, 0.0};
  double projected[2] = {0, 0};
  double back[2] = {0, 0};
  QncProjected* system = qncProjectedFromEpsg(4547, NULL);
  CHECK(qncProject(system, point, projected, 1));
  CHECK(fabs(projected[0] - 500000) < 1e-6 && fabs(projected[1]) < 1e-6);
  CHECK(qncUnproject(system, projected, back, 1));
  CHECK(fabs(back[0] - point[0]) < 1e-9 && fabs(back[1] - point[1]) < 1e-9);
  qncProjectedFree(system);
}

static void Codecs(void) {
  size_t size = 0;
  unsigned char* data = qncBase64Decode("Zm9vYmFy", &size, NULL);
  CHECK(size == 6 && memcmp(data, "foobar", 6) == 0);
  qnFreeMem(data);
  CHECK(Says(qncMd5("abc", 3, NULL), "900150983cd24fb0d6963f7d28e17f72"));
}

/* What came with the second version of the interface. */
static void Additions(void) {
  const char* fields[2] = {"a;b", "c"};
  const double point[2] = {114.0, 0.0};
  double plane[2] = {0, 0};
  QncDigest* digest = qncDigestNew(QNC_DIGEST_SHA256, NULL, 0, NULL);
  QncJsonText* json = qncJsonTextParse("[1.50]", 6, NULL, NULL);
  QncCsvText* csv = qncCsvTextFromMemory("a;b\n", 4, ';', NULL);
  QncTransverseMercator* zone = qncTransverseMercatorFromEpsg(4526, NULL);
  qncDigestUpdate(digest, "abc", 3);
  CHECK(Says(qncDigestFinish(digest, NULL),
             "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"));
  CHECK(Says(qncJsonTextSource(json, "/0", NULL), "1.50"));
  CHECK(qncCsvTextNextRow(csv, NULL) == 1 && strcmp(qncCsvTextField(csv, 1, NULL), "b") == 0);
  CHECK(Says(qncCsvTextWriteRow(fields, 2, ';', NULL), "\"a;b\";c"));
  CHECK(qncGaussZone(114.0, 3) == 38 && qncCentralMeridian(38, 3) == 114.0);
  CHECK(qncTransverseMercatorForward(zone, point, plane, 1));
  CHECK(fabs(plane[0] - 38500000) < 1e-6 && fabs(plane[1]) < 1e-6);
  qncTransverseMercatorFree(zone);
  qncCsvTextClose(csv);
  qncJsonTextFree(json);
  qncDigestFree(digest);
}

int main(int argc, char** argv) {
  if (argc != 2) {
    printf("usage: c_interface_host CSV_FILE\n");
    return 1;
  }
  Versions();
  Errors();
  Json();
  Csv(argv[1]);
  Geodesy();
  Codecs();
  Additions();
  printf("%d failures\n", failures);
  return failures != 0;
}

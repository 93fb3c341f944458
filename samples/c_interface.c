/* SPDX-License-Identifier: MIT */
/* The flat C interface: a JSON document, and the districts of a CSV file in Gauss-Krueger metres.
 */
#include <quarnfc/c/quarnfc.h>

#include <stdio.h>
#include <stdlib.h>

/* Prints what went wrong and releases the handle. */
static int Fail(CQNObject* error) {
  char* message = qncErrorMessage(error);
  fprintf(stderr, "%s (%d)\n", message == NULL ? "no memory" : message, qncErrorCode(error));
  qnFreeMem(message);
  qnCloseHandle(error);
  return 1;
}

/* The number in a field of the row. */
static double Number(const QncCsv* csv, int index) {
  char* text = qncCsvText(csv, index, NULL);
  const double number = text == NULL ? 0 : strtod(text, NULL);
  qnFreeMem(text);
  return number;
}

/* A district as a member of the document: its code, easting and northing. */
static void AddDistrict(QncJson* document, const QncCsv* csv, const QncProjected* system) {
  double point[2];
  char* code = qncCsvText(csv, 0, NULL);
  QncJson* position = qncJsonNewArray(NULL);
  point[0] = Number(csv, 4);
  point[1] = Number(csv, 5);
  qncProject(system, point, point, 1);
  qncJsonAppendNumber(position, point[0], NULL);
  qncJsonAppendNumber(position, point[1], NULL);
  qncJsonSetValue(document, code, position, NULL);
  qncJsonFree(position);
  qnFreeMem(code);
}

int main(int argc, char** argv) {
  CQNObject* error = NULL;
  QncCsv* csv = qncCsvOpen(argc == 2 ? argv[1] : "districts.csv", &error);
  QncProjected* system;
  QncJson* document;
  char* text;
  int rows = 0;
  if (csv == NULL) return Fail(error);
  system = qncProjectedFromEpsg(4548, NULL); /* CGCS2000, central meridian 117 */
  document = qncJsonNewObject(NULL);
  for (; rows < 3 && qncCsvNextRow(csv, NULL) == 1; ++rows) AddDistrict(document, csv, system);
  text = qncJsonWrite(document, 1, NULL);
  printf("%s\n", text);
  qnFreeMem(text);
  qncJsonFree(document);
  qncProjectedFree(system);
  qncCsvClose(csv);
  return rows == 3 ? 0 : 1;
}

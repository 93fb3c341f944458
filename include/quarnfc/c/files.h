/* SPDX-License-Identifier: MIT */
/* Files of the flat C interface (quarnfc.h in this folder says how everything works).
 *
 * Example:
 *   qncWriteFile("station.txt", "BJ01", 4, NULL);  // == 1
 *   remove("station.txt");
 */
#ifndef QUARNFC_C_FILES_H_
#define QUARNFC_C_FILES_H_

#include <quarnfc/c/base.h>

/* Replaces what a file holds by size bytes, or creates it: whoever opens it meets the old contents
 * or the new ones, and after a failure the old ones are all there. The path may have any character,
 * also on Windows. Null data counts as no bytes. 1, or 0 with QNC_ERROR_NOT_FOUND when the folder
 * does not exist, otherwise QNC_ERROR_FILE. Any thread may call. */
QN_PLAIN_API int qncWriteFile(const char* path, const void* data, size_t size, CQNObject** error);

#endif /* QUARNFC_C_FILES_H_ */

/* SPDX-License-Identifier: MIT */
/* The flat C interface of QuarnFC: opaque handles and plain functions for hosts that are not
 * written in C++, or not with this library's compiler. Every build of the library exports the same
 * names, undecorated, with the platform's ordinary calling convention.
 *
 * Text is UTF-8, zero-terminated, going in and coming out, whatever the code page of the process.
 * The library itself keeps text in the process ANSI code page (936 off Windows): a text that goes
 * in and has a character that the code page lacks, or is not UTF-8, is refused and never changed
 * silently. Functions whose names end in A take or give text of the code page. Paths are UTF-8,
 * too: on Windows of characters that the code page has, elsewhere of any, as the system takes them.
 *
 * Memory: every text and buffer that a function returns is new and is released with qnFreeMem;
 * every handle has a function that releases it, which ignores null. What is borrowed says so.
 *
 * Errors: a function that can fail takes a last argument error. When it is not null, *error is set
 * to null on success and to a new error handle on failure: read it with qncErrorCode and
 * qncErrorMessage, release it with qnCloseHandle. (It stays null when there is no memory even for
 * that.) The result then is null, 0 or what the function says. No exception leaves a function.
 *
 * Threads: different handles may be used by different threads at the same time; one handle is used
 * by one thread at a time. Functions without a handle may be called from any thread.
 *
 * Example:
 *   CQNObject* error = NULL;
 *   QncJson* settings = qncJsonParse("{\"port\":", &error);
 *   if (settings == NULL) {
 *     char* message = qncErrorMessage(error);
 *     printf("%d: %s\n", qncErrorCode(error), message);
 *     qnFreeMem(message);
 *   }
 *   qncErrorCode(error);    // == QNC_ERROR_INVALID_DATA
 *   qnCloseHandle(error);
 *   qncJsonFree(settings);
 */
#ifndef QUARNFC_C_QUARNFC_H_
#define QUARNFC_C_QUARNFC_H_

#include <quarnfc/c/angles.h>
#include <quarnfc/c/base.h>
#include <quarnfc/c/codec.h>
#include <quarnfc/c/csv.h>
#include <quarnfc/c/csv_text.h>
#include <quarnfc/c/digest.h>
#include <quarnfc/c/encoded_text.h>
#include <quarnfc/c/files.h>
#include <quarnfc/c/geodesy.h>
#include <quarnfc/c/height_plane.h>
#include <quarnfc/c/http.h>
#include <quarnfc/c/http_call.h>
#include <quarnfc/c/json.h>
#include <quarnfc/c/json_text.h>
#include <quarnfc/c/parameter_estimation.h>
#include <quarnfc/c/transverse_mercator.h>
#include <quarnfc/c/wkt_system.h>
#include <quarnfc/c/zones.h>

#endif /* QUARNFC_C_QUARNFC_H_ */

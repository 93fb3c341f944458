/* SPDX-License-Identifier: MIT */
/* HTTP calls with more than a URL and a deadline: the user, a limit on the size, progress,
 * cancelling (quarnfc.h in this folder says how everything works, http.h what a call does and what
 * its response has). A call is made ready, then sent as often as wanted, by one thread at a time;
 * only qncHttpCallCancel may come from another thread meanwhile. A library that was built without
 * the HTTP client lacks these functions.
 *
 * Example:
 *   QncHttpCall* call = qncHttpCallNew("GET", "http://maps.example/tiles.zip", NULL);
 *   qncHttpCallSetLargest(call, 100000000);
 *   qncHttpCallSetDeadline(call, 60000);
 *   QncHttpResponse* response = qncHttpCallDownload(call, "tiles.zip", NULL);
 *   if (qncHttpStatus(response) == 200) printf("tiles.zip is there\n");
 *   qncHttpFree(response);
 *   qncHttpCallFree(call);
 */
#ifndef QUARNFC_C_HTTP_CALL_H_
#define QUARNFC_C_HTTP_CALL_H_

#include <quarnfc/c/http.h>

typedef struct QncHttpCall QncHttpCall;

/* Called, on the thread that sends, as a body arrives: bytes so far, the announced length, 0 where
 * the server does not say, and the host's context. 0 ends the call with the error 12017. Nothing
 * may be thrown out of it. */
typedef int (*QncHttpProgress)(void* context, unsigned long long received,
                               unsigned long long total);

/* A call with a verb, such as "GET", and an http or https URL. */
QN_PLAIN_API QncHttpCall* qncHttpCallNew(const char* verb, const char* url, CQNObject** error);

/* Not while it is sent. */
QN_PLAIN_API void qncHttpCallFree(QncHttpCall* call);

/* Lines "Name: value" that end with LF or CR LF, in the place of those set before; null for none.
 * 1, or 0 with QNC_ERROR_ARGUMENT when one has no name. */
QN_PLAIN_API int qncHttpCallSetHeaders(QncHttpCall* call, const char* headers, CQNObject** error);

/* size bytes to be sent, which are copied; null for none. 1, or 0. */
QN_PLAIN_API int qncHttpCallSetBody(QncHttpCall* call, const void* body, size_t size,
                                    CQNObject** error);

/* Who answers a challenge; without it, whoever stands in the URL. 1, or 0 when the code page lacks
 * a character. */
QN_PLAIN_API int qncHttpCallSetUser(QncHttpCall* call, const char* user, const char* password,
                                    CQNObject** error);

/* For the whole call, in milliseconds; 0, as at first, for none. */
QN_PLAIN_API void qncHttpCallSetDeadline(QncHttpCall* call, unsigned int deadline);

/* The largest body that is taken, in bytes; a larger one ends the call with the error 223. At first
 * 64 MiB in memory, and any size into a file. */
QN_PLAIN_API void qncHttpCallSetLargest(QncHttpCall* call, unsigned long long size);

/* Who is told of progress, and its context, which is borrowed; null, as at first, for nobody. */
QN_PLAIN_API void qncHttpCallSetProgress(QncHttpCall* call, QncHttpProgress progress,
                                         void* context);

/* Sends the call and receives the whole body, as qncHttpSend does. */
QN_PLAIN_API QncHttpResponse* qncHttpCallSend(QncHttpCall* call, CQNObject** error);

/* Sends a call without body, whose verb is GET, and receives into a file, as qncHttpDownload does.
 */
QN_PLAIN_API QncHttpResponse* qncHttpCallDownload(QncHttpCall* call, const char* path,
                                                  CQNObject** error);

/* Ends the call that is sent, from any thread, with the error 12017; returns at once. It stays so:
 * whatever is sent with this call later ends before it begins. */
QN_PLAIN_API void qncHttpCallCancel(QncHttpCall* call);

#endif /* QUARNFC_C_HTTP_CALL_H_ */

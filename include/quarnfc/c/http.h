/* SPDX-License-Identifier: MIT */
/* HTTP in one call of the flat C interface (quarnfc.h in this folder says how everything works). A
 * call opens a session of its own, follows redirects, answers a challenge with the user and
 * password that stand in the URL, and receives the whole body. A library that was built without the
 * HTTP client lacks these functions.
 *
 * URLs are http or https and go out as their UTF-8 stands: bytes above 126 are escaped. deadline is
 * for the whole call, in milliseconds, 0 for none. Without a response there is an error with the
 * platform's code, such as 12002 (the deadline), 12007 (unknown host), 12029 (nobody answers) or
 * 12030 (the body ended early); a response of any status, 404 too, is none.
 *
 * Example:
 *   CQNObject* error = NULL;
 *   QncHttpResponse* response = qncHttpGet("http://maps.example/index.json", 20000, &error);
 *   if (qncHttpStatus(response) == 200) {
 *     printf("%s\n", qncHttpBody(response, NULL));
 *   } else if (response == NULL) {
 *     char* message = qncErrorMessage(error);
 *     printf("%d %s\n", qncErrorCode(error), message);
 *     qnFreeMem(message);
 *   }
 *   qncHttpFree(response);
 *   qnCloseHandle(error);
 */
#ifndef QUARNFC_C_HTTP_H_
#define QUARNFC_C_HTTP_H_

#include <quarnfc/c/base.h>

typedef struct QncHttpResponse QncHttpResponse;

/* Sends a request. headers are lines "Name: value" that end with LF or CR LF, or null; body has
 * size bytes, of which there may be none. Bodies of responses have at most 64 MiB. */
QN_PLAIN_API QncHttpResponse* qncHttpSend(const char* verb, const char* url, const char* headers,
                                          const void* body, size_t size, unsigned int deadline,
                                          CQNObject** error);

/* Fetches a resource. */
QN_PLAIN_API QncHttpResponse* qncHttpGet(const char* url, unsigned int deadline, CQNObject** error);

/* Fetches a resource of any size into the file at path, which is there whole or as it was before.
 * The response has no body unless its status is no success; then no file is written. */
QN_PLAIN_API QncHttpResponse* qncHttpDownload(const char* url, const char* path,
                                              unsigned int deadline, CQNObject** error);

QN_PLAIN_API void qncHttpFree(QncHttpResponse* response);

/* The status, such as 200; 0 for a null response. */
QN_PLAIN_API int qncHttpStatus(const QncHttpResponse* response);

/* The body, as the server sent it, with a zero behind it; its number of bytes in *size when size is
 * not null. Borrowed from the response; null for a null response. */
QN_PLAIN_API const char* qncHttpBody(const QncHttpResponse* response, size_t* size);

/* The value of the first header of a name, upper and lower case alike, as the server sent it; null
 * when there is none. */
QN_PLAIN_API char* qncHttpHeader(const QncHttpResponse* response, const char* name,
                                 CQNObject** error);

/* The number of headers, and name and value of the one at index: in the order and with the repeats
 * that the server sent; those of the last answer when the call was redirected. 0 for a null
 * response, null when there is no such header. Borrowed from the response. */
QN_PLAIN_API int qncHttpHeaderCount(const QncHttpResponse* response);
QN_PLAIN_API const char* qncHttpHeaderName(const QncHttpResponse* response, int index);
QN_PLAIN_API const char* qncHttpHeaderValue(const QncHttpResponse* response, int index);

#endif /* QUARNFC_C_HTTP_H_ */

// SPDX-License-Identifier: MIT
// Error documents: an error as a small JSON document, for a web front end, another process or a
// log.
//
// The document has one member, "Error", an object with
//   "DisplayText"  the message; left out when an error handle has code 0, deliberately
//   "ErrorCode"    the code as an integer
//
// Texts going in are in the process ANSI code page. UTF-8 texts coming out are indented and are
// released with qnFreeMem. Everything that allocates may throw std::bad_alloc; a handle that was to
// be consumed is released all the same. Threads: an error handle is used by one thread at a time.
//
// Example:
//   char* text = QNErrorUtils::CreateErrorUTF8Json(CQNObject::eErrInvalidData, "bad");
//   CMyJsonObj document;
//   document.Load(text);                                   // == true
//   int code = 0;
//   document.ValueEx("Error\\ErrorCode", code, true);      // == true
//   code;                                                  // == 5
//   qnFreeMem(text);
#ifndef QUARNFC_ERROR_JSON_H_
#define QUARNFC_ERROR_JSON_H_

#include <quarnfc/error.h>
#include <quarnfc/export.h>
#include <quarnfc/json_object.h>
#include <quarnfc/object.h>
#include <quarnfc/platform_types.h>

namespace QNErrorUtils {

// A new document, released with delete. From an error handle: its message and code; the handle is
// consumed (released), deliberately, and must not be closed again. Without one (0): text, or the
// Chinese words for "undefined error" when text is null, and code 1.
QN_API CMyJsonObj* CreateErrorJson(unsigned __int64 handle, const char* text);

// The document for a code and a message (null counts as empty). Code 0 leaves the message out.
// Released with qnFreeMem.
QN_API char* CreateErrorUTF8Json(CQNObject::EErrorStatus code, const char* message);

// The document for an error handle, which is consumed: do not close it again. Null for handle 0.
// Released with qnFreeMem.
QN_API char* CreateErrorUTF8JsonByHandle(unsigned __int64 handle);

// The document for an error object, which is neither changed nor released. The message is prefix
// immediately followed by the object's, deliberately without the blank that CreateErrorFromObj puts
// between them; a null prefix adds nothing. Null for a null object. Released with qnFreeMem.
QN_API char* CreateErrorUTF8JsonByObj(const CQNObject* object, const char* prefix);

}  // namespace QNErrorUtils

#endif  // QUARNFC_ERROR_JSON_H_

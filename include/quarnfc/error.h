// SPDX-License-Identifier: MIT
// Error handles: how functions outside an object report failure across the module boundary.
//
// A handle is the address of an error object as an unsigned 64-bit integer; 0 means no error. Read
// it with qnGetErrorA or qnGetErrorW, release it with qnCloseHandle (plain.h). Texts are in the
// process ANSI code page. One thread at a time uses a handle.
//
// Ownership: whoever receives a handle closes it, once. Reading does not consume it;
// CreateErrorJson and CreateErrorUTF8JsonByHandle (error_json.h) do. A function that succeeds
// leaves its out-argument alone: start it with 0, and closing it is right in every case.
//
// Implemented in core/objects/error.cpp.
//
// Example:
//   const unsigned __int64 error =
//       QNErrorUtils::CreateError(CQNObject::eErrInvalidData, "bad length");
//   unsigned int code = 0;
//   char* message = qnGetErrorA(error, &code);
//   message;    // == "bad length"
//   code;       // == 5u
//   qnFreeMem(message);
//   qnCloseHandle(error);
#ifndef QUARNFC_ERROR_H_
#define QUARNFC_ERROR_H_

#include <quarnfc/export.h>
#include <quarnfc/object.h>
#include <quarnfc/plain.h>

namespace QNErrorUtils {

// A new error handle with the code and a copy of the message; a null message becomes the empty
// one. Throws std::bad_alloc.
QN_API unsigned __int64 CreateError(CQNObject::EErrorStatus code, const char* message);

// A new error handle with the code of source. Its message is text, one blank and the message of
// source; without text (null), the message of source. source is neither changed nor released.
// 0 for a null source, whose text is then not looked at. Throws std::bad_alloc.
QN_API unsigned __int64 CreateErrorFromObj(const CQNObject* source, const char* text);

}  // namespace QNErrorUtils

#endif  // QUARNFC_ERROR_H_

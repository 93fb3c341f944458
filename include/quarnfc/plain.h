/* SPDX-License-Identifier: MIT */
/* The plain function interface to error handles and memory, for C and C++ hosts and for hosts that
 * resolve the functions by name.
 *
 * An error handle is one 64-bit value: the address of an error object. 0 means no error. Reading a
 * handle does not consume it: close every handle once. One thread at a time uses a handle.
 *
 * Text is 8-bit in the process ANSI code page where a name ends in A or says nothing, UTF-16 where
 * it ends in W (wchar_t has 16 bits: off Windows with the compile option -fshort-wchar, which a
 * host that calls no such function can do without).
 *
 * Implemented in core/objects/error.cpp and core/text/path_join.cpp.
 *
 * Example:
 *   char* path = qnUnionPath("C:\\data\\maps", "..\\index.json");
 *   path;                        // == "C:\\data\\index.json"
 *   qnFreeMem(path);
 *   unsigned int code = 7;
 *   qnGetErrorA(0, &code);       // == nullptr
 *   code;                        // == 7u
 */
#ifndef QUARNFC_PLAIN_H_
#define QUARNFC_PLAIN_H_

#include <quarnfc/export.h>

#include <stddef.h>

#if defined(__cplusplus)
class CQNObject;
#else
typedef struct CQNObject CQNObject;
#endif

/* A new copy of the handle's message (ANSI code page), released with qnFreeMem; null for a null
 * handle. *code, when code is not null, receives the error code; a null handle leaves
 * it untouched. The message of the object must have been set: handles made by the library always
 * have one. An object without one reads as the empty text. */
QN_PLAIN_API char* qnGetErrorA(const CQNObject* handle, unsigned int* code);

/* The same with the message as UTF-16. Where wchar_t is wider than that, a call does not compile.
 */
QN_PLAIN_API wchar_t* qnGetErrorW(const CQNObject* handle, unsigned int* code) QN_WIDE_TEXT;

/* Releases an error handle, which is not used again; null is ignored. */
QN_PLAIN_API void qnCloseHandle(CQNObject* handle);

/* Releases a buffer that a function of this library returned for the caller to release with
 * qnFreeMem; null is ignored. Never pass it memory of the host's own, nor the library's memory to
 * the host's free. */
QN_PLAIN_API void qnFreeMem(void* buffer);

/* Joins a base folder and a path into a new path, released with qnFreeMem; null when an argument is
 * null or the path cannot be joined. Slashes become backslashes; leading ".\" and "..\" parts of
 * the path are resolved against the base; an absolute path (two backslashes in front, or a ":"
 * behind its first character) stays as it is. The file system is not looked at. */
QN_PLAIN_API char* qnUnionPath(const char* base, const char* path);

#if defined(__cplusplus)

#include <type_traits>

/* The same functions for a handle kept as an integer, as CreateError and the JSON file functions
 * give it. They are templates so that a literal 0 finds them without ambiguity. */
template <class Integer, std::enable_if_t<std::is_integral<Integer>::value, int> = 0>
char* qnGetErrorA(Integer handle, unsigned int* code) {
  return qnGetErrorA(reinterpret_cast<const CQNObject*>(static_cast<size_t>(handle)), code);
}

template <class Integer, std::enable_if_t<std::is_integral<Integer>::value, int> = 0>
wchar_t* qnGetErrorW(Integer handle, unsigned int* code) {
  return qnGetErrorW(reinterpret_cast<const CQNObject*>(static_cast<size_t>(handle)), code);
}

template <class Integer, std::enable_if_t<std::is_integral<Integer>::value, int> = 0>
void qnCloseHandle(Integer handle) {
  qnCloseHandle(reinterpret_cast<CQNObject*>(static_cast<size_t>(handle)));
}

#endif

#endif /* QUARNFC_PLAIN_H_ */

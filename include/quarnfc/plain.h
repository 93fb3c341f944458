/* The plain function interface to error handles and memory, for C and C++ hosts and for hosts that
 * resolve the functions by name.
 *
 * An error handle is one 64-bit value: the address of an error object. 0 means no error. Reading a
 * handle does not consume it. One thread at a time uses a handle.
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

/* A new copy of the handle's message (ANSI code page, or UTF-16), released with qnFreeMem; null
 * for a null handle. *code, when code is not null, receives the error code; a null handle leaves
 * it untouched. The message of the object must have been set: handles made by the library always
 * have one. An object without one reads as the empty text. */
QN_PLAIN_API char* qnGetErrorA(const CQNObject* handle, unsigned int* code);
QN_PLAIN_API wchar_t* qnGetErrorW(const CQNObject* handle, unsigned int* code);

/* Releases an error handle; null is ignored. */
QN_PLAIN_API void qnCloseHandle(CQNObject* handle);

/* Releases a buffer that a function of this library returned for the caller to release with
 * qnFreeMem; null is ignored. */
QN_PLAIN_API void qnFreeMem(void* buffer);

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

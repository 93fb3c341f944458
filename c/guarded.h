// SPDX-License-Identifier: MIT
// What every function of the flat C interface does around its work: no exception leaves it, and a
// failure becomes an error handle.
#ifndef QUARNFC_C_GUARDED_H_
#define QUARNFC_C_GUARDED_H_

#include <quarnfc/c/base.h>
#include <quarnfc/qn_string.h>

#include <new>

namespace quarnfc::c {

// A failure with its code and a message in the process ANSI code page.
class Failure {
 public:
  Failure(int code, const char* message) : code_(code), message_(message) {}

  int code() const { return code_; }
  const char* message() const { return message_; }

 private:
  int code_;
  CQNString message_;
};

// Stores a new handle in *error, when error is not null; null when there is no memory for one.
void StoreError(CQNObject** error, int code, const char* message) noexcept;

// The error that a library function has left as a number, as a failure; releases its handle.
Failure TakeFailure(unsigned long long handle);

// The argument, which must not be null.
template <class Type>
Type* Given(Type* argument) {
  if (argument == nullptr) throw Failure(QNC_ERROR_ARGUMENT, "Quarn: an argument is null");
  return argument;
}

// The result of work(), or failed with *error set.
template <class Result, class Work>
Result Guarded(CQNObject** error, Result failed, const Work& work) noexcept {
  if (error != nullptr) *error = nullptr;
  try {
    return work();
  } catch (const Failure& failure) {
    StoreError(error, failure.code(), failure.message());
  } catch (const std::bad_alloc&) {
    StoreError(error, QNC_ERROR_MEMORY, "Quarn: memory is exhausted");
  } catch (...) {
    StoreError(error, QNC_ERROR_INVALID_DATA, "Quarn: unexpected failure");
  }
  return failed;
}

// For functions whose result is a new buffer or a handle.
template <class Work>
auto GuardedNew(CQNObject** error, const Work& work) noexcept -> decltype(work()) {
  return Guarded<decltype(work())>(error, nullptr, work);
}

}  // namespace quarnfc::c

#endif  // QUARNFC_C_GUARDED_H_

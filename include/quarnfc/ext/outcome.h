// SPDX-License-Identifier: MIT
// What the library throws, as a value.
//
// Attempt calls a function and gives its result, or the problem it ended with: a
// CQNInternetException of the HTTP client (which it deletes), the char* texts of the string class's
// system-string conversions, std::bad_alloc and other standard exceptions. So a host that is built
// without exceptions in mind has one place where they end.
//
// Header-only, C++17. Texts of problems are in the ANSI code page. Any thread may call; an Outcome
// is used by one thread at a time. Needs a library with its HTTP client.
//
// Example:
//   CQNInternetSession session("MapClient");
//   const auto status = quarnfc::ext::Attempt([&] {
//     const std::unique_ptr<CQNHttpFile> page(session.OpenURL("http://maps.example/index.json"));
//     DWORD code = 0;
//     page->QueryInfoStatusCode(code);
//     return code;
//   });
//   if (!status) std::printf("%u: %s\n", status.Problem().code, status.Problem().message.c_str());
#ifndef QUARNFC_EXT_OUTCOME_H_
#define QUARNFC_EXT_OUTCOME_H_

#include <quarnfc/internet_exception.h>

#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace quarnfc::ext {

// Where a problem came from.
enum class ProblemKind {
  kInternet,  // CQNInternetException
  kMemory,    // std::bad_alloc, or a text of the string class about memory
  kStandard,  // another std::exception
  kUnknown,   // anything else
};

struct Problem {
  ProblemKind kind = ProblemKind::kUnknown;
  unsigned int code = 0;           // of kInternet: the platform's error
  unsigned long long context = 0;  // of kInternet: which of the host's requests failed
  std::string message;             // may be empty
};

// A result or a problem.
template <class T>
class Outcome {
 public:
  Outcome(T value) : value_(std::move(value)) {}
  Outcome(ext::Problem problem) : problem_(std::move(problem)) {}

  explicit operator bool() const { return value_.has_value(); }

  // The result; there must be one.
  T& Value() { return *value_; }
  const T& Value() const { return *value_; }

  // The result, or the fallback where there is none.
  T ValueOr(T fallback) const { return value_.value_or(std::move(fallback)); }

  // Says nothing where there is a result.
  const ext::Problem& Problem() const { return problem_; }

 private:
  std::optional<T> value_;
  ext::Problem problem_;
};

// Whether a function that returns nothing came to its end.
template <>
class Outcome<void> {
 public:
  Outcome() = default;
  Outcome(ext::Problem problem) : done_(false), problem_(std::move(problem)) {}

  explicit operator bool() const { return done_; }
  const ext::Problem& Problem() const { return problem_; }

 private:
  bool done_ = true;
  ext::Problem problem_;
};

namespace detail {

inline Problem FromInternet(CQNInternetException* caught) {
  const std::unique_ptr<CQNInternetException> exception(caught);
  char text[1024] = "";
  exception->GetErrorMessage(text, sizeof(text));
  return {ProblemKind::kInternet, exception->GetErrorCode(), exception->GetContext(), text};
}

// The problem that is being caught.
inline Problem CurrentProblem() {
  try {
    throw;
  } catch (CQNInternetException* exception) {
    return FromInternet(exception);
  } catch (const char* text) {
    return {ProblemKind::kMemory, 0, 0, text};
  } catch (const std::bad_alloc& exception) {
    return {ProblemKind::kMemory, 0, 0, exception.what()};
  } catch (const std::exception& exception) {
    return {ProblemKind::kStandard, 0, 0, exception.what()};
  } catch (...) {
    return {};
  }
}

}  // namespace detail

// Calls function() and gives what it returns, by value, or why it did not.
template <class Function>
auto Attempt(Function&& function) -> Outcome<std::decay_t<decltype(function())>> {
  try {
    if constexpr (std::is_void_v<decltype(function())>) {
      function();
      return {};
    } else {
      return {function()};
    }
  } catch (...) {
    return {detail::CurrentProblem()};
  }
}

}  // namespace quarnfc::ext

#endif  // QUARNFC_EXT_OUTCOME_H_

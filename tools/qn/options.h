// SPDX-License-Identifier: MIT
// A small, strict parser of command-line options.
//
// Options are `--name`, `--name VALUE`, `--name=VALUE`, `-x`, `-x VALUE`; they may stand between
// the other arguments. After `--` everything is positional. `-` alone and what looks like a
// negative number (`-7`, `-.5`) are positional.
#ifndef QN_OPTIONS_H_
#define QN_OPTIONS_H_

#include <cstddef>
#include <initializer_list>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qn {

enum class Takes {
  kNothing,
  kValue,
  kValues,  // one value each time; the option may be given again
};

struct OptionSpec {
  std::string_view name;  // without the dashes
  char letter = '\0';     // the short form; '\0' when there is none
  Takes takes = Takes::kNothing;
};

class Options {
 public:
  // Throws UsageError for an unknown option, a missing or an unwanted value and for an option
  // that is given twice.
  Options(std::span<const std::string> arguments, std::initializer_list<OptionSpec> known);

  bool Has(std::string_view name) const;

  // The value of an option, or fallback when it was not given.
  std::string Value(std::string_view name, std::string_view fallback = {}) const;

  // Every value of an option that may be given again, in order.
  std::vector<std::string> Values(std::string_view name) const;

  // The value as a decimal integer within the limits, or fallback when the option was not given.
  // Throws UsageError for anything else.
  long long Number(std::string_view name, long long fallback, long long least,
                   long long most) const;

  const std::vector<std::string>& Positional() const { return positional_; }

  // Throws UsageError unless least to most positional arguments were given.
  void ExpectPositional(std::size_t least, std::size_t most) const;

 private:
  std::map<std::string, std::vector<std::string>, std::less<>> values_;
  std::vector<std::string> positional_;
};

}  // namespace qn

#endif  // QN_OPTIONS_H_

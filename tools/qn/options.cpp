// SPDX-License-Identifier: MIT
#include "qn/options.h"

#include <algorithm>
#include <charconv>

#include "qn/console.h"
#include "qn/errors.h"

namespace qn {
namespace {

bool LooksLikeNumber(std::string_view argument) {
  return argument.size() > 1 && (argument[1] == '.' || (argument[1] >= '0' && argument[1] <= '9'));
}

bool IsOption(std::string_view argument) {
  return argument.size() > 1 && argument[0] == '-' && !LooksLikeNumber(argument);
}

bool Names(const OptionSpec& spec, std::string_view argument) {
  if (argument.substr(0, 2) == "--") return argument.substr(2) == spec.name;
  return argument.size() == 2 && spec.letter != '\0' && argument[1] == spec.letter;
}

const OptionSpec& Find(std::initializer_list<OptionSpec> known, std::string_view argument) {
  const auto spec = std::find_if(known.begin(), known.end(),
                                 [&](const OptionSpec& each) { return Names(each, argument); });
  if (spec == known.end()) throw UsageError("unknown option '" + DisplayText(argument) + "'");
  return *spec;
}

// One option as it stands on the command line, split at the "=" of a long one.
struct Given {
  explicit Given(std::string_view argument) : name(argument) {
    const std::size_t equals = argument.find('=');
    if (argument.substr(0, 2) != "--" || equals == std::string_view::npos) return;
    name = argument.substr(0, equals);
    value = argument.substr(equals + 1);
    has_value = true;
  }

  std::string_view name;
  std::string_view value;
  bool has_value = false;
};

}  // namespace

Options::Options(std::span<const std::string> arguments, std::initializer_list<OptionSpec> known) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--") {
      const auto rest = arguments.subspan(i + 1);
      positional_.insert(positional_.end(), rest.begin(), rest.end());
      return;
    }
    if (!IsOption(arguments[i])) {
      positional_.push_back(arguments[i]);
      continue;
    }
    Given given(arguments[i]);
    const OptionSpec& spec = Find(known, given.name);
    const std::string shown = "option '" + std::string(given.name) + "' ";
    if (spec.takes == Takes::kNothing) {
      if (given.has_value) throw UsageError(shown + "takes no value");
    } else if (!given.has_value) {
      if (++i == arguments.size()) throw UsageError(shown + "needs a value");
      given.value = arguments[i];
    }
    std::vector<std::string>& values = values_[std::string(spec.name)];
    if (!values.empty() && spec.takes != Takes::kValues) {
      throw UsageError(shown + "is given twice");
    }
    values.emplace_back(given.value);
  }
}

bool Options::Has(std::string_view name) const { return values_.find(name) != values_.end(); }

std::string Options::Value(std::string_view name, std::string_view fallback) const {
  const auto value = values_.find(name);
  return value == values_.end() ? std::string(fallback) : value->second.front();
}

std::vector<std::string> Options::Values(std::string_view name) const {
  const auto values = values_.find(name);
  return values == values_.end() ? std::vector<std::string>() : values->second;
}

long long Options::Number(std::string_view name, long long fallback, long long least,
                          long long most) const {
  if (!Has(name)) return fallback;
  const std::string text = Value(name);
  long long number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  if (result.ec != std::errc() || result.ptr != end || number < least || number > most) {
    throw UsageError("option '--" + std::string(name) + "' takes a whole number from " +
                     std::to_string(least) + " to " + std::to_string(most));
  }
  return number;
}

void Options::ExpectPositional(std::size_t least, std::size_t most) const {
  if (positional_.size() < least) throw UsageError("an argument is missing");
  if (positional_.size() > most) {
    throw UsageError("unexpected argument '" + DisplayText(positional_[most]) + "'");
  }
}

}  // namespace qn

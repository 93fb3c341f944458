// SPDX-License-Identifier: MIT
// The subcommands of qn json; json_command.cpp has their help.
#ifndef QN_JSON_COMMANDS_H_
#define QN_JSON_COMMANDS_H_

#include <optional>
#include <span>
#include <string>

#include "qn/options.h"
#include "qn/text/encoding.h"

namespace qn {

inline constexpr OptionSpec kEncodingOption = {"encoding", '\0', Takes::kValue};
inline constexpr OptionSpec kOutputOption = {"output", 'o', Takes::kValue};
inline constexpr OptionSpec kPathOption = {"path", 'p', Takes::kValue};
inline constexpr OptionSpec kIgnoreCaseOption = {"ignore-case", 'i'};

inline std::optional<Encoding> EncodingFrom(const Options& options) {
  if (!options.Has("encoding")) return std::nullopt;
  return EncodingFromName(options.Value("encoding"));
}

namespace json {

using Arguments = std::span<const std::string>;

int RunCheck(Arguments arguments);
int RunDelete(Arguments arguments);
int RunFormat(Arguments arguments);
int RunGet(Arguments arguments);
int RunKeys(Arguments arguments);
int RunLength(Arguments arguments);
int RunMerge(Arguments arguments);
int RunSet(Arguments arguments);
int RunShape(Arguments arguments);

}  // namespace json

}  // namespace qn

#endif  // QN_JSON_COMMANDS_H_

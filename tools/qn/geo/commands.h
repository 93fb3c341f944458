// SPDX-License-Identifier: MIT
// The subcommands of qn geo; geo_command.cpp has their help.
#ifndef QN_GEO_COMMANDS_H_
#define QN_GEO_COMMANDS_H_

#include <span>
#include <string>

namespace qn::geo {

using Arguments = std::span<const std::string>;

int RunCities(Arguments arguments);
int RunConvert(Arguments arguments);
int RunEstimate(Arguments arguments);
int RunInfo(Arguments arguments);
int RunWkt(Arguments arguments);

}  // namespace qn::geo

#endif  // QN_GEO_COMMANDS_H_

// SPDX-License-Identifier: MIT
// The subcommands of qn csv; csv_command.cpp has their help.
#ifndef QN_CSV_COMMANDS_H_
#define QN_CSV_COMMANDS_H_

#include <span>
#include <string>

namespace qn::csv {

using Arguments = std::span<const std::string>;

int RunColumns(Arguments arguments);
int RunCount(Arguments arguments);
int RunFilter(Arguments arguments);
int RunHead(Arguments arguments);
int RunSelect(Arguments arguments);
int RunStats(Arguments arguments);
int RunToJson(Arguments arguments);

}  // namespace qn::csv

#endif  // QN_CSV_COMMANDS_H_

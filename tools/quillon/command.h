#ifndef TOOLS_QUILLON_COMMAND_H_
#define TOOLS_QUILLON_COMMAND_H_

#include <functional>

#include "tools/quillon/exit_code.h"
#include "tools/quillon/session.h"

namespace CLI {
class App;
}

namespace fdo::tool {

// Runs a command whose options have been read.
// Errors: throws Failure, or FdoException* from below.
using Action = std::function<ExitCode(Session&)>;

struct Command {
  char const* name;
  char const* summary;
  char const* details;  // conventions and examples, at the end of the command's help
  // Declares the command's options; the action owns what they are stored in.
  Action (*define)(CLI::App& app);
};

Action DefineInfo(CLI::App& app);
Action DefineQuery(CLI::App& app);
Action DefineEval(CLI::App& app);
Action DefineStats(CLI::App& app);
Action DefineConvert(CLI::App& app);
Action DefineProviders(CLI::App& app);

extern char const kInfoDetails[];
extern char const kQueryDetails[];
extern char const kEvalDetails[];
extern char const kStatsDetails[];
extern char const kConvertDetails[];
extern char const kProvidersDetails[];

inline constexpr Command kCommands[] = {
    {"info", "Show the tables of a source, their columns, extent and coordinate system", kInfoDetails,
     DefineInfo},
    {"query", "Print rows: all, by condition, by box or by id", kQueryDetails, DefineQuery},
    {"eval", "Compute an expression or a filter, once or for each row of a table", kEvalDetails, DefineEval},
    {"stats", "Print statistics of columns", kStatsDetails, DefineStats},
    {"convert", "Write a table into another file, in any format that FDO or GDAL writes", kConvertDetails,
     DefineConvert},
    {"providers", "Show which FDO providers there are, and what is missing", kProvidersDetails,
     DefineProviders},
};

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_COMMAND_H_

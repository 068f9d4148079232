#include "tools/quillon/program.h"

#include <Fdo.h>
#include <fdo/db_pool.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <new>
#include <sstream>

#include "tools/quillon/command.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/suggestion.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

constexpr char kDescription[] =
    "Looks into vector data of any format that an FDO provider or GDAL reads, and converts it.\n"
    "A SOURCE is a path, another name that GDAL knows, or with --provider a connection string for FDO.";

constexpr char kExitCodes[] =
    "Exit codes: 0 done; 1 failed; 2 wrong usage; 3 a source cannot be opened; 4 done, but rows are missing\n"
    "or values were changed on the way.\n"
    "Data goes to the standard output, messages and progress to the standard error stream.\n"
    "\n"
    "  quillon info world.gpkg\n"
    "  quillon query world.gpkg --where \"pop > 1e8\" --select name_long,pop\n"
    "  quillon COMMAND --help";

// The command line with the action of each command, in the order of the table.
struct CommandLine {
  CLI::App app{kDescription, "quillon"};
  std::vector<Action> actions;
  bool verbose = false;

  CommandLine() {
    app.set_version_flag("--version", "quillon " QUILLON_VERSION);
    app.add_flag("-v,--verbose", verbose, "Show every message of the library");
    app.require_subcommand(1);
    app.fallthrough();
    app.footer(kExitCodes);
    for (Command const& command : kCommands) {
      CLI::App* const subcommand = app.add_subcommand(command.name, command.summary);
      subcommand->footer(command.details);
      actions.push_back(command.define(*subcommand));
    }
  }

  Action const& Chosen() const {
    std::size_t chosen = 0;
    while (!app.got_subcommand(kCommands[chosen].name)) ++chosen;
    return actions[chosen];
  }
};

// Every kind of exception that a command can end with, as a Failure.
Failure CurrentFailure() {
  try {
    throw;
  } catch (Failure const& failure) {
    return failure;
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    FdoString* const message = failure->GetExceptionMessage();
    return Unexpected(message == nullptr ? "" : Utf8(message));
  } catch (std::bad_alloc const&) {
    return Unexpected("there is not enough memory");
  } catch (std::exception const& failure) {
    return Unexpected(failure.what());
  } catch (char const* message) {
    // A row of the vector back end throws text when it is asked for what it did not read.
    return Unexpected(message);
  }
}

// The parser would say only that a command is missing.
// Errors: throws Failure when the first word is no command.
void CheckCommandName(std::vector<std::string> const& arguments) {
  auto const isWord = [](std::string const& argument) { return argument.rfind('-', 0) != 0; };
  auto const word = std::find_if(arguments.begin(), arguments.end(), isWord);
  if (word == arguments.end()) return;
  std::vector<std::wstring> names;
  std::wstring wanted;
  WideFromUtf8(*word, wanted);
  for (Command const& command : kCommands) {
    if (*word == command.name) return;
    WideFromUtf8(command.name, names.emplace_back());
  }
  throw NoSuchCommand(*word, Utf8(Suggest(wanted, names)));
}

ExitCode Run(std::vector<std::string> arguments, Session& session) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    std::wstring ignored;
    if (!WideFromUtf8(arguments[i], ignored)) throw NotUtf8(static_cast<int>(i) + 1);
  }
  CheckCommandName(arguments);
  CommandLine line;
  std::reverse(arguments.begin(), arguments.end());
  try {
    line.app.parse(arguments);
  } catch (CLI::ParseError const& error) {
    std::ostringstream help, ignored;
    if (line.app.exit(error, help, ignored) != 0) {
      auto const left = line.app.remaining(/*recurse=*/true);
      if (!left.empty() && left.front().rfind('-', 0) == 0) throw NoSuchOption(left.front());
      throw Usage(error.what());
    }
    session.output.Write(help.str());
    session.output.Flush();
    return ExitCode::kDone;
  }
  session.verbose = line.verbose;
  ExitCode const code = line.Chosen()(session);
  session.output.Flush();
  return code;
}

}  // namespace

ExitCode RunProgram(std::vector<std::string> arguments, std::FILE* out, std::FILE* err, bool errIsTerminal) {
  Output output(out);
  Console console(err, errIsTerminal);
  DiagnosticLog diagnostics;
  Session session{output, console, diagnostics, false};
  // What comes of closing a source is reported, too, so it is closed while somebody listens.
  struct Closing {
    ~Closing() { DbPool::CloseAllFreeConnections(); }
  };
  try {
    Closing const closing;
    ExitCode const code = Run(std::move(arguments), session);
    if (session.verbose) session.ShowDiagnostics();
    return code;
  } catch (...) {
    Failure const failure = CurrentFailure();
    session.ShowDiagnostics();
    console.Error(failure.message);
    return failure.code;
  }
}

}  // namespace fdo::tool

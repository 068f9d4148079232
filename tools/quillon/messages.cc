#include "tools/quillon/messages.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

constexpr std::size_t kListedNames = 10;

// A reason on one line, whatever line breaks it comes with, and without a full stop.
std::string WithDetail(std::string const& detail) {
  std::string line = OneLine(detail);
  if (!line.empty() && line.back() == '.') line.pop_back();
  return line.empty() ? "" : ": " + line;
}

// The question if there is somebody to ask about, else the list to choose from.
std::string DidYouMean(std::string const& suggestion, std::string const& kind,
                       std::vector<std::string> const& names) {
  if (!suggestion.empty()) return fmt::format("did you mean \"{}\"?", suggestion);
  return fmt::format("its {} are {}", kind, ListNames(names));
}

// The part of a text around the character at position, on one line, and a caret under that character.
std::string Excerpt(std::string const& text, int position) {
  constexpr int kBefore = 60, kBehind = 40;
  constexpr char kCut[] = "\xe2\x80\xa6";
  std::string shown;
  int column = 0;  // of the caret
  int number = 0;
  for (std::size_t at = 0; at < text.size(); ++number) {
    char32_t const character = NextCharacter(text, at);
    bool const isCutOff = number == position - kBefore && number > 0;
    if (number == position + kBehind)
      return shown + kCut + "\n  " + std::string(static_cast<std::size_t>(column), ' ') + '^';
    if (number < position - kBefore) continue;
    if (isCutOff) shown += kCut;
    AppendUtf8(shown, IsControl(character) ? U' ' : character);
    if (number < position) column += DisplayWidth(character) + (isCutOff ? 1 : 0);
  }
  return shown + "\n  " + std::string(static_cast<std::size_t>(column), ' ') + '^';
}

Failure DoesNotParse(char const* what, std::string const& text, std::string const& detail,
                     std::optional<int> position) {
  std::string message = fmt::format("the {} does not parse: {}", what, detail);
  message += "\n  " + (position ? Excerpt(text, *position) : text);
  return {ExitCode::kUsage, std::move(message)};
}

}  // namespace

Failure Usage(std::string const& detail) {
  return {ExitCode::kUsage, fmt::format("{}\nRun quillon --help or quillon COMMAND --help.", detail)};
}

Failure NoSuchCommand(std::string const& name, std::string const& suggestion) {
  return Usage(fmt::format("there is no command \"{}\"{}", name,
                           suggestion.empty() ? "" : fmt::format("; did you mean \"{}\"?", suggestion)));
}

Failure NoSuchOption(std::string const& name) {
  return Usage(
      fmt::format("there is no option {}; what begins with a minus and is none goes behind --", name));
}

Failure NotUtf8(int argument) {
  return {ExitCode::kUsage,
          fmt::format("argument {} is not UTF-8 text; set a UTF-8 locale or rename the file", argument)};
}

Failure BadBox(std::string const& text) {
  return {ExitCode::kUsage,
          fmt::format("\"{}\" is no box; write --bbox minx,miny,maxx,maxy with four numbers, the smaller "
                      "ones first",
                      text)};
}

Failure ColumnTwice(std::string const& name) {
  return {ExitCode::kUsage, fmt::format("column \"{}\" is selected twice; name each column once", name)};
}

Failure GdalMissing(std::string const& target) {
  return {ExitCode::kFailed,
          fmt::format("{} can only be written by GDAL, which is not installed; a .sqlite file needs no GDAL",
                      target)};
}

Failure UnknownFormat(std::string const& target) {
  return {ExitCode::kUsage, fmt::format("the name \"{}\" does not tell a format that can be written; name a "
                                        "GDAL driver with --format, such as --format GPKG",
                                        target)};
}

Failure SourceIsPipe(std::string const& source) {
  return {
      ExitCode::kCannotOpen,
      fmt::format("{} is a pipe; vector data is read from files, and from the standard input as /vsistdin/",
                  source)};
}

Failure SourceMissing(std::string const& source) {
  return {ExitCode::kCannotOpen, fmt::format("{} does not exist; check the path", source)};
}

Failure SourceUnreadable(std::string const& source, std::string const& detail) {
  return {ExitCode::kCannotOpen,
          fmt::format("{} cannot be opened as vector data{}. Check that the file is complete, "
                      "readable and of a format that GDAL knows",
                      source, WithDetail(detail))};
}

Failure ProviderFailed(std::string const& source, std::string const& provider, std::string const& detail) {
  return {ExitCode::kCannotOpen,
          fmt::format("{} cannot be opened through the provider {}{}. quillon providers "
                      "shows those that can be used",
                      source, provider, WithDetail(detail))};
}

Failure PathIsNoConnectionString(std::string const& path, std::wstring const& connectionString) {
  return {ExitCode::kCannotOpen,
          fmt::format("{} is a path, but with --provider the source is a connection string, such as '{}'",
                      path, Utf8(connectionString.c_str()))};
}

Failure NoTables(std::string const& source) {
  return {ExitCode::kFailed, fmt::format("{} has no tables", source)};
}

Failure NoSuchTable(std::string const& source, std::string const& name, std::string const& suggestion,
                    std::vector<std::string> const& tables) {
  return {ExitCode::kFailed,
          fmt::format("{} has no table \"{}\"; {}", source, name, DidYouMean(suggestion, "tables", tables))};
}

Failure TableNotNamed(std::string const& source, std::vector<std::string> const& tables) {
  return {ExitCode::kUsage, fmt::format("{} has {} tables; choose one with --table: {}", source,
                                        tables.size(), ListNames(tables))};
}

Failure NoSuchColumn(std::string const& table, std::string const& name, std::string const& suggestion,
                     std::vector<std::string> const& columns) {
  return {ExitCode::kFailed, fmt::format("{} has no column \"{}\"; {}", table, name,
                                         DidYouMean(suggestion, "columns", columns))};
}

Failure NoSuchRow(std::string const& table, std::int64_t id) {
  return {ExitCode::kFailed, fmt::format("{} has no row with id {}", table, id)};
}

Failure NoSuchPosition(std::string const& table, std::uint64_t position, std::uint64_t count) {
  return {ExitCode::kFailed, fmt::format("there is no row {}: the result has {} from {}", position,
                                         count == 1 ? "1 row" : std::to_string(count) + " rows", table)};
}

Failure NoOrder(std::string const& table, std::string const& column, std::string const& type) {
  return {ExitCode::kFailed, fmt::format("rows cannot be ordered by column \"{}\" of {}, which is of type {}",
                                         column, table, type)};
}

Failure CannotOrder(std::string const& source) {
  return {ExitCode::kFailed,
          fmt::format("{} does not order its rows; convert it into a .sqlite file and query "
                      "that",
                      source)};
}

Failure NoIntegerId(std::string const& table) {
  return {ExitCode::kFailed,
          fmt::format("{} has no whole numbers as ids, so --id cannot be used; use --where", table)};
}

Failure NoGeometry(std::string const& table, std::string const& option) {
  return {ExitCode::kFailed, fmt::format("{} has no geometry column, so {} cannot be used", table, option)};
}

Failure NoStatistics(std::string const& table, std::string const& column, std::string const& type) {
  return {ExitCode::kFailed,
          fmt::format("column \"{}\" of {} is of type {}, which has no statistics; quillon "
                      "info shows the extent of a geometry column",
                      column, table, type)};
}

Failure BadFilter(std::string const& text, std::string const& detail, std::optional<int> position) {
  return DoesNotParse("filter", text, detail, position);
}

Failure FilterRefused(std::string const& source, std::string const& detail) {
  return {ExitCode::kFailed,
          fmt::format("{} cannot be asked with this filter{}", source, WithDetail(detail))};
}

Failure BadExpression(std::string const& text, std::string const& detail, std::optional<int> position) {
  return DoesNotParse("expression", text, detail, position);
}

Failure NoSuchFunction(std::string const& name) {
  return {ExitCode::kUsage,
          fmt::format("there is no function \"{}\"; quillon eval --help lists the functions", name)};
}

Failure WrongArgumentCount(std::string const& function, int count) {
  return {ExitCode::kUsage,
          fmt::format("the function {} does not take {} argument{}", function, count, count == 1 ? "" : "s")};
}

Failure CannotCompute(std::string const& text, std::string const& detail) {
  return {ExitCode::kFailed, fmt::format("{} cannot be computed{}", text, WithDetail(detail))};
}

Failure NoValue(std::string const& name, std::string const& suggestion) {
  return {ExitCode::kFailed,
          suggestion.empty()
              ? fmt::format("\"{0}\" has no value; give it one with --set {0}=VALUE, or name a source", name)
              : fmt::format("\"{}\" has no value; did you mean \"{}\"?", name, suggestion)};
}

Failure BadAssignment(std::string const& text) {
  return {ExitCode::kUsage, fmt::format("\"{}\" sets nothing; write --set name=value", text)};
}

Failure SetTwice(std::string const& name) {
  return {ExitCode::kUsage, fmt::format("\"{}\" is set twice; set each name once", name)};
}

Failure QueryFailed(std::string const& source) {
  return {ExitCode::kFailed, fmt::format("the query of {} failed for the reason above", source)};
}

Failure ColumnsUnread(std::string const& source, std::vector<std::string> const& columns) {
  return {ExitCode::kPartlyDone,
          fmt::format("reading {} met an error; there are no statistics of {}", source, ListNames(columns))};
}

Failure RowsMissing(std::string const& source, std::string const& detail) {
  return {ExitCode::kPartlyDone, fmt::format("reading {} met an error{}; rows or values may be missing",
                                             source, WithDetail(detail))};
}

std::string CoordinatesAsTheyAre(std::string const& coordinateSystem) {
  return fmt::format(
      "coordinates are written as they are, in \"{}\"; most readers of GeoJSON expect longitude "
      "and latitude on WGS 84",
      coordinateSystem);
}

Failure CannotWriteOutput(int systemError) {
  std::string const reason =
      systemError == 0 ? std::string("unknown error") : std::generic_category().message(systemError);
  std::string const advice =
      systemError == EPIPE ? "the program that reads it has ended" : "the output is incomplete";
  return {ExitCode::kFailed, fmt::format("cannot write to the standard output: {}; {}", reason, advice)};
}

Failure TargetExists(std::string const& target) {
  return {ExitCode::kFailed,
          fmt::format("{} exists; give another name or --overwrite to replace it", target)};
}

Failure TargetIsNoFile(std::string const& target, bool isFolder) {
  return {ExitCode::kFailed, fmt::format("{} is {}, which is never replaced; give another name", target,
                                         isFolder ? "a folder" : "no ordinary file")};
}

Failure TargetIsSource(std::string const& target) {
  return {ExitCode::kUsage, fmt::format("{} is the source itself; give another name for the target", target)};
}

Failure TargetFolderMissing(std::string const& folder) {
  return {ExitCode::kFailed, fmt::format("the folder {} does not exist; create it first", folder)};
}

Failure CannotCreate(std::string const& target, std::string const& driver, std::string const& detail) {
  return {ExitCode::kFailed, fmt::format("cannot create {} with driver {}{}; nothing was written", target,
                                         driver, WithDetail(detail))};
}

Failure CannotFinish(std::string const& target) {
  return {ExitCode::kFailed,
          fmt::format("{} could not be written for the reason above; nothing was kept", target)};
}

Failure CannotReadBack(std::string const& target, std::string const& detail) {
  return {ExitCode::kFailed,
          fmt::format("what was written for {} cannot be read back{}; nothing was kept. --no-check keeps it "
                      "unread",
                      target, WithDetail(detail))};
}

Failure RowsLost(std::string const& target, std::int64_t missing, std::int64_t written) {
  return {ExitCode::kFailed,
          fmt::format("{} of {} rows are not to be found in what was written for {}; nothing was "
                      "kept. Look whether the disk is full; --no-check keeps what there is",
                      missing, written, target)};
}

Failure CannotPlace(std::string const& target, std::string const& detail) {
  return {ExitCode::kFailed, fmt::format("cannot put the result in place as {}{}; nothing was kept", target,
                                         WithDetail(detail))};
}

Failure NothingWritten(std::string const& target, std::int64_t rows, std::string const& detail) {
  return {ExitCode::kFailed, fmt::format("none of {} rows could be written to {}{}; nothing was kept", rows,
                                         target, WithDetail(detail))};
}

Failure Interrupted(std::string const& target) {
  return {ExitCode::kFailed, fmt::format("interrupted; {} was not written", target)};
}

Failure Unexpected(std::string const& detail) {
  return {ExitCode::kFailed, detail.empty() ? "the operation failed without a message" : detail};
}

std::string OneLine(std::string const& text) {
  std::string line;
  for (char c : text) {
    bool const isBlank = c == ' ' || c == '\n' || c == '\r' || c == '\t';
    if (!isBlank) {
      line += c;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  if (!line.empty() && line.back() == ' ') line.pop_back();
  return line;
}

std::string ListNames(std::vector<std::string> const& names) {
  std::size_t const shown = names.size() > kListedNames + 1 ? kListedNames : names.size();
  std::string list;
  for (std::size_t i = 0; i < shown; ++i) {
    if (i > 0) list += ", ";
    list += names[i];
  }
  if (shown < names.size()) list += fmt::format(" and {} more", names.size() - shown);
  return list;
}

}  // namespace fdo::tool

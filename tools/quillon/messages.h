// Everything that the program says when something is not as it should be. Texts in the arguments are
// UTF-8.
#ifndef TOOLS_QUILLON_MESSAGES_H_
#define TOOLS_QUILLON_MESSAGES_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/quillon/failure.h"

namespace fdo::tool {

// --- Command line -----------------------------------------------------------------------------
Failure Usage(std::string const& detail);
Failure NoSuchCommand(std::string const& name, std::string const& suggestion);
Failure NoSuchOption(std::string const& name);
Failure NotUtf8(int argument);
Failure BadBox(std::string const& text);
Failure ColumnTwice(std::string const& name);
Failure GdalMissing(std::string const& target);
Failure UnknownFormat(std::string const& target);

// --- Sources ----------------------------------------------------------------------------------
Failure SourceIsPipe(std::string const& source);
Failure SourceMissing(std::string const& source);
// detail: what the back end says, or "".
Failure SourceUnreadable(std::string const& source, std::string const& detail);
Failure ProviderFailed(std::string const& source, std::string const& provider, std::string const& detail);
// Of a file that was given where a provider takes a connection string, which that might be.
Failure PathIsNoConnectionString(std::string const& path, std::wstring const& connectionString);
Failure NoTables(std::string const& source);
Failure NoSuchTable(std::string const& source, std::string const& name, std::string const& suggestion,
                    std::vector<std::string> const& tables);
Failure TableNotNamed(std::string const& source, std::vector<std::string> const& tables);
Failure NoSuchColumn(std::string const& table, std::string const& name, std::string const& suggestion,
                     std::vector<std::string> const& columns);
Failure NoSuchRow(std::string const& table, std::int64_t id);
Failure NoSuchPosition(std::string const& table, std::uint64_t position, std::uint64_t count);
Failure NoOrder(std::string const& table, std::string const& column, std::string const& type);
Failure CannotOrder(std::string const& source);
Failure NoIntegerId(std::string const& table);
Failure NoGeometry(std::string const& table, std::string const& option);
Failure NoStatistics(std::string const& table, std::string const& column, std::string const& type);

// --- Filters ----------------------------------------------------------------------------------
// position: of the error in text, in characters, if it is known; a caret is set under it.
Failure BadFilter(std::string const& text, std::string const& detail, std::optional<int> position);
Failure FilterRefused(std::string const& source, std::string const& detail);

// --- Expressions ------------------------------------------------------------------------------
Failure BadExpression(std::string const& text, std::string const& detail, std::optional<int> position);
Failure NoSuchFunction(std::string const& name);
Failure WrongArgumentCount(std::string const& function, int count);
Failure CannotCompute(std::string const& text, std::string const& detail);
Failure NoValue(std::string const& name, std::string const& suggestion);
Failure BadAssignment(std::string const& text);
Failure SetTwice(std::string const& name);

// The library gave its reasons in lines of their own.
Failure QueryFailed(std::string const& source);
// columns: those of which nothing can be said.
Failure ColumnsUnread(std::string const& source, std::vector<std::string> const& columns);
// detail: what the back end says, or "".
Failure RowsMissing(std::string const& source, std::string const& detail);
std::string CoordinatesAsTheyAre(std::string const& coordinateSystem);

// --- Work -------------------------------------------------------------------------------------
Failure CannotWriteOutput(int systemError);
Failure TargetExists(std::string const& target);
// Of a folder, a device, a pipe or a socket.
Failure TargetIsNoFile(std::string const& target, bool isFolder);
Failure TargetIsSource(std::string const& target);
Failure TargetFolderMissing(std::string const& folder);
Failure CannotCreate(std::string const& target, std::string const& driver, std::string const& detail);
// The library gave its reasons in lines of their own.
Failure CannotFinish(std::string const& target);
Failure CannotReadBack(std::string const& target, std::string const& detail);
Failure RowsLost(std::string const& target, std::int64_t missing, std::int64_t written);
Failure CannotPlace(std::string const& target, std::string const& detail);
Failure NothingWritten(std::string const& target, std::int64_t rows, std::string const& detail);
Failure Interrupted(std::string const& target);
// What FDO or the library threw at the program.
Failure Unexpected(std::string const& detail);

// "a, b and 12 more": names for a message, at most ten of them.
std::string ListNames(std::vector<std::string> const& names);

// The text with each run of blanks and line breaks as one space.
std::string OneLine(std::string const& text);

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_MESSAGES_H_

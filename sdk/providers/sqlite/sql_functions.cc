#include "sdk/providers/sqlite/sql_functions.h"

#include <exception>
#include <new>
#include <string>

#include "FdoCommon.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {
namespace {

int Register(sqlite3* database, SqlFunction const& function) {
  int const flags = SQLITE_UTF8 | SQLITE_DIRECTONLY | (function.fixed ? SQLITE_DETERMINISTIC : 0);
  return sqlite3_create_function_v2(database, function.name, function.arity, flags, nullptr, function.run,
                                    function.step, function.finish, nullptr);
}

void ReportMessage(sqlite3_context* context, std::string const& message) {
  sqlite3_result_error(context, message.data(), static_cast<int>(message.size()));
}

}  // namespace

int RegisterSqlFunctions(sqlite3* database) {
  for (auto const* functions : {&NumberFunctions(), &TextFunctions(), &GeometryFunctions(),
                                &AggregateFunctions(), &VisitFunctions()}) {
    for (SqlFunction const& function : *functions) {
      if (int const code = Register(database, function); code != SQLITE_OK) return code;
    }
  }
  return SQLITE_OK;
}

void ReportSqlError(sqlite3_context* context) {
  try {
    throw;
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    FdoString* const message = failure->GetExceptionMessage();
    ReportMessage(context, fdo_sdk::Utf8FromWide(message == nullptr ? L"" : message));
  } catch (std::bad_alloc const&) {
    sqlite3_result_error_nomem(context);
  } catch (std::exception const& failure) {
    ReportMessage(context, failure.what());
  }
}

}  // namespace fdo_sqlite

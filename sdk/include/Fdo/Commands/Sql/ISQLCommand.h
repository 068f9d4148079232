// The command that hands a statement of the data store's own language through.
#ifndef FDO_COMMANDS_SQL_ISQL_COMMAND_H_
#define FDO_COMMANDS_SQL_ISQL_COMMAND_H_

#include "Fdo/Commands/ICommand.h"
#include "FdoStd.h"

class FdoISQLDataReader;

class FDO_API FdoISQLCommand : public FdoICommand {
 public:
  virtual FdoString* GetSQLStatement() = 0;
  virtual void SetSQLStatement(FdoString* value) = 0;
  virtual FdoInt32 ExecuteNonQuery() = 0;
  virtual FdoISQLDataReader* ExecuteReader() = 0;
  virtual FdoInt32 GetFetchSize() { return 0; }
  virtual void SetFetchSize(FdoInt32 /*fetchSize*/) {}
};

#endif  // FDO_COMMANDS_SQL_ISQL_COMMAND_H_

// Files for the tests of the provider, and connections to them.
#ifndef SDK_PROVIDERS_SQLITE_TEST_STORE_H_
#define SDK_PROVIDERS_SQLITE_TEST_STORE_H_

#include <string>

#include "Fdo.h"
#include "sdk/providers/sqlite/connection.h"
#include "sdk/runtime/core/utf8.h"
#include "testing/sqlite_file.h"

namespace fdo_sqlite {

class TestStore : public fdo::SqliteFile {
 public:
  // Open, with further settings such as L"UseFdoMetadata=TRUE".
  FdoPtr<Connection> Open(std::wstring const& settings = L"UseFdoMetadata=TRUE") const {
    FdoPtr<Connection> connection(new Connection());
    connection->SetConnectionString((L"File=\"" + File() + L"\";" + settings).c_str());
    connection->Open();
    return connection;
  }
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_TEST_STORE_H_

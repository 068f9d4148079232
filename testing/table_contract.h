// One suite of claims about Database and Table that every implementation of them has to keep. An
// implementation joins with a TableFixture:
//
//   INSTANTIATE_TEST_SUITE_P(Every, TableContract, ::testing::ValuesIn(kFixtures), TableFixtureName);
//
// in a test that has the table_contract*.cc among its sources. Where implementations are allowed to
// differ the fixture says how, and the claims hold it to that; docs/back_ends.md lists the differences.
#ifndef TESTING_TABLE_CONTRACT_H_
#define TESTING_TABLE_CONTRACT_H_

#include <Fdo.h>
#include <fdo/database.h>
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "testing/contract_rows.h"

namespace fdo {

// A store with one table "town", open.
class ContractStore {
 public:
  virtual ~ContractStore() = default;
  virtual Database& Db() = 0;
};

enum class Access { kRead, kWrite };

// What is in a cell outside the desired fields when it is asked for.
enum class NotDesired { kUndefined, kThrowsLogicError };

struct TableFixture {
  char const* name;
  // A new store whose table has the columns of SetContractSchema, in any order and among others, and
  // those rows; freshly opened, so that nothing of the writing is left in it. Failures are those of the
  // test.
  std::unique_ptr<ContractStore> (*make)(TableFixture const& fixture, std::vector<ContractRow> const& rows,
                                         Access access);
  char const* fileName;       // for the factory; null for a store without files
  wchar_t const* schemaName;  // of the table; "" when it has none
  bool tellsNewId;            // Insert gives the identity; otherwise it gives 0 and the row has another
  bool nullText;              // null text is not empty text
  bool ownOrder;              // rows come in the order in which they were written
  bool orders;                // a query can be ordered by a column
  bool boxMeetsEnvelope;      // a box selects by envelopes; otherwise by the geometries themselves
  bool filterKeepsBox;        // a query or a count by filter stays inside the last box
  bool countEndsQuery;        // counting rows ends the running query
  bool extentEndsQuery;       // so does measuring them
  bool deleteKeepsIds;        // otherwise rows behind a deleted one move up when the next query starts
  bool deletesByFilter;       // Delete(filter) may be called
  bool updatesById;           // Update(row, id) works; otherwise it is false and nothing changes
  bool updateHeedsFilter;     // Update(row, filter) changes what matches; otherwise the row of the row's id
  NotDesired notDesired;
  // Why there cannot be such a store here, so that its tests are skipped; null for one that always can be,
  // and the result is null where this one can.
  char const* (*absence)() = nullptr;
};

inline std::ostream& operator<<(std::ostream& out, TableFixture const& fixture) {
  return out << fixture.name;
}

inline std::string TableFixtureName(::testing::TestParamInfo<TableFixture> const& info) {
  return info.param.name;
}

// Null for a null text.
FdoPtr<FdoFilter> ParsedFilter(wchar_t const* text);

class TableContract : public ::testing::TestWithParam<TableFixture> {
 protected:
  void SetUp() override {
    if (GetParam().absence == nullptr) return;
    if (char const* const reason = GetParam().absence()) GTEST_SKIP() << reason;
  }
  // Opens a new store with those rows.
  void Make(std::vector<ContractRow> const& rows, Access access = Access::kRead);
  Table& Town() { return *town_; }

  // The rows that the running query still gives.
  std::vector<ScannedRow> Rest() { return ScanRest(*town_); }
  std::vector<ScannedRow> All();
  // Those of all rows that accept lets through, in their order.
  template <class Accept>
  std::vector<ScannedRow> AllWhere(Accept accept) {
    std::vector<ScannedRow> found;
    for (ScannedRow const& row : All()) {
      if (accept(row)) found.push_back(row);
    }
    return found;
  }

  std::unique_ptr<ContractStore> store_;
  Table* town_ = nullptr;  // of the store
};

}  // namespace fdo

#endif  // TESTING_TABLE_CONTRACT_H_

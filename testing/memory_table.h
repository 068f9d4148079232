// A Database and its Tables in memory: a back end for tests of what is built on these interfaces.
#ifndef TESTING_MEMORY_TABLE_H_
#define TESTING_MEMORY_TABLE_H_

#include <fdo/database.h>
#include <fdo/table.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace fdo {

// A MemoryTable keeps its records in a vector that a test fills, fetches cells one by one as a store
// does, writes down what is asked of it, and fails when told to. Text and bytes are lent to the row and
// freed when the cursor moves, so that a sanitizer sees who keeps them too long.
//
// Errors: fetching a column that SetDesiredFields excluded from the query throws std::logic_error, as does
// what FailAtCall sets.
class MemoryTable : public Table {
 public:
  using Cells = std::vector<Value>;

  // Borrowed: def must outlive the table.
  explicit MemoryTable(TableDef const* def) : Table(def), row_(this) {}

  // For a test to set up: the records, each with a cell for each column, and which of them match a
  // filter that is not null (all of them while this is empty).
  std::vector<Cells> records;
  std::function<bool(FdoFilter*, Cells const&)> matches;

  // The nth call from now on (1: the next) to an operation that reads or writes calls fail first, which
  // is to throw.
  void FailAtCall(int n, std::function<void()> fail);

  // For a test to look at.
  int FetchCount() const { return fetchCount_; }
  // The queries, ends and restrictions in order: "Query", "Query filter", "Query filter order by name
  // descending", "Query id 7", "Query box", "QueryRange 1 5", "EndQuery", "SetDesiredFields 1 2",
  // "SetDesiredFields all", "GetRowCount", "GetRowCount scan".
  std::vector<std::string> const& Calls() const { return calls_; }
  void ForgetCalls() { calls_.clear(), fetchCount_ = 0; }

  bool Insert(Row const& row, __int64* newId, bool storeMakesId) override;
  __int64 Update(Row const& row, FdoFilter* filter) override;
  bool Update(Row const& row, __int64 id) override;
  __int64 Delete(FdoFilter* filter) override;
  bool Delete(__int64 id) override;
  void Query(FdoFilter* filter, wchar_t const* orderBy, bool ascending) override;
  Row const* Query(__int64 id) override;
  void Query(double const* const box, FdoFilter* filter) override;
  void Query() override;
  void QueryRange(__int64 first, __int64 last) override;
  void EndQuery() override;
  __int64 GetRowCount(FdoFilter* filter, bool allowScan) override;
  Row const* Next() override;
  Row const& At() override { return row_; }
  using Table::SetDesiredFields;
  void SetDesiredFields(int const* columns, int count) override;

 protected:
  void FetchCurrentValue(Value& cell, int column) const override;

 private:
  void Called(std::string call);
  void CountCall() const;
  bool Matches(FdoFilter* filter, Cells const& cells) const;
  __int64 IdOf(Cells const& cells) const;
  __int64 NextId() const;
  // Starts a query over the records that accept lets through.
  template <class Accept>
  void Start(Accept accept);
  template <class Accept>
  __int64 UpdateWhere(Row const& row, Accept accept);

  Row row_;
  std::vector<std::size_t> result_;  // positions of the running query's records
  std::size_t next_ = 0;             // in result_
  Cells lent_;                       // the current record, as the row sees it
  std::vector<int> desired_;         // for later queries; empty: all
  std::vector<int> shown_;           // for the running query; empty: all
  mutable int fetchCount_ = 0;
  mutable int callsUntilFailure_ = 0;
  std::function<void()> fail_;
  std::vector<std::string> calls_;
};

// A MemoryDatabase is connected from the start, to a copy of a schema.
class MemoryDatabase : public Database {
 public:
  explicit MemoryDatabase(DatabaseDef const& def) { SetSchema(def); }
  ~MemoryDatabase() override { ClearSchema(); }
  MemoryDatabase(MemoryDatabase const&) = delete;
  MemoryDatabase& operator=(MemoryDatabase const&) = delete;

  bool Connect(wchar_t const* source, wchar_t const* provider, wchar_t const* configuration, bool readOnly,
               bool loadSchema) override;
  void Disconnect() override { ClearSchema(); }
  bool SetSchema(DatabaseDef const& def) override;
  // A table over the same records as they are now.
  Table* DuplicateTable(Table* table) override;
  void DestroyTable(Table* table) override { delete table; }

  // Requires: 0 <= i && i < Count()
  MemoryTable& At(int i) { return static_cast<MemoryTable&>((*this)[i]); }
};

}  // namespace fdo

#endif  // TESTING_MEMORY_TABLE_H_

// The rows that the contract of tables is tried on, and what a scan makes of them.
#ifndef TESTING_CONTRACT_ROWS_H_
#define TESTING_CONTRACT_ROWS_H_

#include <fdo/row.h>
#include <fdo/schema.h>
#include <fdo/table.h>

#include <array>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace fdo {

struct ContractRow {
  int n;                             // tells the rows apart
  std::optional<std::wstring> name;  // nothing is a null cell
  std::optional<double> x;
  std::string geometry;  // for the geometry builder
};

// The definition "id:Int64 shape:Geometry name:String n:Int32 x:Double" of a table "town" in a schema
// "test".
void SetContractSchema(DatabaseDef& def);

// Sets every cell but the identity, whatever columns the back end added.
void SetContractRow(Row& row, ContractRow const& from);

// Inserts the rows in one bracket of writes. Failures are those of the test.
void InsertContractRows(Table& table, std::vector<ContractRow> const& rows);

// Random rows from a fixed seed: n without order, names with repetitions and nulls, x in eighths with
// nulls, and horizontal lines between whole positions, which are their own envelopes. So every back
// end gives back every cell as it was.
std::vector<ContractRow> RandomContractRows();

// A row as a scan shows it, with nothing borrowed.
struct ScannedRow {
  __int64 id;
  __int64 n;
  std::optional<std::wstring> name;
  std::optional<double> x;
  std::array<double, 4> box;  // minX, minY, maxX, maxY

  bool operator==(ScannedRow const& right) const {
    return id == right.id && n == right.n && name == right.name && x == right.x && box == right.box;
  }
};
std::ostream& operator<<(std::ostream& out, ScannedRow const& row);

ScannedRow Scanned(Row const& row);
// Reads the running query to its end.
std::vector<ScannedRow> ScanRest(Table& table);

bool BoxesMeet(std::array<double, 4> const& a, double const* b);

}  // namespace fdo

#endif  // TESTING_CONTRACT_ROWS_H_

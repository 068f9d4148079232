// Files with a few known rows, for the tests of this back end.
#ifndef OGR_BACKEND_OGR_TEST_FILES_H_
#define OGR_BACKEND_OGR_TEST_FILES_H_

#include <fdo/database_ogr.h>
#include <fdo/row.h>

#include <string>
#include <vector>

#include "ogr_backend/ogr_test_formats.h"
#include "testing/scratch_directory.h"

class FdoFilter;

namespace fdo {

// The rows of the town table. A null pointer is a null cell.
struct Town {
  wchar_t const* name;
  int n;
  long long big;
  double x;
  wchar_t const* date;
  bool flag;
  char const* geometry;  // for the geometry builder
};

// Point, and every trap of text: case, an apostrophe, a wildcard, letters outside ASCII and outside the
// basic plane, emptiness.
std::vector<Town> const& Towns();

// The definition "id:Int64 shape:Geometry name:String n:Int32 big:Int64 x:Double d:DateTime
// flag:Boolean".
void SetTownSchema(DatabaseDef& def);

// Sets the cells of a row over the table, whatever columns the format added.
void SetTown(Row& row, Town const& town);
// An owned FGF stream in the geometry cell.
void SetGeometry(Row& row, std::string const& text);

// Writes the rows to a new file of that format and closes it. Failures are those of the test; where GDAL is
// missing and may be there is no file and no failure.
std::wstring WriteTowns(ScratchDirectory const& scratch, OgrFormat const& format,
                        std::vector<Town> const& towns = Towns());

// The names of all rows that the running query of the table gives, "null" for a null, in the order of
// the texts.
std::vector<std::wstring> NamesOf(Table& table);
std::vector<std::wstring> NamesWhere(Table& table, wchar_t const* filter);

// Column positions by name, for tables that have the columns above.
int ColumnOf(Table const& table, wchar_t const* name);

}  // namespace fdo

#endif  // OGR_BACKEND_OGR_TEST_FILES_H_

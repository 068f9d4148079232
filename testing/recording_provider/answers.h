// What a recording provider answers, as a test states it.
#ifndef TESTING_RECORDING_PROVIDER_ANSWERS_H_
#define TESTING_RECORDING_PROVIDER_ANSWERS_H_

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "Fdo.h"
#include "testing/memory_provider/reader.h"
#include "testing/memory_provider/store.h"

namespace recording_provider {

using memory_provider::SpatialContext;

// One value of an answer; nullptr is null. A number, a flag or a text becomes a value of its column's type;
// bytes are a geometry, a BLOB or a CLOB, as the column is.
class Cell {
 public:
  Cell(std::nullptr_t) {}
  Cell(bool flag) : content_(flag) {}
  Cell(int number) : content_(std::int64_t{number}) {}
  Cell(std::int64_t number) : content_(number) {}
  Cell(double number) : content_(number) {}
  Cell(wchar_t const* text) : content_(std::wstring(text)) {}
  Cell(FdoDateTime time) : content_(time) {}
  Cell(std::vector<unsigned char> bytes) : content_(bytes) {}

  // Null for null. Errors: FdoException* for what cannot be a value of the column.
  FdoPtr<FdoLiteralValue> ValueFor(memory_provider::Column const& column) const;

 private:
  std::variant<std::nullptr_t, bool, std::int64_t, double, std::wstring, FdoDateTime,
               std::vector<unsigned char>>
      content_ = nullptr;
};

// A property of a class, and a column of what a reader holds.
struct Property : memory_provider::Column {
  std::wstring description;     // of an identity property: the tag of its table
  std::wstring spatialContext;  // of a geometry
};
Property Id(wchar_t const* name, FdoDataType type = FdoDataType_Int64, wchar_t const* description = L"");
Property Data(wchar_t const* name, FdoDataType type);
Property Geometry(wchar_t const* name, wchar_t const* spatialContext = L"");

// What a reader holds:
//   Rows({Id(L"id"), Geometry(L"shape")}).Add({1, bytes}).Add({2, nullptr})
class Rows {
 public:
  Rows() = default;
  explicit Rows(std::vector<Property> const& columns) : columns_(columns.begin(), columns.end()) {}

  // Requires: a cell for each column.
  Rows& Add(std::vector<Cell> cells);

  // The columns of these names in this order, all of them when there are no names.
  // Errors: FdoCommandException*, naming the column that there is not.
  memory_provider::Result Selected(std::vector<std::wstring> const& names) const;

 private:
  std::vector<memory_provider::Column> columns_;
  std::vector<std::vector<Cell>> rows_;
};

// What these cannot say is built with the interface. Give: one reference. The class is a feature class with
// the first geometry as its own, or a plain class when there is none.
FdoPtr<FdoClassDefinition> ClassOf(wchar_t const* name, std::vector<Property> const& properties);
FdoPtr<FdoFeatureSchema> SchemaOf(wchar_t const* name,
                                  std::vector<FdoPtr<FdoClassDefinition>> const& classes);

struct Answers {
  // The numbers that GetCommands lists. Every command that this provider knows is made in any case.
  std::vector<FdoInt32> commands = {0, 1, 2, 3, 4, 6, 9, 11, 47, 48, 53};

  // What the connection says that its connection string is; the string that was set when there is none here.
  std::optional<std::wstring> connectionString;

  // DescribeSchema gives these very objects in a collection of its own, or a null pointer when there is no
  // list. Requires: nothing takes references of its own to the elements, or gives them up, between the first
  // time that they are described and the last LiveObjects().
  std::optional<std::vector<FdoPtr<FdoFeatureSchema>>> schemas = std::vector<FdoPtr<FdoFeatureSchema>>();

  std::vector<SpatialContext> spatialContexts;

  // By the name of the class without its schema. A select of a class that is not here finds no rows.
  std::map<std::wstring, Rows> selects;

  // Whether readers have all columns, whatever properties are selected, as those of some providers do.
  bool readersHaveAllColumns = false;

  // The definition that the readers of a class give; for others, the described class of the name.
  std::map<std::wstring, FdoPtr<FdoClassDefinition>> readerDefinitions;

  // By alias: SelectAggregates gives one row of the columns that are asked for. Errors: FdoCommandException*
  // for an alias that is not here. No rows: the reader is empty.
  Rows aggregates;

  Rows inserted;  // what the reader of each insert holds
  FdoInt32 updated = 0;
  FdoInt32 removed = 0;

  // The numbers of commands whose Execute gives a null pointer.
  std::set<FdoInt32> nullResults;
};

}  // namespace recording_provider

#endif  // TESTING_RECORDING_PROVIDER_ANSWERS_H_

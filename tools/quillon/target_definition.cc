#include "tools/quillon/target_definition.h"

#include <algorithm>
#include <cwctype>

#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

constexpr wchar_t kStoreSchema[] = L"Default";
constexpr wchar_t kStoreIdentity[] = L"FeatId";  // where the source's has no name
constexpr wchar_t const* kTextGeometryDrivers[] = {L"CSV", L"ODS", L"XLSX"};

bool SameName(std::wstring const& left, std::wstring const& right) {
  auto const lower = [](wchar_t unit) { return std::towlower(static_cast<std::wint_t>(unit)); };
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [&](wchar_t a, wchar_t b) { return lower(a) == lower(b); });
}

// FDO keeps these for names of several parts.
std::wstring WithoutSeparators(std::wstring name, wchar_t const* ifEmpty) {
  std::replace_if(
      name.begin(), name.end(), [](wchar_t unit) { return unit == L'.' || unit == L':'; }, L'_');
  return name.empty() ? ifEmpty : name;
}

// A name like that, which no column has, whatever the case of its letters.
std::wstring NewName(std::wstring const& wanted, std::vector<ColumnDef> const& columns) {
  std::wstring name = wanted;
  auto const isTaken = [&](ColumnDef const& column) { return SameName(column.Name(), name); };
  for (int number = 2; std::any_of(columns.begin(), columns.end(), isTaken); ++number) {
    name = wanted + L"_" + std::to_wstring(number);
  }
  return name;
}

}  // namespace

std::vector<int> FieldsOf(TableDef const& target) {
  std::vector<int> fields;
  for (int i = 0; i < target.ColumnCount(); ++i) {
    if (i != target.IndexOfID() && i != target.IndexOfGeom()) fields.push_back(i);
  }
  return fields;
}

bool KeepsGeometryAsText(std::wstring const& driver) {
  return std::any_of(std::begin(kTextGeometryDrivers), std::end(kTextGeometryDrivers),
                     [&](wchar_t const* name) { return driver == name; });
}

std::vector<int> ColumnsToWrite(TableDef const& source, std::vector<int> const& selected,
                                std::vector<std::string>& left) {
  std::vector<int> columns;
  for (int column : selected) {
    bool const isSecondGeometry =
        source[column].Type() == ColumnDef::kGeometry && column != source.IndexOfGeom();
    if (column == source.IndexOfID()) continue;
    if (source[column].Type() == ColumnDef::kUnset || isSecondGeometry) {
      left.push_back(Utf8(source[column].Name()));
    } else {
      columns.push_back(column);
    }
  }
  return columns;
}

void DefineTarget(TableDef const& source, std::vector<int> const& columns, std::wstring const& driver,
                  std::wstring const& tableName, DatabaseDef& target) {
  std::vector<ColumnDef> copies;
  int geometry = -1;
  bool const geometryAsText = KeepsGeometryAsText(driver);
  for (int column : columns) {
    bool const isGeometry = column == source.IndexOfGeom();
    ColumnDef& copy = copies.emplace_back();
    if (isGeometry && geometryAsText) {
      copy.Initialize(kGeometryTextColumn, ColumnDef::kString, 0, Value(), nullptr);
    } else {
      copy.CopyFrom(source[column]);
    }
    if (isGeometry && !geometryAsText) geometry = static_cast<int>(copies.size()) - 1;
  }
  auto* const tables = new TableDef[1];
  target.Initialize(L"", tables, 1);  // owns the tables from here on
  tables[0].Initialize(L"", tableName.c_str(), copies.data(), static_cast<int>(copies.size()), -1, geometry,
                       0);
}

void DefineStore(TableDef const& source, std::vector<int> const& columns, DatabaseDef& store) {
  std::vector<ColumnDef> copies;
  int geometry = -1;
  for (int column : columns) {
    ColumnDef const& original = source[column];
    std::wstring const name = NewName(WithoutSeparators(original.Name(), L"column"), copies);
    if (column == source.IndexOfGeom()) geometry = static_cast<int>(copies.size());
    copies.emplace_back().Initialize(name.c_str(), original.Type(), original.GeomTypes(), Value(),
                                     original.SRS());
  }
  std::wstring const idName = WithoutSeparators(source.HasID() ? source.ID().Name() : L"", kStoreIdentity);
  ColumnDef identity;
  identity.Initialize(NewName(idName, copies).c_str(), ColumnDef::kInt64, 0, Value(), nullptr);
  copies.insert(copies.begin(), identity);
  if (geometry >= 0) ++geometry;
  auto* const tables = new TableDef[1];
  store.Initialize(kStoreSchema, tables, 1);  // owns the tables from here on
  tables[0].Initialize(kStoreSchema, WithoutSeparators(source.Name(), L"rows").c_str(), copies.data(),
                       static_cast<int>(copies.size()), 0, geometry, 0);
}

std::vector<int> MatchColumns(TableDef const& source, std::vector<int> const& columns,
                              TableDef const& target) {
  auto const fields = FieldsOf(target);
  auto const isField = [&](int column) { return column != source.IndexOfGeom(); };
  bool const sameNumber =
      std::count_if(columns.begin(), columns.end(), isField) == static_cast<std::ptrdiff_t>(fields.size());
  std::vector<int> matches;
  std::size_t next = 0;
  for (int column : columns) {
    if (!isField(column)) {
      matches.push_back(target.IndexOfGeom());
      continue;
    }
    int match = sameNumber ? fields[next++] : -1;
    for (std::size_t i = 0; i < fields.size() && match < 0; ++i) {
      if (SameName(source[column].Name(), target[fields[i]].Name())) match = fields[i];
    }
    matches.push_back(match);
  }
  return matches;
}

}  // namespace fdo::tool

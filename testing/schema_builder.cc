#include "testing/schema_builder.h"

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace fdo {
namespace {

struct NamedType {
  std::wstring_view name;
  ColumnDef::DataType type;
};
constexpr NamedType kTypes[] = {
    {L"Unset", ColumnDef::kUnset},   {L"Geometry", ColumnDef::kGeometry}, {L"Boolean", ColumnDef::kBoolean},
    {L"Byte", ColumnDef::kByte},     {L"DateTime", ColumnDef::kDateTime}, {L"Decimal", ColumnDef::kDecimal},
    {L"Double", ColumnDef::kDouble}, {L"Int16", ColumnDef::kInt16},       {L"Int32", ColumnDef::kInt32},
    {L"Int64", ColumnDef::kInt64},   {L"Single", ColumnDef::kSingle},     {L"String", ColumnDef::kString},
    {L"Blob", ColumnDef::kBlob},     {L"Clob", ColumnDef::kClob},
};

ColumnDef::DataType TypeNamed(std::wstring_view name) {
  for (NamedType const& named : kTypes) {
    if (named.name == name) return named.type;
  }
  throw std::invalid_argument("a column type that is not known");
}

constexpr int kEveryKindOfGeometry = 15;

}  // namespace

TableDef MakeTableDef(std::wstring_view schema, std::wstring_view name, std::wstring_view columns) {
  std::vector<ColumnDef> defs;
  int id = -1;
  int geometry = -1;
  std::wistringstream words{std::wstring(columns)};
  for (std::wstring word; words >> word;) {
    std::size_t const colon = word.find(L':');
    if (colon == std::wstring::npos) throw std::invalid_argument("a column without a type");
    std::wstring const columnName = word.substr(0, colon);
    ColumnDef::DataType const type = TypeNamed(std::wstring_view(word).substr(colon + 1));
    int const position = static_cast<int>(defs.size());
    if (id < 0 && columnName == L"id") id = position;
    if (geometry < 0 && type == ColumnDef::kGeometry) geometry = position;
    defs.emplace_back().Initialize(columnName.c_str(), type,
                                   type == ColumnDef::kGeometry ? kEveryKindOfGeometry : 0, Value(), nullptr);
  }
  TableDef table;
  table.Initialize(std::wstring(schema).c_str(), std::wstring(name).c_str(), defs.data(),
                   static_cast<int>(defs.size()), id, geometry, 0);
  return table;
}

void SetTables(DatabaseDef& def, wchar_t const* name, std::initializer_list<TableDef> tables) {
  auto* copies = new TableDef[tables.size()];
  int count = 0;
  for (TableDef const& table : tables) copies[count++] = table;
  def.Initialize(name, copies, count);
}

}  // namespace fdo

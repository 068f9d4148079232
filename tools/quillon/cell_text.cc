#include "tools/quillon/cell_text.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "tools/quillon/geometry_json.h"
#include "tools/quillon/geometry_text.h"
#include "tools/quillon/json_text.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

struct TypeInfo {
  ColumnDef::DataType type;
  char const* name;
  bool isNumeric;
};

constexpr TypeInfo kTypes[] = {
    {ColumnDef::kGeometry, "Geometry", false}, {ColumnDef::kBoolean, "Boolean", false},
    {ColumnDef::kByte, "Byte", true},          {ColumnDef::kDateTime, "DateTime", false},
    {ColumnDef::kDecimal, "Decimal", true},    {ColumnDef::kDouble, "Double", true},
    {ColumnDef::kInt16, "Int16", true},        {ColumnDef::kInt32, "Int32", true},
    {ColumnDef::kInt64, "Int64", true},        {ColumnDef::kSingle, "Single", true},
    {ColumnDef::kString, "String", false},     {ColumnDef::kBlob, "BLOB", false},
    {ColumnDef::kClob, "CLOB", false},
};

TypeInfo const& FindType(ColumnDef::DataType type) {
  static constexpr TypeInfo kUnsupported = {ColumnDef::kUnset, "Unsupported", false};
  for (TypeInfo const& info : kTypes) {
    if (info.type == type) return info;
  }
  return kUnsupported;
}

template <class Numeral>
void AppendNumeral(std::string& out, Numeral number) {
  char digits[32];
  out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

void AppendHex(std::string& out, unsigned char const* bytes, int count) {
  constexpr char kHexDigits[] = "0123456789abcdef";
  for (int i = 0; i < count; ++i) {
    out += kHexDigits[bytes[i] >> 4];
    out += kHexDigits[bytes[i] & 15];
  }
}

}  // namespace

bool AppendCellText(std::string& out, Value const& cell, ColumnDef::DataType type) {
  switch (cell.Type() & ~Value::kBorrowed) {
    case Value::kBool:
      // A flag's own text is not the readable word.
      out += cell.AsBool() ? "true" : "false";
      return true;
    case Value::kInt:
      AppendNumeral(out, Integer(cell));
      return true;
    case Value::kDouble:
      // What is no number has a sign of no meaning.
      AppendNumeral(out, std::isnan(Number(cell)) ? std::numeric_limits<double>::quiet_NaN() : Number(cell));
      return true;
    case Value::kString:
      AppendUtf8(out, std::wstring_view(Text(cell)));
      return true;
    case Value::kBlob:
      if (type == ColumnDef::kGeometry) {
        return AppendGeometryText(out, cell.AsBlob(), static_cast<std::size_t>(cell.BlobLen()));
      }
      AppendHex(out, cell.AsBlob(), cell.BlobLen());
      return true;
    default:
      return false;
  }
}

void AppendCellJson(std::string& out, Value const& cell, ColumnDef::DataType type) {
  switch (cell.Type() & ~Value::kBorrowed) {
    case Value::kBool:
    case Value::kInt:
      AppendCellText(out, cell, type);
      break;
    case Value::kDouble:
      AppendJsonNumber(out, Number(cell));
      break;
    case Value::kString:
      AppendJsonString(out, std::wstring_view(Text(cell)));
      break;
    case Value::kBlob:
      if (type == ColumnDef::kGeometry) {
        AppendGeometryJson(out, cell.AsBlob(), static_cast<std::size_t>(cell.BlobLen()));
      } else {
        out += '"';
        AppendHex(out, cell.AsBlob(), cell.BlobLen());
        out += '"';
      }
      break;
    default:
      out += "null";
  }
}

bool IsNumeric(ColumnDef::DataType type) { return FindType(type).isNumeric; }
char const* TypeName(ColumnDef::DataType type) { return FindType(type).name; }

}  // namespace fdo::tool

#include "expr/listing.h"

#include <iterator>

#include "expr/function_table.h"
#include "expr/op_table.h"

namespace fdo::internal {
namespace {

constexpr std::size_t kOperandColumn = 19;

// In the order of FDO's enumerations.
constexpr wchar_t const* kSpatialOperations[] = {L"CONTAINS",   L"CROSSES",  L"DISJOINT",          L"EQUALS",
                                                 L"INTERSECTS", L"OVERLAPS", L"TOUCHES",           L"WITHIN",
                                                 L"COVEREDBY",  L"INSIDE",   L"ENVELOPEINTERSECTS"};
constexpr wchar_t const* kDistanceOperations[] = {L"BEYOND", L"WITHINDISTANCE"};

template <std::size_t size>
wchar_t const* NameAt(wchar_t const* const (&names)[size], long long number) {
  return number >= 0 && static_cast<unsigned long long>(number) < size ? names[number] : nullptr;
}

std::wstring Quoted(wchar_t const* text) {
  std::wstring quoted = L"'";
  for (; text != nullptr && *text != 0; ++text) quoted.append(*text == L'\'' ? 2 : 1, *text);
  return quoted + L"'";
}

std::wstring HexOf(Value const& bytes) {
  constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
  std::wstring hex = L"X'";
  for (int i = 0; i < bytes.BlobLen(); ++i) {
    hex += kDigits[bytes.AsBlob()[i] >> 4];
    hex += kDigits[bytes.AsBlob()[i] & 15];
  }
  return hex + L"'";
}

std::wstring LiteralText(Value const& value) {
  switch (value.Type() & ~Value::kBorrowed) {
    case Value::kBool:
      return value.AsBool() ? L"TRUE" : L"FALSE";
    case Value::kInt:
      return Value(value).operator wchar_t const*();
    case Value::kDouble: {
      // A whole number is told from an integer by its point.
      std::wstring text = Value(value).operator wchar_t const*();
      if (text.find_first_not_of(L"-0123456789") == std::wstring::npos) text += L".0";
      return text;
    }
    case Value::kString:
      return Quoted(static_cast<wchar_t const*>(value));
    case Value::kBlob:
      return HexOf(value);
    default:
      return L"NULL";
  }
}

wchar_t const* NameOf(Operand operand, Value const& value, TableDef const* table) {
  long long const number = static_cast<__int64>(value);
  switch (operand) {
    case Operand::kColumn:
      return table != nullptr && number >= 0 && number < table->ColumnCount()
                 ? (*table)[static_cast<int>(number)].Name()
                 : nullptr;
    case Operand::kFunction: {
      for (TwoArgumentForm const& form : kTwoArgumentForms) {
        if (form.twoArguments == number) return FindFunction(static_cast<long long>(form.oneArgument))->name;
      }
      FunctionInfo const* const function = FindFunction(number);
      return function == nullptr ? nullptr : function->name;
    }
    case Operand::kSpatialOperation:
      return NameAt(kSpatialOperations, number);
    case Operand::kDistanceOperation:
      return NameAt(kDistanceOperations, number);
    case Operand::kNone:
    case Operand::kLiteral:
    case Operand::kColumnName:
    case Operand::kCount:
      break;
  }
  return nullptr;
}

}  // namespace

std::wstring ListProgram(std::span<OpRec const> program, TableDef const* table) {
  std::wstring listing;
  for (OpRec const& record : program) {
    OpInfo const* const info = FindOp(record.op);
    std::wstring line = info == nullptr ? L"Op" + std::to_wstring(record.op) : info->name;
    if (info != nullptr && info->operand != Operand::kNone) {
      line.resize(kOperandColumn, L' ');
      line += info->operand == Operand::kColumnName && record.value.Type() == Value::kString
                  ? std::wstring(static_cast<wchar_t const*>(record.value))
                  : LiteralText(record.value);
      if (wchar_t const* const name = NameOf(info->operand, record.value, table)) {
        line += L' ';
        line += name;
      }
    }
    listing += line;
    listing += L'\n';
  }
  return listing;
}

}  // namespace fdo::internal

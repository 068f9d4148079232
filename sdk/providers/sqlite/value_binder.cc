#include "sdk/providers/sqlite/value_binder.h"

#include <cmath>
#include <cwchar>

#include "sdk/providers/sqlite/date_text.h"
#include "sdk/providers/sqlite/sql_fragment.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {
namespace {

[[noreturn]] void RefuseValue(StoreColumn const& column, std::wstring const& why) {
  Refuse(L"The property \"" + column.name + L"\" cannot hold the value: " + why + L".");
}

std::string_view ViewOf(FdoByteArray& array) {
  return std::string_view(reinterpret_cast<char const*>(array.GetData()),
                          static_cast<std::size_t>(array.GetCount()));
}

bool IsText(std::string_view bytes) {
  if (bytes.find('\0') != std::string_view::npos) return false;
  bool malformed = false;
  fdo_sdk::WideFromUtf8(bytes, &malformed);
  return !malformed;
}

}  // namespace

ValueBinder::ValueBinder(std::vector<StoreColumn const*> columns) {
  for (StoreColumn const* column : columns) slots_.push_back(std::make_unique<Slot>(*column));
}

void ValueBinder::Bind(Statement& statement, std::size_t place, FdoLiteralValue* value) {
  Slot& slot = *slots_[place];
  if (slot.known.p != value) {
    slot.known = FDO_SAFE_ADDREF(value);
    slot.isGeometry = value != nullptr && value->GetLiteralValueType() == FdoLiteralValueType_Geometry;
    slot.isOfColumn = value != nullptr && IsOfColumn(slot.column, *value);
  }
  BindKnown(statement, static_cast<int>(place) + 1, slot);
}

bool ValueBinder::IsOfColumn(StoreColumn const& column, FdoLiteralValue& literal) {
  bool const takesGeometry = column.kind == StoreColumn::Kind::kGeometry;
  if (literal.GetLiteralValueType() == FdoLiteralValueType_Geometry) return takesGeometry;
  return !takesGeometry && static_cast<FdoDataValue&>(literal).GetDataType() == column.type;
}

void ValueBinder::BindDirectly(Statement& statement, std::size_t place, fdo_sdk::DirectValue const& value) {
  using fdo_sdk::DirectKind;
  Slot& slot = *slots_[place];
  int const parameter = static_cast<int>(place) + 1;
  slot.isBound = slot.isBound || (value.kind != DirectKind::kNone && value.kind != DirectKind::kNull);
  switch (value.kind) {
    case DirectKind::kNone:
    case DirectKind::kNull:
      BindNull(statement, parameter, slot);
      break;
    case DirectKind::kFlag:
      statement.Bind(parameter, std::int64_t{value.cell.flag});
      break;
    case DirectKind::kInteger:
      statement.Bind(parameter, value.cell.integer);
      break;
    case DirectKind::kReal:
      BindReal(statement, parameter, slot, value.cell.real);
      break;
    case DirectKind::kMoment:
      BindMoment(statement, parameter, slot, *value.cell.moment);
      break;
    case DirectKind::kText:
      BindString(statement, parameter, slot, value.cell.text);
      break;
    case DirectKind::kBytes: {
      std::string_view const bytes(reinterpret_cast<char const*>(value.cell.bytes),
                                   static_cast<std::size_t>(value.cell.size));
      if (slot.column.kind == StoreColumn::Kind::kGeometry) {
        BindGeometry(statement, parameter, slot, bytes);
      } else {
        BindLargeObject(statement, parameter, slot, bytes);
      }
      break;
    }
  }
}

void ValueBinder::BindKnown(Statement& statement, int parameter, Slot& slot) {
  if (slot.known == nullptr) {
    BindNull(statement, parameter, slot);
  } else if (slot.isGeometry) {
    auto& geometry = static_cast<FdoGeometryValue&>(*slot.known);
    FdoPtr<FdoByteArray> const fgf = geometry.IsNull() ? nullptr : geometry.GetGeometry();
    if (fgf == nullptr) {
      BindNull(statement, parameter, slot);
    } else {
      if (!slot.isOfColumn) RefuseValue(slot.column, L"it is a geometry");
      BindGeometry(statement, parameter, slot, ViewOf(*fgf));
    }
  } else {
    auto& data = static_cast<FdoDataValue&>(*slot.known);
    if (data.IsNull()) {
      BindNull(statement, parameter, slot);
    } else {
      BindData(statement, parameter, slot, slot.isOfColumn ? data : Converted(slot, data));
    }
  }
}

void ValueBinder::BindNull(Statement& statement, int parameter, Slot& slot) {
  // SQLite makes a number for a null rowid, and takes a null for other keys as if it were a value.
  if (slot.column.keyPosition >= 0 && !slot.column.isRowId) {
    RefuseValue(slot.column, L"an identity is never null");
  }
  if (!slot.isBound) return;
  statement.BindNull(parameter);
  slot.isBound = false;
}

FdoDataValue& ValueBinder::Converted(Slot& slot, FdoDataValue& value) {
  if (slot.column.kind == StoreColumn::Kind::kGeometry) RefuseValue(slot.column, L"it is no geometry");
  try {
    slot.converted = FdoDataValue::Create(slot.column.type, &value, false, false, false);
  } catch (FdoException* failure) {
    FdoPtr<FdoException> released(failure);
    RefuseValue(slot.column, std::wstring(L"it is of another type, ") + value.ToString());
  }
  return static_cast<FdoDataValue&>(*slot.converted);
}

void ValueBinder::BindData(Statement& statement, int parameter, Slot& slot, FdoDataValue& value) {
  slot.isBound = true;
  switch (slot.column.type) {
    case FdoDataType_Boolean:
      statement.Bind(parameter, std::int64_t{static_cast<FdoBooleanValue&>(value).GetBoolean()});
      break;
    case FdoDataType_Byte:
      statement.Bind(parameter, std::int64_t{static_cast<FdoByteValue&>(value).GetByte()});
      break;
    case FdoDataType_Int16:
      statement.Bind(parameter, std::int64_t{static_cast<FdoInt16Value&>(value).GetInt16()});
      break;
    case FdoDataType_Int32:
      statement.Bind(parameter, std::int64_t{static_cast<FdoInt32Value&>(value).GetInt32()});
      break;
    case FdoDataType_Int64:
      statement.Bind(parameter, std::int64_t{static_cast<FdoInt64Value&>(value).GetInt64()});
      break;
    case FdoDataType_Single:
      BindReal(statement, parameter, slot, double{static_cast<FdoSingleValue&>(value).GetSingle()});
      break;
    case FdoDataType_Double:
      BindReal(statement, parameter, slot, static_cast<FdoDoubleValue&>(value).GetDouble());
      break;
    case FdoDataType_Decimal:
      BindReal(statement, parameter, slot, static_cast<FdoDecimalValue&>(value).GetDecimal());
      break;
    case FdoDataType_DateTime:
      BindMoment(statement, parameter, slot, static_cast<FdoDateTimeValue&>(value).GetDateTime());
      break;
    case FdoDataType_String:
      BindString(statement, parameter, slot, static_cast<FdoStringValue&>(value).GetString());
      break;
    case FdoDataType_BLOB:
    case FdoDataType_CLOB: {
      FdoPtr<FdoByteArray> const array = static_cast<FdoLOBValue&>(value).GetData();
      if (array == nullptr) {
        statement.BindNull(parameter);
      } else {
        BindLargeObject(statement, parameter, slot, ViewOf(*array));
      }
      break;
    }
  }
}

void ValueBinder::BindReal(Statement& statement, int parameter, Slot& slot, double value) {
  if (std::isnan(value)) {
    RefuseValue(slot.column, L"it is not a number, which the file has no value for");
  }
  statement.Bind(parameter, value);
}

void ValueBinder::BindMoment(Statement& statement, int parameter, Slot& slot, FdoDateTime const& value) {
  int const length = FormatDateText(value, slot.dateText);
  if (length == 0) RefuseValue(slot.column, L"it is no date or time of the calendar");
  statement.BindText(parameter, std::string_view(slot.dateText, static_cast<std::size_t>(length)));
}

void ValueBinder::BindString(Statement& statement, int parameter, Slot& slot, FdoString* value) {
  bool malformed = false;
  slot.text.clear();
  fdo_sdk::AppendUtf8(slot.text, std::wstring_view(value, std::wcslen(value)), &malformed);
  if (malformed) RefuseValue(slot.column, L"a unit in it is no character");
  statement.BindText(parameter, std::string_view(slot.text));
}

void ValueBinder::BindLargeObject(Statement& statement, int parameter, Slot& slot, std::string_view bytes) {
  if (slot.column.type == FdoDataType_CLOB && IsText(bytes)) {
    statement.BindText(parameter, bytes);
  } else {
    statement.BindBlob(parameter, bytes.data(), bytes.size());
  }
}

void ValueBinder::BindGeometry(Statement& statement, int parameter, Slot& slot, std::string_view fgf) {
  if (slot.column.format == GeometryFormat::kUnsupported) {
    RefuseValue(slot.column, L"the format in which its geometries are stored is not known here");
  }
  slot.isBound = true;
  if (fgf.empty()) {
    statement.BindNull(parameter);
    return;
  }
  GeometryBytes stored;
  try {
    stored = slot.geometry.Store(reinterpret_cast<FdoByte const*>(fgf.data()), fgf.size());
  } catch (FdoException* failure) {
    FdoPtr<FdoException> cause(failure);
    std::wstring const message =
        L"The property \"" + slot.column.name + L"\" cannot hold the geometry: " +
        (failure->GetExceptionMessage() == nullptr ? L"" : failure->GetExceptionMessage());
    throw FdoCommandException::Create(message.c_str(), cause.p);
  }
  if (slot.geometry.IsText()) {
    statement.BindText(parameter, std::string_view(reinterpret_cast<char const*>(stored.data), stored.size));
  } else {
    statement.BindBlob(parameter, stored.data, stored.size);
  }
}

FdoLiteralValue* LiteralOf(FdoValueExpression* value, FdoParameterValueCollection* parameters) {
  if (value == nullptr) return nullptr;
  if (IsLiteral(*value)) return static_cast<FdoLiteralValue*>(FDO_SAFE_ADDREF(value));
  if (value->GetExpressionType() != FdoExpressionItemType_Parameter) {
    Refuse(std::wstring(L"The value of a property must be a literal or a parameter, not ") +
           value->ToString() + L".");
  }
  FdoString* const name = static_cast<FdoParameter*>(value)->GetName();
  FdoPtr<FdoParameterValue> given = parameters->FindItem(name);
  if (given == nullptr) Refuse(L"The parameter \"" + std::wstring(name) + L"\" has no value.");
  return given->GetValue();
}

}  // namespace fdo_sqlite

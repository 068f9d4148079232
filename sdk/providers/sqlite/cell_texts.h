// Values of readers as text, so that tests can compare the ways to them.
#ifndef SDK_PROVIDERS_SQLITE_CELL_TEXTS_H_
#define SDK_PROVIDERS_SQLITE_CELL_TEXTS_H_

#include <cstdint>
#include <cstring>
#include <string>

#include "Fdo.h"
#include "sdk/extensions/direct_cells.h"

namespace fdo_sqlite {

// Every bit of it.
inline std::wstring TextOf(double real) {
  std::int64_t bits = 0;
  std::memcpy(&bits, &real, sizeof bits);
  return std::to_wstring(real) + L" as " + std::to_wstring(bits);
}

inline std::wstring TextOf(FdoDateTime const& moment) {
  std::wstring text;
  for (int const part :
       {int{moment.year}, int{moment.month}, int{moment.day}, int{moment.hour}, int{moment.minute}}) {
    text += std::to_wstring(part) + L" ";
  }
  return text + TextOf(double{moment.seconds});
}

inline std::wstring TextOf(FdoByte const* bytes, FdoInt32 size) {
  std::wstring text = std::to_wstring(size) + L" bytes";
  for (FdoInt32 i = 0; i < size; ++i) text += L" " + std::to_wstring(bytes[i]);
  return text;
}

// What the getter of that type gives, after the question for null; failures as their messages.
inline std::wstring ByGetter(FdoIFeatureReader& reader, FdoInt32 place, FdoInt32 type) {
  try {
    if (reader.IsNull(place)) return L"null";
    switch (type) {
      case FdoDataType_Boolean:
        return reader.GetBoolean(place) ? L"true" : L"false";
      case FdoDataType_Byte:
        return std::to_wstring(reader.GetByte(place));
      case FdoDataType_Int16:
        return std::to_wstring(reader.GetInt16(place));
      case FdoDataType_Int32:
        return std::to_wstring(reader.GetInt32(place));
      case FdoDataType_Int64:
        return std::to_wstring(reader.GetInt64(place));
      case FdoDataType_Single:
        return TextOf(double{reader.GetSingle(place)});
      case FdoDataType_Double:
      case FdoDataType_Decimal:
        return TextOf(reader.GetDouble(place));
      case FdoDataType_String:
        return reader.GetString(place);
      case FdoDataType_DateTime:
        return TextOf(reader.GetDateTime(place));
      case FdoDataType_BLOB: {
        FdoPtr<FdoLOBValue> const object = reader.GetLOB(place);
        FdoPtr<FdoByteArray> const bytes = object->GetData();
        return TextOf(bytes->GetData(), bytes->GetCount());
      }
      case fdo_sdk::kDirectGeometry: {
        FdoInt32 size = 0;
        FdoByte const* const bytes = reader.GetGeometry(place, &size);
        return TextOf(bytes, size);
      }
      default:
        return L"not asked for";
    }
  } catch (FdoException* raised) {
    FdoPtr<FdoException> const failure(raised);
    return failure->GetExceptionMessage();
  }
}

// What was given in one call; where that is nothing, by the getter.
inline std::wstring TextOf(fdo_sdk::DirectKind kind, fdo_sdk::DirectCell const& cell,
                           FdoIFeatureReader& reader, FdoInt32 place, FdoInt32 type) {
  using fdo_sdk::DirectKind;
  switch (kind) {
    case DirectKind::kNone:
      break;
    case DirectKind::kNull:
      return L"null";
    case DirectKind::kFlag:
      return cell.flag ? L"true" : L"false";
    case DirectKind::kInteger:
      return std::to_wstring(cell.integer);
    case DirectKind::kReal:
      return TextOf(cell.real);
    case DirectKind::kText:
      return cell.text;
    case DirectKind::kMoment:
      return TextOf(*cell.moment);
    case DirectKind::kBytes:
      return TextOf(cell.bytes, cell.size);
  }
  return ByGetter(reader, place, type);
}

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_CELL_TEXTS_H_

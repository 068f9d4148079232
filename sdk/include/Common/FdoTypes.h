// The basic types of the interface, and its date-and-time value.
#ifndef COMMON_FDO_TYPES_H_
#define COMMON_FDO_TYPES_H_

#include "Common/Std.h"

typedef unsigned char FdoByte;
typedef std::int8_t FdoInt8;
typedef std::int16_t FdoInt16;
typedef std::int32_t FdoInt32;
typedef std::int64_t FdoInt64;
typedef wchar_t FdoCharacter;
typedef wchar_t const FdoString;  // so that FdoString* points to constant wide text
typedef bool FdoBoolean;
typedef double FdoDouble;
typedef float FdoFloat;
typedef std::size_t FdoSize;
typedef void FdoVoid;

constexpr FdoInt64 FdoInt64Max = INT64_MAX;
constexpr FdoInt64 FdoInt64Min = INT64_MIN;
constexpr FdoFloat FdoFloatMax = 3.4e38f;
constexpr FdoFloat FdoFloatMin = -3.4e38f;

// A date, a time of day, or both. The parts that are absent are -1, absent seconds 0.
class FdoDateTime {
 public:
  FdoDateTime() : FdoDateTime(-1, -1, -1, -1, -1, 0.0f) {}
  FdoDateTime(FdoInt16 _year, FdoInt8 _month, FdoInt8 _day)
      : FdoDateTime(_year, _month, _day, -1, -1, 0.0f) {}
  FdoDateTime(FdoInt8 _hour, FdoInt8 _minutes, float _seconds)
      : FdoDateTime(-1, -1, -1, _hour, _minutes, _seconds) {}
  FdoDateTime(FdoInt16 _year, FdoInt8 _month, FdoInt8 _day, FdoInt8 _hour, FdoInt8 _minutes, float _seconds)
      : year(_year), month(_month), day(_day), hour(_hour), minute(_minutes), seconds(_seconds) {}

  bool IsDate() { return year != -1 && hour == -1; }
  bool IsTime() { return year == -1 && hour != -1; }
  bool IsDateTime() { return year != -1 && hour != -1; }

  FdoInt16 year;
  FdoInt8 month;
  FdoInt8 day;
  FdoInt8 hour;
  FdoInt8 minute;
  float seconds;
};

#endif  // COMMON_FDO_TYPES_H_

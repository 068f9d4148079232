// Which expressions and functions a provider can evaluate.
#ifndef FDO_CONNECTIONS_CAPABILITIES_I_EXPRESSION_CAPABILITIES_H_
#define FDO_CONNECTIONS_CAPABILITIES_I_EXPRESSION_CAPABILITIES_H_

#include "Fdo/Expression/ExpressionType.h"
#include "FdoStd.h"

// The names of the well-known functions.
//
// Functions that fold many rows into one.
#define FDO_FUNCTION_AVG L"Avg"
#define FDO_FUNCTION_COUNT L"Count"
#define FDO_FUNCTION_MAX L"Max"
#define FDO_FUNCTION_MEDIAN L"Median"
#define FDO_FUNCTION_MIN L"Min"
#define FDO_FUNCTION_SPATIALEXTENTS L"SpatialExtents"
#define FDO_FUNCTION_STDDEV L"Stddev"
#define FDO_FUNCTION_SUM L"Sum"

// Functions that convert.
#define FDO_FUNCTION_NULLVALUE L"NullValue"
#define FDO_FUNCTION_TODATE L"ToDate"
#define FDO_FUNCTION_TODOUBLE L"ToDouble"
#define FDO_FUNCTION_TOFLOAT L"ToFloat"
#define FDO_FUNCTION_TOINT32 L"ToInt32"
#define FDO_FUNCTION_TOINT64 L"ToInt64"
#define FDO_FUNCTION_TOSTRING L"ToString"

// Functions of dates.
#define FDO_FUNCTION_ADDMONTHS L"AddMonths"
#define FDO_FUNCTION_CURRENTDATE L"CurrentDate"
#define FDO_FUNCTION_EXTRACT L"Extract"
#define FDO_FUNCTION_EXTRACTTODOUBLE L"ExtractToDouble"
#define FDO_FUNCTION_EXTRACTTOINT L"ExtractToInt"
#define FDO_FUNCTION_MONTHSBETWEEN L"MonthsBetween"

// Functions of mathematics.
#define FDO_FUNCTION_ABS L"Abs"
#define FDO_FUNCTION_ACOS L"Acos"
#define FDO_FUNCTION_ASIN L"Asin"
#define FDO_FUNCTION_ATAN L"Atan"
#define FDO_FUNCTION_ATAN2 L"Atan2"
#define FDO_FUNCTION_COS L"Cos"
#define FDO_FUNCTION_EXP L"Exp"
#define FDO_FUNCTION_LN L"Ln"
#define FDO_FUNCTION_LOG L"Log"
#define FDO_FUNCTION_MOD L"Mod"
#define FDO_FUNCTION_POWER L"Power"
#define FDO_FUNCTION_REMAINDER L"Remainder"
#define FDO_FUNCTION_SIN L"Sin"
#define FDO_FUNCTION_SQRT L"Sqrt"
#define FDO_FUNCTION_TAN L"Tan"

// Functions of numbers.
#define FDO_FUNCTION_CEIL L"Ceil"
#define FDO_FUNCTION_FLOOR L"Floor"
#define FDO_FUNCTION_ROUND L"Round"
#define FDO_FUNCTION_SIGN L"Sign"
#define FDO_FUNCTION_TRUNC L"Trunc"

// Functions of text.
#define FDO_FUNCTION_CONCAT L"Concat"
#define FDO_FUNCTION_INSTR L"Instr"
#define FDO_FUNCTION_LENGTH L"Length"
#define FDO_FUNCTION_LOWER L"Lower"
#define FDO_FUNCTION_LPAD L"Lpad"
#define FDO_FUNCTION_LTRIM L"Ltrim"
#define FDO_FUNCTION_RPAD L"Rpad"
#define FDO_FUNCTION_RTRIM L"Rtrim"
#define FDO_FUNCTION_SOUNDEX L"Soundex"
#define FDO_FUNCTION_SUBSTR L"Substr"
#define FDO_FUNCTION_TRANSLATE L"Translate"
#define FDO_FUNCTION_TRIM L"Trim"
#define FDO_FUNCTION_UPPER L"Upper"

// Functions of geometry.
#define FDO_FUNCTION_AREA2D L"Area2D"
#define FDO_FUNCTION_LENGTH2D L"Length2D"
#define FDO_FUNCTION_X L"X"
#define FDO_FUNCTION_Y L"Y"
#define FDO_FUNCTION_Z L"Z"
#define FDO_FUNCTION_M L"M"

class FdoFunctionDefinitionCollection;

// Borrowed: arrays, while the capabilities object lives.
class FDO_API FdoIExpressionCapabilities : public FdoIDisposable {
 public:
  virtual FdoExpressionType* GetExpressionTypes(FdoInt32& length) = 0;

  // Gives: one reference.
  virtual FdoFunctionDefinitionCollection* GetFunctions() = 0;

 protected:
  // Gives: one reference, the functions named above with their signatures.
  static FdoFunctionDefinitionCollection* GetWellKnownFunctions();
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_I_EXPRESSION_CAPABILITIES_H_

// The functions that every provider may evaluate, in one table.
#include <string>

#include "Fdo/Connections/Capabilities/FunctionDefinitionCollection.h"
#include "Fdo/Connections/Capabilities/IExpressionCapabilities.h"

namespace {

// A signature is the letter of its result with those of its arguments, "d(N,N)"; several are separated by
// blanks. A capital N, O or A stands for one type out of a set, the same at each place, and makes a
// signature for each type of the set.
struct WellKnown {
  wchar_t const* name;
  FdoFunctionCategoryType category;
  wchar_t const* signatures;
  wchar_t const* description;
};

constexpr FdoFunctionCategoryType kAggregate = FdoFunctionCategoryType_Aggregate;
constexpr FdoFunctionCategoryType kConversion = FdoFunctionCategoryType_Conversion;
constexpr FdoFunctionCategoryType kDate = FdoFunctionCategoryType_Date;
constexpr FdoFunctionCategoryType kMath = FdoFunctionCategoryType_Math;
constexpr FdoFunctionCategoryType kNumeric = FdoFunctionCategoryType_Numeric;
constexpr FdoFunctionCategoryType kString = FdoFunctionCategoryType_String;
constexpr FdoFunctionCategoryType kGeometry = FdoFunctionCategoryType_Geometry;

constexpr WellKnown kFunctions[] = {
    {FDO_FUNCTION_AVG, kAggregate, L"d(N)", L"The mean of the values"},
    {FDO_FUNCTION_COUNT, kAggregate, L"l() l(A) l(g)",
     L"The number of objects, or of values that are not null"},
    {FDO_FUNCTION_MAX, kAggregate, L"O(O)", L"The greatest value"},
    {FDO_FUNCTION_MEDIAN, kAggregate, L"d(N)", L"The value in the middle"},
    {FDO_FUNCTION_MIN, kAggregate, L"O(O)", L"The least value"},
    {FDO_FUNCTION_SPATIALEXTENTS, kAggregate, L"g(g)", L"The rectangle around the geometries"},
    {FDO_FUNCTION_STDDEV, kAggregate, L"d(N)", L"The standard deviation of the values"},
    {FDO_FUNCTION_SUM, kAggregate, L"d(N)", L"The sum of the values"},
    {FDO_FUNCTION_NULLVALUE, kConversion, L"A(A,A)", L"The first value, or the second in the place of null"},
    {FDO_FUNCTION_TODATE, kConversion, L"t(s) t(s,s)", L"The date and time that a text describes"},
    {FDO_FUNCTION_TODOUBLE, kConversion, L"d(N) d(s)", L"The value as a Double"},
    {FDO_FUNCTION_TOFLOAT, kConversion, L"f(N) f(s)", L"The value as a Single"},
    {FDO_FUNCTION_TOINT32, kConversion, L"i(N) i(s)", L"The value as an Int32"},
    {FDO_FUNCTION_TOINT64, kConversion, L"l(N) l(s)", L"The value as an Int64"},
    {FDO_FUNCTION_TOSTRING, kConversion, L"s(N) s(t) s(t,s)", L"The value as text"},
    {FDO_FUNCTION_ADDMONTHS, kDate, L"t(t,N)", L"The date that many months later"},
    {FDO_FUNCTION_CURRENTDATE, kDate, L"t()", L"The date and time now"},
    {FDO_FUNCTION_EXTRACT, kDate, L"t(s,t)", L"A part of a date"},
    {FDO_FUNCTION_EXTRACTTODOUBLE, kDate, L"d(s,t)", L"A part of a date as a Double"},
    {FDO_FUNCTION_EXTRACTTOINT, kDate, L"i(s,t)", L"A part of a date as an Int32"},
    {FDO_FUNCTION_MONTHSBETWEEN, kDate, L"d(t,t)", L"The months from one date to another"},
    {FDO_FUNCTION_ABS, kMath, L"N(N)", L"The absolute value"},
    {FDO_FUNCTION_ACOS, kMath, L"d(N)", L"The arc cosine"},
    {FDO_FUNCTION_ASIN, kMath, L"d(N)", L"The arc sine"},
    {FDO_FUNCTION_ATAN, kMath, L"d(N)", L"The arc tangent"},
    {FDO_FUNCTION_ATAN2, kMath, L"d(N,N)", L"The arc tangent of a quotient"},
    {FDO_FUNCTION_COS, kMath, L"d(N)", L"The cosine"},
    {FDO_FUNCTION_EXP, kMath, L"d(N)", L"The power of e"},
    {FDO_FUNCTION_LN, kMath, L"d(N)", L"The natural logarithm"},
    {FDO_FUNCTION_LOG, kMath, L"d(N,N)", L"The logarithm to a base"},
    {FDO_FUNCTION_MOD, kMath, L"N(N,N)", L"What a division leaves, with the sign of the dividend"},
    {FDO_FUNCTION_POWER, kMath, L"d(N,N)", L"A power"},
    {FDO_FUNCTION_REMAINDER, kMath, L"N(N,N)", L"What a division to the nearest whole number leaves"},
    {FDO_FUNCTION_SIN, kMath, L"d(N)", L"The sine"},
    {FDO_FUNCTION_SQRT, kMath, L"d(N)", L"The square root"},
    {FDO_FUNCTION_TAN, kMath, L"d(N)", L"The tangent"},
    {FDO_FUNCTION_CEIL, kNumeric, L"N(N)", L"The least whole number that is not less"},
    {FDO_FUNCTION_FLOOR, kNumeric, L"N(N)", L"The greatest whole number that is not greater"},
    {FDO_FUNCTION_ROUND, kNumeric, L"N(N) N(N,i)", L"The nearest number with that many decimal places"},
    {FDO_FUNCTION_SIGN, kNumeric, L"i(N)", L"-1, 0 or 1"},
    {FDO_FUNCTION_TRUNC, kNumeric, L"N(N) N(N,i) t(t,s)", L"The number or date without its lesser places"},
    {FDO_FUNCTION_CONCAT, kString, L"s(s,s)", L"One text behind the other"},
    {FDO_FUNCTION_INSTR, kString, L"l(s,s)", L"Where one text is in another, from 1, or 0"},
    {FDO_FUNCTION_LENGTH, kString, L"l(s)", L"The number of characters"},
    {FDO_FUNCTION_LOWER, kString, L"s(s)", L"The text in small letters"},
    {FDO_FUNCTION_LPAD, kString, L"s(s,i) s(s,i,s)", L"The text filled up on the left"},
    {FDO_FUNCTION_LTRIM, kString, L"s(s)", L"The text without blanks on the left"},
    {FDO_FUNCTION_RPAD, kString, L"s(s,i) s(s,i,s)", L"The text filled up on the right"},
    {FDO_FUNCTION_RTRIM, kString, L"s(s)", L"The text without blanks on the right"},
    {FDO_FUNCTION_SOUNDEX, kString, L"s(s)", L"How the text sounds"},
    {FDO_FUNCTION_SUBSTR, kString, L"s(s,i) s(s,i,i)", L"A part of the text, from position 1"},
    {FDO_FUNCTION_TRANSLATE, kString, L"s(s,s,s)", L"The text with some characters replaced by others"},
    {FDO_FUNCTION_TRIM, kString, L"s(s) s(s,s)", L"The text without blanks on either side"},
    {FDO_FUNCTION_UPPER, kString, L"s(s)", L"The text in capital letters"},
    {FDO_FUNCTION_AREA2D, kGeometry, L"d(g)", L"The area, without regard to Z"},
    {FDO_FUNCTION_LENGTH2D, kGeometry, L"d(g)", L"The length, without regard to Z"},
    {FDO_FUNCTION_X, kGeometry, L"d(g)", L"The X of a point"},
    {FDO_FUNCTION_Y, kGeometry, L"d(g)", L"The Y of a point"},
    {FDO_FUNCTION_Z, kGeometry, L"d(g)", L"The Z of a point"},
    {FDO_FUNCTION_M, kGeometry, L"d(g)", L"The M of a point"},
};

struct Letter {
  wchar_t letter;
  FdoDataType type;
};

constexpr Letter kLetters[] = {
    {L'b', FdoDataType_Boolean}, {L'y', FdoDataType_Byte},   {L't', FdoDataType_DateTime},
    {L'c', FdoDataType_Decimal}, {L'd', FdoDataType_Double}, {L'h', FdoDataType_Int16},
    {L'i', FdoDataType_Int32},   {L'l', FdoDataType_Int64},  {L'f', FdoDataType_Single},
    {L's', FdoDataType_String},  {L'B', FdoDataType_BLOB},   {L'C', FdoDataType_CLOB},
};
constexpr wchar_t kGeometryLetter = L'g';

struct Set {
  wchar_t letter;
  wchar_t const* members;
};

constexpr Set kSets[] = {{L'N', L"ycdhilf"}, {L'O', L"ycdhilfts"}, {L'A', L"bycdhilftsBC"}};

FdoDataType TypeOf(wchar_t letter) {
  for (Letter const& row : kLetters) {
    if (row.letter == letter) return row.type;
  }
  return FdoDataType_String;
}

FdoPropertyType PropertyTypeOf(wchar_t letter) {
  return letter == kGeometryLetter ? FdoPropertyType_GeometricProperty : FdoPropertyType_DataProperty;
}

// The signature is of single types.
void AddSignature(FdoSignatureDefinitionCollection& signatures, std::wstring const& signature) {
  FdoPtr<FdoArgumentDefinitionCollection> arguments = FdoArgumentDefinitionCollection::Create();
  for (wchar_t const letter : signature.substr(1)) {
    if (letter == L'(' || letter == L',' || letter == L')') continue;
    std::wstring const name =
        letter == kGeometryLetter ? L"geometry" : L"argument" + std::to_wstring(arguments->GetCount() + 1);
    FdoPtr<FdoArgumentDefinition> argument =
        FdoArgumentDefinition::Create(name.c_str(), L"", PropertyTypeOf(letter), TypeOf(letter));
    arguments->Add(argument);
  }
  FdoPtr<FdoSignatureDefinition> made =
      FdoSignatureDefinition::Create(PropertyTypeOf(signature[0]), TypeOf(signature[0]), arguments);
  signatures.Add(made);
}

void AddSignatures(FdoSignatureDefinitionCollection& signatures, std::wstring const& signature) {
  for (Set const& set : kSets) {
    if (signature.find(set.letter) == std::wstring::npos) continue;
    for (wchar_t const* member = set.members; *member != 0; ++member) {
      std::wstring single = signature;
      for (wchar_t& letter : single) {
        if (letter == set.letter) letter = *member;
      }
      AddSignature(signatures, single);
    }
    return;
  }
  AddSignature(signatures, signature);
}

}  // namespace

FdoFunctionDefinitionCollection* FdoIExpressionCapabilities::GetWellKnownFunctions() {
  FdoPtr<FdoFunctionDefinitionCollection> functions = FdoFunctionDefinitionCollection::Create();
  for (WellKnown const& row : kFunctions) {
    FdoPtr<FdoSignatureDefinitionCollection> signatures = FdoSignatureDefinitionCollection::Create();
    std::wstring const all = std::wstring(row.signatures) + L" ";
    for (std::size_t start = 0; start < all.size();) {
      std::size_t const end = all.find(L' ', start);
      AddSignatures(*signatures, all.substr(start, end - start));
      start = end + 1;
    }
    bool const variable = std::wstring(row.name) == FDO_FUNCTION_CONCAT;
    FdoPtr<FdoFunctionDefinition> function = FdoFunctionDefinition::Create(
        row.name, row.description, row.category == kAggregate, signatures, row.category, variable);
    functions->Add(function);
  }
  return functions.Detach();
}

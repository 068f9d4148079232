// The leaves of expressions: literals, names and parameters.
#include <cstdint>
#include <limits>

#include "Fdo/Expression/BooleanValue.h"
#include "Fdo/Expression/DateTimeValue.h"
#include "Fdo/Expression/DoubleValue.h"
#include "Fdo/Expression/Function.h"
#include "Fdo/Expression/GeometryValue.h"
#include "Fdo/Expression/Int32Value.h"
#include "Fdo/Expression/Int64Value.h"
#include "Fdo/Expression/Parameter.h"
#include "Fdo/Expression/StringValue.h"
#include "sdk/runtime/text/fgf_text.h"
#include "sdk/runtime/text/grammar.h"
#include "sdk/runtime/text/number_text.h"
#include "sdk/runtime/text/text_error.h"

namespace fdo_sdk {

// Literals, apart from those that begin with a name, and parameters.
void Grammar::ParseLeaf() {
  FdoPtr<FdoExpression> leaf;
  switch (token_.kind) {
    case TokenKind::kInteger:
    case TokenKind::kReal:
      leaf = NumberLiteral(false);
      break;
    case TokenKind::kText:
      leaf = FdoStringValue::Create(token_.text.c_str());
      break;
    case TokenKind::kParameter:
      leaf = FdoParameter::Create(token_.text.c_str());
      break;
    case TokenKind::kTrue:
    case TokenKind::kFalse:
      leaf = FdoBooleanValue::Create(Is(TokenKind::kTrue));
      break;
    case TokenKind::kNull:
      leaf = FdoStringValue::Create();
      break;
    case TokenKind::kDate:
      Push(DateTimeLiteral(DateTimeForm::kDate));
      return;
    case TokenKind::kTime:
      Push(DateTimeLiteral(DateTimeForm::kTime));
      return;
    case TokenKind::kTimestamp:
      Push(DateTimeLiteral(DateTimeForm::kTimestamp));
      return;
    case TokenKind::kGeomFromText:
      Push(GeometryLiteral());
      return;
    default:
      Expected(L"a value, a name, \"(\", \"-\" or NOT");
  }
  Advance();
  Push(leaf.Detach());
}

bool Grammar::TakeNegativeNumber() {
  std::size_t const minusEnd = token_.end;
  Advance();
  bool const isNumber = Is(TokenKind::kInteger) || Is(TokenKind::kReal);
  if (!isNumber || token_.begin != minusEnd) return false;
  Push(NumberLiteral(true));
  Advance();
  return true;
}

bool Grammar::ParseName() {
  Token const name = std::move(token_);
  Advance();
  bool const isFunction = Is(TokenKind::kOpen);
  bool const beforeText = Is(TokenKind::kText) && name.plain;
  if (isFunction) {
    Push(FdoFunction::Create(name.text.c_str(), nullptr, 0));
  } else if (beforeText && IsWord(name.text, L"BLOB")) {
    Push(BytesLiteral(FdoDataType_BLOB));
  } else if (beforeText && IsWord(name.text, L"CLOB")) {
    Push(BytesLiteral(FdoDataType_CLOB));
  } else {
    Push(FdoIdentifier::Create(name.text.c_str()));
  }
  return isFunction;
}

FdoIdentifier* Grammar::TakeName(std::wstring_view what) {
  if (!Is(TokenKind::kName)) Expected(what);
  FdoPtr<FdoIdentifier> name = FdoIdentifier::Create(token_.text.c_str());
  Advance();
  return name.Detach();
}

double Grammar::TakeDistance() {
  if (!Is(TokenKind::kInteger) && !Is(TokenKind::kReal)) Expected(L"a distance that is a number");
  double distance = 0;
  if (!ReadNumber(lexer_.Source(token_), distance)) Expected(L"a distance in the range of a double");
  Advance();
  return distance;
}

FdoExpression* Grammar::NumberLiteral(bool negative) const {
  std::wstring const text = (negative ? L"-" : L"") + std::wstring(lexer_.Source(token_));
  std::int64_t integer = 0;
  if (Is(TokenKind::kInteger) && ReadNumber(text, integer)) {
    bool const isShort =
        integer >= std::numeric_limits<FdoInt32>::min() && integer <= std::numeric_limits<FdoInt32>::max();
    if (isShort) return FdoInt32Value::Create(static_cast<FdoInt32>(integer));
    return FdoInt64Value::Create(static_cast<FdoInt64>(integer));
  }
  double real = 0;
  if (!ReadNumber(text, real)) Expected(L"a number in the range of a double");
  return FdoDoubleValue::Create(real);
}

FdoExpression* Grammar::DateTimeLiteral(DateTimeForm form) {
  Advance();
  constexpr std::wstring_view kForms[] = {L"a date as 'YYYY-MM-DD'", L"a time as 'HH:MM:SS'",
                                          L"a date and time as 'YYYY-MM-DD HH:MM:SS'"};
  FdoDateTime value;
  if (!Is(TokenKind::kText) || !ReadDateTime(form, token_.text, value))
    Expected(kForms[static_cast<int>(form)]);
  Advance();
  return FdoDateTimeValue::Create(value);
}

FdoExpression* Grammar::GeometryLiteral() {
  Advance();
  Expect(TokenKind::kOpen, L"\"(\"");
  if (!Is(TokenKind::kText)) Expected(L"the text of a geometry in single quotes");
  std::size_t const begin = token_.begin + 1;
  FdoPtr<FdoByteArray> bytes;
  try {
    bytes = BytesOf(TextToFgf(token_.text));
  } catch (TextError const& error) {
    throw TextError{begin + error.position, error.message};
  }
  Advance();
  Expect(TokenKind::kClose, L"\")\"");
  return FdoGeometryValue::Create(bytes);
}

FdoExpression* Grammar::BytesLiteral(FdoDataType type) {
  std::vector<FdoByte> bytes;
  if (!ReadHex(token_.text, bytes)) Expected(L"bytes as pairs of hexadecimal digits");
  FdoPtr<FdoByteArray> array = BytesOf(bytes);
  Advance();
  return FdoDataValue::Create(array.p, type);
}

FdoByteArray* Grammar::BytesOf(std::vector<FdoByte> const& bytes) const {
  if (bytes.size() > static_cast<std::size_t>(std::numeric_limits<FdoInt32>::max())) {
    throw TextError{token_.begin, L"the bytes of this literal are too many."};
  }
  return FdoByteArray::Create(bytes.data(), static_cast<FdoInt32>(bytes.size()));
}

}  // namespace fdo_sdk

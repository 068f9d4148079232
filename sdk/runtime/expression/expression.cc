#include "Fdo/Expression/Expression.h"

#include "Fdo/Expression/LiteralValue.h"
#include "Fdo/Expression/ValueExpression.h"
#include "sdk/runtime/text/parser.h"

FdoExpression::FdoExpression() : m_toString(nullptr) {}

FdoExpression::~FdoExpression() { delete[] m_toString; }

FdoExpression* FdoExpression::Parse(FdoString* expressionText) {
  return fdo_sdk::ParseExpression(expressionText == nullptr ? L"" : expressionText);
}

FdoValueExpression::FdoValueExpression() = default;

FdoValueExpression::~FdoValueExpression() = default;

FdoLiteralValue::FdoLiteralValue() = default;

FdoLiteralValue::~FdoLiteralValue() = default;

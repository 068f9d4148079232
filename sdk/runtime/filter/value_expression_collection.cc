#include "Fdo/Filter/ValueExpressionCollection.h"

#include "sdk/runtime/text/parser.h"

FdoValueExpressionCollection::FdoValueExpressionCollection() = default;

FdoValueExpressionCollection::~FdoValueExpressionCollection() = default;

void FdoValueExpressionCollection::Dispose() { delete this; }

FdoValueExpressionCollection* FdoValueExpressionCollection::Create() {
  return new FdoValueExpressionCollection();
}

FdoValueExpressionCollection* FdoValueExpressionCollection::Create(FdoString** values, FdoInt32 length) {
  FdoPtr<FdoValueExpressionCollection> collection = new FdoValueExpressionCollection();
  for (FdoInt32 i = 0; i < length; ++i) {
    FdoPtr<FdoValueExpression> value = fdo_sdk::ParseValue(values[i] == nullptr ? L"NULL" : values[i]);
    collection->Add(value);
  }
  return collection.Detach();
}

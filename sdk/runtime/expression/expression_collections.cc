#include "Fdo/Expression/DataValueCollection.h"
#include "Fdo/Expression/ExpressionCollection.h"
#include "Fdo/Expression/LiteralValueCollection.h"

FdoExpressionCollection::FdoExpressionCollection() = default;

FdoExpressionCollection::~FdoExpressionCollection() = default;

void FdoExpressionCollection::Dispose() { delete this; }

FdoExpressionCollection* FdoExpressionCollection::Create() { return new FdoExpressionCollection(); }

FdoDataValueCollection::FdoDataValueCollection() = default;

FdoDataValueCollection::~FdoDataValueCollection() = default;

void FdoDataValueCollection::Dispose() { delete this; }

FdoDataValueCollection* FdoDataValueCollection::Create() { return new FdoDataValueCollection(); }

FdoLiteralValueCollection::FdoLiteralValueCollection() = default;

FdoLiteralValueCollection::~FdoLiteralValueCollection() = default;

void FdoLiteralValueCollection::Dispose() { delete this; }

FdoLiteralValueCollection* FdoLiteralValueCollection::Create() { return new FdoLiteralValueCollection(); }

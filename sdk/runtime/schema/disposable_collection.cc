#include "Fdo/IDisposableCollection.h"

FdoIDisposableCollection* FdoIDisposableCollection::Create() { return new FdoIDisposableCollection(); }

FdoIDisposableCollection::FdoIDisposableCollection() = default;

FdoIDisposableCollection::~FdoIDisposableCollection() = default;

void FdoIDisposableCollection::Dispose() { delete this; }

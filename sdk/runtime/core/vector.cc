#include "Common/Vector.h"

FdoVectorElement* FdoVectorElement::Create(FdoDouble value) { return new FdoVectorElement(value); }

FdoVectorElement::FdoVectorElement(FdoDouble value) : m_value(value) {}

FdoVectorElement::~FdoVectorElement() = default;

FdoDouble FdoVectorElement::GetValue() const { return m_value; }

FdoVector* FdoVector::Create() { return new FdoVector(); }

FdoVector::FdoVector() = default;

FdoVector::~FdoVector() = default;

void FdoVector::Dispose() { delete this; }

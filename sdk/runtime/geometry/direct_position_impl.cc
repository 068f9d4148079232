#include "Geometry/DirectPositionImpl.h"

#include "sdk/runtime/geometry/fgf_layout.h"
#include "sdk/runtime/geometry/stream_failure.h"

FdoDirectPositionImpl* FdoDirectPositionImpl::Create() { return new FdoDirectPositionImpl(0, 0, 0, 0, 0); }

FdoDirectPositionImpl* FdoDirectPositionImpl::Create(double x, double y) {
  return new FdoDirectPositionImpl(FdoDimensionality_XY, x, y, 0, 0);
}

FdoDirectPositionImpl* FdoDirectPositionImpl::Create(double x, double y, double z) {
  return new FdoDirectPositionImpl(FdoDimensionality_Z, x, y, z, 0);
}

FdoDirectPositionImpl* FdoDirectPositionImpl::Create(double x, double y, double z, double m) {
  return new FdoDirectPositionImpl(FdoDimensionality_Z | FdoDimensionality_M, x, y, z, m);
}

FdoDirectPositionImpl* FdoDirectPositionImpl::Create(FdoInt32 dimensionality, double const* ordinates) {
  if (ordinates == nullptr) fdo_sdk::ThrowFailure(L"There are no ordinates.");
  if (!fdo_sdk::IsDimensionality(dimensionality)) fdo_sdk::ThrowFailure(L"The dimensionality is not valid.");
  bool const hasZ = (dimensionality & FdoDimensionality_Z) != 0;
  bool const hasM = (dimensionality & FdoDimensionality_M) != 0;
  return new FdoDirectPositionImpl(dimensionality, ordinates[0], ordinates[1], hasZ ? ordinates[2] : 0,
                                   hasM ? ordinates[hasZ ? 3 : 2] : 0);
}

FdoDirectPositionImpl* FdoDirectPositionImpl::Create(FdoDirectPositionImpl const& position) {
  return Create(&static_cast<FdoIDirectPosition const&>(position));
}

FdoDirectPositionImpl* FdoDirectPositionImpl::Create(FdoIDirectPosition const* pos) {
  if (pos == nullptr) fdo_sdk::ThrowFailure(L"There is no position to copy.");
  return new FdoDirectPositionImpl(pos->GetDimensionality(), pos->GetX(), pos->GetY(), pos->GetZ(),
                                   pos->GetM());
}

FdoDirectPositionImpl& FdoDirectPositionImpl::operator=(FdoDirectPositionImpl const& position) {
  return *this = static_cast<FdoIDirectPosition const&>(position);
}

FdoDirectPositionImpl& FdoDirectPositionImpl::operator=(FdoIDirectPosition const& position) {
  m_dimensionality = position.GetDimensionality();
  m_x = position.GetX();
  m_y = position.GetY();
  m_z = position.GetZ();
  m_m = position.GetM();
  return *this;
}

bool FdoDirectPositionImpl::operator==(FdoDirectPositionImpl const& rhs) const {
  return m_dimensionality == rhs.m_dimensionality && m_x == rhs.m_x && m_y == rhs.m_y &&
         ((m_dimensionality & FdoDimensionality_Z) == 0 || m_z == rhs.m_z) &&
         ((m_dimensionality & FdoDimensionality_M) == 0 || m_m == rhs.m_m);
}

double const* FdoDirectPositionImpl::GetOrdinates() {
  double* next = m_ordinates;
  *next++ = m_x;
  *next++ = m_y;
  if (m_dimensionality & FdoDimensionality_Z) *next++ = m_z;
  if (m_dimensionality & FdoDimensionality_M) *next = m_m;
  return m_ordinates;
}

void FdoDirectPositionImpl::SetDimensionality(FdoInt32 dimensionality) {
  if (!fdo_sdk::IsDimensionality(dimensionality)) fdo_sdk::ThrowFailure(L"The dimensionality is not valid.");
  m_dimensionality = dimensionality;
}

FdoDirectPositionImpl::FdoDirectPositionImpl(FdoInt32 dimensionality, double x, double y, double z, double m)
    : m_dimensionality(dimensionality), m_x(x), m_y(y), m_z(z), m_m(m), m_ordinates{} {}

FdoDirectPositionImpl::~FdoDirectPositionImpl() = default;

void FdoDirectPositionImpl::Dispose() { delete this; }

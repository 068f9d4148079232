#include "Geometry/EnvelopeImpl.h"

#include <cmath>
#include <limits>

#include "sdk/runtime/geometry/fgf_layout.h"
#include "sdk/runtime/geometry/stream_failure.h"

namespace {

constexpr double kNotSet = std::numeric_limits<double>::quiet_NaN();

// fmin and fmax leave out a NaN on either side.
void ExpandRange(double& least, double& greatest, double newLeast, double newGreatest) {
  least = std::fmin(least, newLeast);
  greatest = std::fmax(greatest, newGreatest);
}

bool Same(double left, double right) { return left == right || (std::isnan(left) && std::isnan(right)); }

double ZOrNotSet(FdoIDirectPosition const* position) {
  return position->GetDimensionality() & FdoDimensionality_Z ? position->GetZ() : kNotSet;
}

}  // namespace

FdoEnvelopeImpl* FdoEnvelopeImpl::Create() {
  return new FdoEnvelopeImpl(kNotSet, kNotSet, kNotSet, kNotSet, kNotSet, kNotSet);
}

FdoEnvelopeImpl* FdoEnvelopeImpl::Create(double minX, double minY, double maxX, double maxY) {
  return new FdoEnvelopeImpl(minX, minY, kNotSet, maxX, maxY, kNotSet);
}

FdoEnvelopeImpl* FdoEnvelopeImpl::Create(double minX, double minY, double minZ, double maxX, double maxY,
                                         double maxZ) {
  return new FdoEnvelopeImpl(minX, minY, minZ, maxX, maxY, maxZ);
}

FdoEnvelopeImpl* FdoEnvelopeImpl::Create(FdoEnvelopeImpl& envelopeImpl) {
  double const* const from = envelopeImpl.m_ordinates;
  return new FdoEnvelopeImpl(from[0], from[1], from[2], from[3], from[4], from[5]);
}

FdoEnvelopeImpl* FdoEnvelopeImpl::Create(FdoIDirectPosition* lowerLeft, FdoIDirectPosition* upperRight) {
  if (lowerLeft == nullptr || upperRight == nullptr) {
    fdo_sdk::ThrowFailure(L"An envelope needs two positions.");
  }
  return new FdoEnvelopeImpl(lowerLeft->GetX(), lowerLeft->GetY(), ZOrNotSet(lowerLeft), upperRight->GetX(),
                             upperRight->GetY(), ZOrNotSet(upperRight));
}

FdoEnvelopeImpl* FdoEnvelopeImpl::Create(FdoInt32 dimensionType, double* ordinates) {
  if (ordinates == nullptr) fdo_sdk::ThrowFailure(L"There are no ordinates.");
  if (!fdo_sdk::IsDimensionality(dimensionType)) fdo_sdk::ThrowFailure(L"The dimensionality is not valid.");
  double const* const upper = ordinates + fdo_sdk::OrdinateCount(dimensionType);
  bool const hasZ = (dimensionType & FdoDimensionality_Z) != 0;
  return new FdoEnvelopeImpl(ordinates[0], ordinates[1], hasZ ? ordinates[2] : kNotSet, upper[0], upper[1],
                             hasZ ? upper[2] : kNotSet);
}

bool FdoEnvelopeImpl::operator==(FdoEnvelopeImpl& rhs) const {
  for (int i = 0; i < 6; ++i) {
    if (!Same(m_ordinates[i], rhs.m_ordinates[i])) return false;
  }
  return true;
}

bool FdoEnvelopeImpl::GetIsEmpty() const {
  return std::isnan(m_ordinates[0]) || std::isnan(m_ordinates[1]) || std::isnan(m_ordinates[3]) ||
         std::isnan(m_ordinates[4]);
}

void FdoEnvelopeImpl::Expand(FdoIDirectPosition* position) {
  if (position == nullptr) fdo_sdk::ThrowFailure(L"There is no position to take in.");
  double const z = ZOrNotSet(position);
  ExpandRange(m_ordinates[0], m_ordinates[3], position->GetX(), position->GetX());
  ExpandRange(m_ordinates[1], m_ordinates[4], position->GetY(), position->GetY());
  ExpandRange(m_ordinates[2], m_ordinates[5], z, z);
}

void FdoEnvelopeImpl::Expand(FdoIEnvelope* envelope) {
  if (envelope == nullptr) fdo_sdk::ThrowFailure(L"There is no envelope to take in.");
  ExpandRange(m_ordinates[0], m_ordinates[3], envelope->GetMinX(), envelope->GetMaxX());
  ExpandRange(m_ordinates[1], m_ordinates[4], envelope->GetMinY(), envelope->GetMaxY());
  ExpandRange(m_ordinates[2], m_ordinates[5], envelope->GetMinZ(), envelope->GetMaxZ());
}

FdoEnvelopeImpl::FdoEnvelopeImpl(double minX, double minY, double minZ, double maxX, double maxY, double maxZ)
    : m_ordinates{minX, minY, minZ, maxX, maxY, maxZ} {}

FdoEnvelopeImpl::~FdoEnvelopeImpl() = default;

void FdoEnvelopeImpl::Dispose() { delete this; }

#include "Geometry/GeometryFactoryAbstract.h"

#include "FdoGeometry.h"
#include "sdk/runtime/geometry/fgf_layout.h"
#include "sdk/runtime/geometry/stream_failure.h"

FdoGeometryFactoryAbstract::FdoGeometryFactoryAbstract() = default;

FdoGeometryFactoryAbstract::~FdoGeometryFactoryAbstract() = default;

FdoIDirectPosition* FdoGeometryFactoryAbstract::CreatePositionXY(double x, double y) {
  return FdoDirectPositionImpl::Create(x, y);
}

FdoIDirectPosition* FdoGeometryFactoryAbstract::CreatePositionXYZ(double x, double y, double z) {
  return FdoDirectPositionImpl::Create(x, y, z);
}

FdoIDirectPosition* FdoGeometryFactoryAbstract::CreatePositionXYM(double x, double y, double m) {
  double const ordinates[] = {x, y, m};
  return FdoDirectPositionImpl::Create(FdoDimensionality_M, ordinates);
}

FdoIDirectPosition* FdoGeometryFactoryAbstract::CreatePositionXYZM(double x, double y, double z, double m) {
  return FdoDirectPositionImpl::Create(x, y, z, m);
}

FdoIDirectPosition* FdoGeometryFactoryAbstract::CreatePosition(FdoInt32 dimensionality,
                                                               double const* ordinates) {
  return FdoDirectPositionImpl::Create(dimensionality, ordinates);
}

FdoIDirectPosition* FdoGeometryFactoryAbstract::CreatePosition(FdoIDirectPosition* position) {
  return FdoDirectPositionImpl::Create(position);
}

FdoIEnvelope* FdoGeometryFactoryAbstract::CreateEnvelope(FdoIDirectPosition* lowerLeft,
                                                         FdoIDirectPosition* upperRight) {
  return FdoEnvelopeImpl::Create(lowerLeft, upperRight);
}

FdoIEnvelope* FdoGeometryFactoryAbstract::CreateEnvelope(FdoInt32 dimensionType, double* ordinates) {
  return FdoEnvelopeImpl::Create(dimensionType, ordinates);
}

FdoIEnvelope* FdoGeometryFactoryAbstract::CreateEnvelopeXY(double lowerLeftX, double lowerLeftY,
                                                           double upperRightX, double upperRightY) {
  return FdoEnvelopeImpl::Create(lowerLeftX, lowerLeftY, upperRightX, upperRightY);
}

FdoIEnvelope* FdoGeometryFactoryAbstract::CreateEnvelopeXYZ(double lowerLeftX, double lowerLeftY,
                                                            double lowerLeftZ, double upperRightX,
                                                            double upperRightY, double upperRightZ) {
  return FdoEnvelopeImpl::Create(lowerLeftX, lowerLeftY, lowerLeftZ, upperRightX, upperRightY, upperRightZ);
}

FdoIEnvelope* FdoGeometryFactoryAbstract::CreateEnvelope(FdoIEnvelope* envelope) {
  if (envelope == nullptr) fdo_sdk::ThrowFailure(L"There is no envelope to copy.");
  return FdoEnvelopeImpl::Create(envelope->GetMinX(), envelope->GetMinY(), envelope->GetMinZ(),
                                 envelope->GetMaxX(), envelope->GetMaxY(), envelope->GetMaxZ());
}

// An heir has no reader of texts to fill in: it copies what the FGF factory reads.
FdoIGeometry* FdoGeometryFactoryAbstract::CreateGeometry(FdoString* text) {
  FdoPtr<FdoFgfGeometryFactory> reader = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> geometry = reader->CreateGeometry(text);
  return CreateGeometry(geometry.p);
}

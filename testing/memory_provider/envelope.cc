#include "testing/memory_provider/envelope.h"

#include <algorithm>
#include <cstring>

namespace memory_provider {

bool Envelope::Meets(Envelope const& other) const {
  return !IsEmpty() && !other.IsEmpty() && minX <= other.maxX && other.minX <= maxX && minY <= other.maxY &&
         other.minY <= maxY;
}

void Envelope::Include(Envelope const& other) {
  minX = std::min(minX, other.minX);
  minY = std::min(minY, other.minY);
  maxX = std::max(maxX, other.maxX);
  maxY = std::max(maxY, other.maxY);
}

Envelope EnvelopeOf(FdoGeometryValue& geometry) {
  FdoPtr<FdoByteArray> bytes = geometry.GetGeometry();
  FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
  FdoPtr<FdoIGeometry> shape = factory->CreateGeometryFromFgf(bytes);
  FdoPtr<FdoIEnvelope> box = shape->GetEnvelope();
  Envelope envelope;
  if (box->GetIsEmpty()) return envelope;
  envelope.minX = box->GetMinX();
  envelope.minY = box->GetMinY();
  envelope.maxX = box->GetMaxX();
  envelope.maxY = box->GetMaxY();
  return envelope;
}

FdoByteArray* PolygonOf(Envelope const& envelope) {
  FdoInt32 const head[] = {FdoGeometryType_Polygon, FdoDimensionality_XY, 1, 5};
  double const points[] = {envelope.minX, envelope.minY, envelope.maxX, envelope.minY, envelope.maxX,
                           envelope.maxY, envelope.minX, envelope.maxY, envelope.minX, envelope.minY};
  FdoByte bytes[sizeof head + sizeof points];
  std::memcpy(bytes, head, sizeof head);
  std::memcpy(bytes + sizeof head, points, sizeof points);
  return FdoByteArray::Create(bytes, static_cast<FdoInt32>(sizeof bytes));
}

}  // namespace memory_provider

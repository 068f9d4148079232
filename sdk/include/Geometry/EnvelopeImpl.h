// FdoEnvelopeImpl is a box of its own, which may be changed and grown.
#ifndef GEOMETRY_ENVELOPE_IMPL_H_
#define GEOMETRY_ENVELOPE_IMPL_H_

#include "Geometry/IDirectPosition.h"
#include "Geometry/IEnvelope.h"

// Deliberate: corners are kept as given, also when a minimum is above its maximum.
class FDO_GEOM_API FdoEnvelopeImpl : public FdoIEnvelope {
 public:
  // Give: one reference. What is not given is not set. The ordinates of the array are two positions of
  // the dimensionality, lower left and upper right; M is left out.
  static FdoEnvelopeImpl* Create();
  static FdoEnvelopeImpl* Create(double minX, double minY, double maxX, double maxY);
  static FdoEnvelopeImpl* Create(double minX, double minY, double minZ, double maxX, double maxY,
                                 double maxZ);
  static FdoEnvelopeImpl* Create(FdoEnvelopeImpl& envelopeImpl);
  static FdoEnvelopeImpl* Create(FdoIDirectPosition* lowerLeft, FdoIDirectPosition* upperRight);
  static FdoEnvelopeImpl* Create(FdoInt32 dimensionType, double* ordinates);

  // Two values that are both not set are the same.
  bool operator==(FdoEnvelopeImpl& rhs) const;

  double GetMinX() const override { return m_ordinates[0]; }
  double GetMinY() const override { return m_ordinates[1]; }
  double GetMinZ() const override { return m_ordinates[2]; }
  double GetMaxX() const override { return m_ordinates[3]; }
  double GetMaxY() const override { return m_ordinates[4]; }
  double GetMaxZ() const override { return m_ordinates[5]; }
  double const* GetOrdinates() override { return m_ordinates; }

  // Whether X or Y is not set on either side.
  bool GetIsEmpty() const override;

  void SetMinX(double minX) { m_ordinates[0] = minX; }
  void SetMinY(double minY) { m_ordinates[1] = minY; }
  void SetMinZ(double minZ) { m_ordinates[2] = minZ; }
  void SetMaxX(double maxX) { m_ordinates[3] = maxX; }
  void SetMaxY(double maxY) { m_ordinates[4] = maxY; }
  void SetMaxZ(double maxZ) { m_ordinates[5] = maxZ; }

  // Grow the box to take in a position or another box. What is not set, on either side, does not count.
  void Expand(FdoIDirectPosition* position);
  void Expand(FdoIEnvelope* envelope);

 protected:
  FdoEnvelopeImpl(double minX, double minY, double minZ, double maxX, double maxY, double maxZ);
  ~FdoEnvelopeImpl() override;
  void Dispose() override;

 private:
  FdoEnvelopeImpl(FdoEnvelopeImpl const&) = delete;
  FdoEnvelopeImpl& operator=(FdoEnvelopeImpl const&) = delete;

  double m_ordinates[6];
};

#endif  // GEOMETRY_ENVELOPE_IMPL_H_

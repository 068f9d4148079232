// FdoDirectPositionImpl is a position of its own, which may be changed.
#ifndef GEOMETRY_DIRECT_POSITION_IMPL_H_
#define GEOMETRY_DIRECT_POSITION_IMPL_H_

#include "Geometry/IDirectPosition.h"

class FDO_GEOM_API FdoDirectPositionImpl : public FdoIDirectPosition {
 public:
  // Give: one reference. Ordinates that are not given are 0.0. The ordinates of the array are those that
  // the dimensionality says, in the order X, Y, Z, M.
  static FdoDirectPositionImpl* Create();
  static FdoDirectPositionImpl* Create(double x, double y);
  static FdoDirectPositionImpl* Create(double x, double y, double z);
  static FdoDirectPositionImpl* Create(double x, double y, double z, double m);
  static FdoDirectPositionImpl* Create(FdoInt32 dimensionality, double const* ordinates);
  static FdoDirectPositionImpl* Create(FdoDirectPositionImpl const& position);
  static FdoDirectPositionImpl* Create(FdoIDirectPosition const* pos);

  // The reference count stays the position's own.
  FdoDirectPositionImpl& operator=(FdoDirectPositionImpl const& position);
  FdoDirectPositionImpl& operator=(FdoIDirectPosition const& position);

  // Same dimensionality and same ordinates, as far as the dimensionality says.
  bool operator==(FdoDirectPositionImpl const& rhs) const;

  double GetX() const override { return m_x; }
  double GetY() const override { return m_y; }
  double GetZ() const override { return m_z; }
  double GetM() const override { return m_m; }
  double const* GetOrdinates() override;
  FdoInt32 GetDimensionality() const override { return m_dimensionality; }

  // Deliberate: setting Z or M leaves the dimensionality as it is.
  void SetX(double x) { m_x = x; }
  void SetY(double y) { m_y = y; }
  void SetZ(double z) { m_z = z; }
  void SetM(double m) { m_m = m; }
  // Errors: throws FdoException* for what is no combination of FdoDimensionality.
  void SetDimensionality(FdoInt32 dimensionality);

 protected:
  FdoDirectPositionImpl(FdoInt32 dimensionality, double x, double y, double z, double m);
  ~FdoDirectPositionImpl() override;
  void Dispose() override;

 private:
  FdoDirectPositionImpl(FdoDirectPositionImpl const&) = delete;

  FdoInt32 m_dimensionality;
  double m_x;
  double m_y;
  double m_z;
  double m_m;
  double m_ordinates[4];  // what GetOrdinates lends
};

#endif  // GEOMETRY_DIRECT_POSITION_IMPL_H_

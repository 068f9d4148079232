// EmbeddedEnvelope is the envelope that a geometry gives out without making an object for it.
#ifndef SDK_RUNTIME_GEOMETRY_EMBEDDED_ENVELOPE_H_
#define SDK_RUNTIME_GEOMETRY_EMBEDDED_ENVELOPE_H_

#include <limits>

#include "Geometry/IEnvelope.h"
#include "sdk/runtime/core/counting.h"
#include "sdk/runtime/geometry/fgf_box.h"

namespace fdo_sdk {

// A member of its owner. References to it are references to the owner, which therefore lives as long as
// anybody holds the envelope.
// Requires: the owner counts as FdoIDisposable does, so that its operations are called directly.
class EmbeddedEnvelope final : public FdoIEnvelope {
 public:
  EmbeddedEnvelope(FdoIDisposable& owner, FgfBox const& box) : owner_(owner) {
    constexpr double kNotSet = std::numeric_limits<double>::quiet_NaN();
    bool const isEmpty = box.IsEmpty();
    bool const hasZ = !isEmpty && box.HasZ();
    ordinates_[0] = isEmpty ? kNotSet : box.minX;
    ordinates_[1] = isEmpty ? kNotSet : box.minY;
    ordinates_[2] = hasZ ? box.minZ : kNotSet;
    ordinates_[3] = isEmpty ? kNotSet : box.maxX;
    ordinates_[4] = isEmpty ? kNotSet : box.maxY;
    ordinates_[5] = hasZ ? box.maxZ : kNotSet;
  }

  // Requires: the envelope is that of a point without Z, or empty.
  void BecomePoint(double x, double y) {
    ordinates_[0] = ordinates_[3] = x;
    ordinates_[1] = ordinates_[4] = y;
  }

  double GetMinX() const override { return ordinates_[0]; }
  double GetMinY() const override { return ordinates_[1]; }
  double GetMinZ() const override { return ordinates_[2]; }
  double GetMaxX() const override { return ordinates_[3]; }
  double GetMaxY() const override { return ordinates_[4]; }
  double GetMaxZ() const override { return ordinates_[5]; }
  double const* GetOrdinates() override { return ordinates_; }
  // Both ordinates are set or neither is.
  bool GetIsEmpty() const override { return ordinates_[0] != ordinates_[0]; }

  FdoInt32 AddRef() override { return FdoInternal::Counting::AddRef(owner_); }
  FdoInt32 Release() override { return FdoInternal::Counting::Release(owner_); }
  FdoInt32 GetRefCount() override { return owner_.FdoIDisposable::GetRefCount(); }
  void EnableObjectThreadLocking(bool enable) override { owner_.EnableObjectThreadLocking(enable); }

 protected:
  void Dispose() override {}  // ends with its owner

 private:
  FdoIDisposable& owner_;
  double ordinates_[6];  // as GetOrdinates lends them
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_EMBEDDED_ENVELOPE_H_

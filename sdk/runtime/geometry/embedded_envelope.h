// EmbeddedEnvelope is the envelope that a geometry gives out without making an object for it.
#ifndef SDK_RUNTIME_GEOMETRY_EMBEDDED_ENVELOPE_H_
#define SDK_RUNTIME_GEOMETRY_EMBEDDED_ENVELOPE_H_

#include "Geometry/IEnvelope.h"
#include "sdk/runtime/core/counting.h"
#include "sdk/runtime/geometry/fgf_box.h"

namespace fdo_sdk {

// A member of its owner, which has the box. References to it are references to the owner, which therefore
// lives as long as anybody holds the envelope.
// Requires: the box is settled; the owner counts as FdoIDisposable does, so that its operations are called
// directly.
class EmbeddedEnvelope final : public FdoIEnvelope {
 public:
  EmbeddedEnvelope(FdoIDisposable& owner, FgfBox const& box) : owner_(owner), box_(box) {}

  double GetMinX() const override { return box_.minX; }
  double GetMinY() const override { return box_.minY; }
  double GetMinZ() const override { return box_.minZ; }
  double GetMaxX() const override { return box_.maxX; }
  double GetMaxY() const override { return box_.maxY; }
  double GetMaxZ() const override { return box_.maxZ; }
  double const* GetOrdinates() override { return box_.Ordinates(); }
  bool GetIsEmpty() const override { return box_.IsEmpty(); }

  FdoInt32 AddRef() override { return FdoInternal::Counting::AddRef(owner_); }
  FdoInt32 Release() override { return FdoInternal::Counting::Release(owner_); }
  FdoInt32 GetRefCount() override { return owner_.FdoIDisposable::GetRefCount(); }
  void EnableObjectThreadLocking(bool enable) override { owner_.EnableObjectThreadLocking(enable); }

 protected:
  void Dispose() override {}  // ends with its owner

 private:
  FdoIDisposable& owner_;
  FgfBox const& box_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_EMBEDDED_ENVELOPE_H_

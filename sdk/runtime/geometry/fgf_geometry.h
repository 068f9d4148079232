// What all geometries of FdoFgfGeometryFactory have in common.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_GEOMETRY_H_
#define SDK_RUNTIME_GEOMETRY_FGF_GEOMETRY_H_

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "FdoGeometry.h"
#include "sdk/runtime/geometry/embedded_envelope.h"
#include "sdk/runtime/geometry/fgf_bytes.h"
#include "sdk/runtime/geometry/fgf_scan.h"
#include "sdk/runtime/geometry/kept_memory.h"
#include "sdk/runtime/geometry/position_run.h"

namespace fdo_sdk {

// The side of a geometry that its factory and FdoSpatialUtility see; dynamic_cast leads to it.
// Threads: never changes once made.
class FgfBacked {
 public:
  FgfBacked(FgfBytes&& bytes, FgfScan const& scan) : bytes_(std::move(bytes)), scan_(scan) {
    bytes_.size = static_cast<std::size_t>(scan.size);
    scan_.box = scan.box.Settled();
  }

  FgfBytes const& Bytes() const { return bytes_; }  // exactly those of the geometry
  FgfScan const& Scan() const { return scan_; }     // its box is settled
  // Of no other geometry that this process makes.
  // Threads: any.
  std::uint64_t Serial() const;

 protected:
  virtual ~FgfBacked() = default;

  // Makes another geometry of this one.
  // Requires: this and the bytes are points in XY that are somewhere, the bytes are borrowed, and nobody
  // holds this.
  void BecomePoint(FdoByte const* bytes, double x, double y) {
    bytes_.data = bytes;
    scan_.box.minX = scan_.box.maxX = x;
    scan_.box.minY = scan_.box.maxY = y;
    serial_.store(0, std::memory_order_relaxed);
  }

 private:
  FgfBytes bytes_;
  FgfScan scan_;
  mutable std::atomic<std::uint64_t> serial_{0};  // 0 until it is asked for, which few geometries are
};

// Gives: one reference, to the geometry at the front of the bytes.
// Errors: throws ThrowInvalidFgf().
FdoIGeometry* MakeGeometry(FgfBytes bytes);

// Null for a geometry of another maker.
FgfBacked const* AsFgfBacked(FdoIGeometry const* geometry);

// Fills in Dispose and what FdoIGeometry asks of every geometry.
template <class Interface>
class FgfGeometry : public Interface, public FgfBacked {
 public:
  FgfGeometry(FgfBytes&& bytes, FgfScan const& scan)
      : FgfBacked(std::move(bytes), scan), envelope_(*this, Scan().box) {}

  FdoIEnvelope* GetEnvelope() const override {
    envelope_.AddRef();
    return &envelope_;
  }
  FdoInt32 GetDimensionality() const override { return Scan().dimensionality; }
  FdoGeometryType GetDerivedType() const override { return static_cast<FdoGeometryType>(Scan().type); }
  FdoString* GetText() override;

  // Geometries come and go by the row.
  static void* operator new(std::size_t size) { return TakeMemory(size); }
  static void operator delete(void* memory, std::size_t size) { KeepMemory(memory, size); }

 protected:
  void Dispose() override { delete this; }

  bool HasText() const { return text_ != nullptr; }
  void ForgetText() { text_.reset(); }

 private:
  mutable EmbeddedEnvelope envelope_;  // mutable for its count, which is this object's
  std::unique_ptr<std::wstring> text_;
};

// The text of a whole geometry stream.
std::unique_ptr<std::wstring> MakeText(FgfBytes const& bytes);

template <class Interface>
FdoString* FgfGeometry<Interface>::GetText() {
  if (text_ == nullptr) text_ = MakeText(Bytes());
  return text_->c_str();
}

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_GEOMETRY_H_

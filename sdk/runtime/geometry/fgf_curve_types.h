// Curve strings and curve polygons, and the rings and segments that they give out.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_CURVE_TYPES_H_
#define SDK_RUNTIME_GEOMETRY_FGF_CURVE_TYPES_H_

#include <vector>

#include "sdk/runtime/geometry/fgf_geometry.h"
#include "sdk/runtime/geometry/part_offsets.h"

namespace fdo_sdk {

// The segments at the end of a checked stretch of bytes: start position, count, segments.
class SegmentList {
 public:
  SegmentList(FgfBytes bytes, FdoInt32 dimensionality);

  FdoInt32 Count() const;
  FdoInt32 Dimensionality() const { return dimensionality_; }
  FgfBox Box() const;

  // The first position, and the last of the last segment.
  PositionSpan Start() const { return {bytes_.data, 1, dimensionality_}; }
  PositionSpan End() const;

  // The bytes from the start position to the end of the last segment.
  std::size_t Size() const;
  FdoByte const* Data() const { return bytes_.data; }

  // Give: one reference. Errors: throws FdoException* for a segment that is not there.
  FdoICurveSegmentAbstract* Item(FdoInt32 index) const;
  FdoCurveSegmentCollection* Items() const;

 private:
  struct Segment {
    std::size_t offset;    // of its type
    std::size_t previous;  // of the position before it
  };

  void Index() const;

  FgfBytes bytes_;
  FdoInt32 dimensionality_;
  mutable std::vector<Segment> segments_;  // filled on first use
};

class FgfArcSegment final : public FdoICircularArcSegment {
 public:
  FgfArcSegment(FgfBytes const& bytes, PositionSpan const& start, PositionSpan const& midAndEnd);

  FdoIEnvelope* GetEnvelope() const override;
  FdoIDirectPosition* GetStartPosition() const override { return run_.Item(0); }
  FdoIDirectPosition* GetMidPoint() const override { return run_.Item(1); }
  FdoIDirectPosition* GetEndPosition() const override { return run_.Item(2); }
  bool GetIsClosed() const override { return run_.IsClosed(); }
  FdoGeometryComponentType GetDerivedType() const override {
    return FdoGeometryComponentType_CircularArcSegment;
  }
  FdoInt32 GetDimensionality() const override { return run_.Dimensionality(); }

  PositionRun const& Run() const { return run_; }

 protected:
  void Dispose() override { delete this; }

 private:
  FgfBytes bytes_;
  PositionRun run_;
};

class FgfLineSegment final : public FdoILineStringSegment {
 public:
  FgfLineSegment(FgfBytes const& bytes, PositionSpan const& start, PositionSpan const& rest);

  FdoIEnvelope* GetEnvelope() const override { return MakeEnvelope(run_.Box()); }
  FdoIDirectPosition* GetStartPosition() const override { return run_.Item(0); }
  FdoIDirectPosition* GetEndPosition() const override { return run_.Last(); }
  bool GetIsClosed() const override { return run_.IsClosed(); }
  FdoGeometryComponentType GetDerivedType() const override {
    return FdoGeometryComponentType_LineStringSegment;
  }
  FdoInt32 GetDimensionality() const override { return run_.Dimensionality(); }
  FdoInt32 GetCount() const override { return run_.Count(); }
  FdoIDirectPosition* GetItem(FdoInt32 index) const override { return run_.Item(index); }
  FdoDirectPositionCollection* GetPositions() override { return run_.Items(); }
  double const* GetOrdinates() override { return run_.Ordinates(lent_); }

  PositionRun const& Run() const { return run_; }

 protected:
  void Dispose() override { delete this; }

 private:
  FgfBytes bytes_;
  PositionRun run_;
  LentOrdinates lent_;
};

class FgfRing final : public FdoIRing {
 public:
  // Requires: bytes begin with a checked ring.
  FgfRing(FgfBytes bytes, FdoInt32 dimensionality) : segments_(std::move(bytes), dimensionality) {}

  FdoIEnvelope* GetEnvelope() const override { return MakeEnvelope(segments_.Box()); }
  FdoInt32 GetDimensionality() const override { return segments_.Dimensionality(); }
  FdoInt32 GetCount() const override { return segments_.Count(); }
  FdoICurveSegmentAbstract* GetItem(FdoInt32 index) const override { return segments_.Item(index); }
  FdoCurveSegmentCollection* GetCurveSegments() const override { return segments_.Items(); }

  SegmentList const& Segments() const { return segments_; }

 protected:
  void Dispose() override { delete this; }

 private:
  SegmentList segments_;
};

class FgfCurveString final : public FgfGeometry<FdoICurveString> {
 public:
  FgfCurveString(FgfBytes bytes, FgfScan const& scan);

  FdoIDirectPosition* GetStartPosition() const override;
  FdoIDirectPosition* GetEndPosition() const override;
  bool GetIsClosed() const override;
  FdoInt32 GetCount() const override { return segments_.Count(); }
  FdoICurveSegmentAbstract* GetItem(FdoInt32 index) const override { return segments_.Item(index); }
  FdoCurveSegmentCollection* GetCurveSegments() const override { return segments_.Items(); }

 private:
  SegmentList segments_;
};

class FgfCurvePolygon final : public FgfGeometry<FdoICurvePolygon> {
 public:
  using FgfGeometry::FgfGeometry;

  FdoIRing* GetExteriorRing() const override { return Ring(0); }
  FdoInt32 GetInteriorRingCount() const override;
  FdoIRing* GetInteriorRing(FdoInt32 index) const override;

 private:
  FdoIRing* Ring(FdoInt32 index) const;

  PartOffsets offsets_;
};

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_CURVE_TYPES_H_

#include "sdk/runtime/spatial/mixed_relation.h"

#include <vector>

#include "sdk/runtime/spatial/collinear_cover.h"

namespace fdo_sdk {

namespace {

// The parts of an operand by their dimension; null where it has none.
struct Kinds {
  explicit Kinds(GeosSession& session, GeosOperand const& operand) {
    for (GeosGeometry const& part : operand) {
      of[GEOSGeom_getDimensions_r(session.Handle(), part.get())] = part.get();
    }
  }

  GEOSGeometry const* Points() const { return of[0]; }
  GEOSGeometry const* Lines() const { return of[1]; }
  GEOSGeometry const* Surfaces() const { return of[2]; }
  int Dimension() const { return Surfaces() != nullptr ? 2 : Lines() != nullptr ? 1 : 0; }

  GEOSGeometry const* of[3] = {};
};

constexpr char kInteriorsMeet[] = "T********";
constexpr char kInteriorsShareLength[] = "1********";

class MixedPair {
 public:
  MixedPair(GeosSession& session, Kinds const& a, Kinds const& b) : session_(session), a_(a), b_(b) {}

  bool Holds(Relation relation) {
    switch (relation) {
      case Relation::kDisjoint:
        return !Meet();
      case Relation::kIntersects:
      case Relation::kEnvelopeIntersects:
        return Meet();
      case Relation::kTouches:
        return Meet() && !InteriorsMeet();
      case Relation::kEquals:
        return IsCovered(a_, b_) && IsCovered(b_, a_);
      case Relation::kCoveredBy:
        return IsCovered(a_, b_);
      case Relation::kWithin:
        return IsCovered(a_, b_) && InteriorsMeet();
      case Relation::kInside:
        return IsCovered(a_, b_) && !MeetsBoundary(a_, b_);
      case Relation::kCovers:
      case Relation::kContains:
      case Relation::kContainsProperly:
        return MixedPair(session_, b_, a_).Holds(Transposed(relation));
      case Relation::kCrosses:
        return Cross();
      case Relation::kOverlaps:
        return Overlap();
    }
    return false;
  }

 private:
  bool Meet(GEOSGeometry const* a, GEOSGeometry const* b) {
    return a != nullptr && b != nullptr && session_.Answer(GEOSIntersects_r(session_.Handle(), a, b));
  }

  bool Meet(GEOSGeometry const* part, Kinds const& kinds) {
    return Meet(part, kinds.Surfaces()) || Meet(part, kinds.Lines()) || Meet(part, kinds.Points());
  }

  bool Meet() { return Meet(a_.Surfaces(), b_) || Meet(a_.Lines(), b_) || Meet(a_.Points(), b_); }

  bool Relate(GEOSGeometry const* a, GEOSGeometry const* b, char const* pattern) {
    return a != nullptr && b != nullptr &&
           session_.Answer(GEOSRelatePattern_r(session_.Handle(), a, b, pattern));
  }

  // Calls question for every point, until one is answered with yes.
  template <class Question>
  bool AnyPoint(GEOSGeometry const* geometry, Question question) {
    if (geometry == nullptr) return false;
    GEOSContextHandle_t const handle = session_.Handle();
    int const count = GEOSGetNumGeometries_r(handle, geometry);
    for (int i = 0; i < count; ++i) {
      GEOSGeometry const* const part = GEOSGetGeometryN_r(handle, geometry, i);
      if (GEOSGeom_getDimensions_r(handle, part) == 0 && question(part)) return true;
    }
    return false;
  }

  void AddSegments(GEOSGeometry const* geometry, std::vector<LineSegment>& segments) {
    if (geometry == nullptr) return;
    GEOSContextHandle_t const handle = session_.Handle();
    int const type = GEOSGeomTypeId_r(handle, geometry);
    if (type != GEOS_LINESTRING && type != GEOS_LINEARRING) {
      if (type == GEOS_POINT || type == GEOS_POLYGON) return;
      int const count = GEOSGetNumGeometries_r(handle, geometry);
      for (int i = 0; i < count; ++i) AddSegments(GEOSGetGeometryN_r(handle, geometry, i), segments);
      return;
    }
    GEOSCoordSequence const* const sequence = GEOSGeom_getCoordSeq_r(handle, geometry);
    unsigned size = 0;
    GEOSCoordSeq_getSize_r(handle, sequence, &size);
    Xy previous = {0, 0};
    for (unsigned i = 0; i < size; ++i) {
      Xy next = {0, 0};
      GEOSCoordSeq_getXY_r(handle, sequence, i, &next.x, &next.y);
      if (i > 0) segments.push_back({previous, next});
      previous = next;
    }
  }

  void AddBoundary(GEOSGeometry const* surfaces, std::vector<LineSegment>& segments) {
    if (surfaces == nullptr) return;
    AddSegments(session_.Own(GEOSBoundary_r(session_.Handle(), surfaces)).get(), segments);
  }

  GeosGeometry MultiLineOf(std::vector<LineSegment> const& segments) {
    GEOSContextHandle_t const handle = session_.Handle();
    std::vector<GeosGeometry> lines;
    for (LineSegment const& segment : segments) {
      double const ordinates[] = {segment.start.x, segment.start.y, segment.end.x, segment.end.y};
      GEOSCoordSequence* const sequence = GEOSCoordSeq_copyFromBuffer_r(handle, ordinates, 2, 0, 0);
      if (sequence == nullptr) session_.Throw();
      lines.push_back(session_.Own(GEOSGeom_createLineString_r(handle, sequence)));
    }
    std::vector<GEOSGeometry*> given;
    for (GeosGeometry& line : lines) given.push_back(line.release());
    return session_.Own(GEOSGeom_createCollection_r(handle, GEOS_MULTILINESTRING, given.data(),
                                                    static_cast<unsigned>(given.size())));
  }

  bool IsCovered(GEOSGeometry const* part, GEOSGeometry const* cover) {
    return part != nullptr && cover != nullptr &&
           session_.Answer(GEOSCoveredBy_r(session_.Handle(), part, cover));
  }

  // Lines may run in the surfaces for a while, then along the lines. What runs along the lines is taken away
  // exactly; cutting at the surfaces' boundary instead would need positions that are no doubles.
  bool AreLinesCovered(GEOSGeometry const* lines, Kinds const& cover) {
    if (IsCovered(lines, cover.Surfaces()) || IsCovered(lines, cover.Lines())) return true;
    if (cover.Surfaces() == nullptr || cover.Lines() == nullptr) return false;
    std::vector<LineSegment> segments;
    std::vector<LineSegment> covers;
    AddSegments(lines, segments);
    AddSegments(cover.Lines(), covers);
    std::vector<LineSegment> const left = NotAlong(segments, std::move(covers));
    return left.empty() || IsCovered(MultiLineOf(left).get(), cover.Surfaces());
  }

  // A surface is covered by surfaces alone: what is closed and thinner adds nothing to them.
  bool IsCovered(Kinds const& inner, Kinds const& cover) {
    if (inner.Surfaces() != nullptr && !IsCovered(inner.Surfaces(), cover.Surfaces())) return false;
    if (inner.Lines() != nullptr && !AreLinesCovered(inner.Lines(), cover)) return false;
    return !AnyPoint(inner.Points(), [&](GEOSGeometry const* point) { return !Meet(point, cover); });
  }

  // An open set that meets the closure of another meets the other. So each line of this asks only what the
  // ones before it have left open, and parts that greater ones hide need no thought but in the last three.
  bool InteriorsMeet() {
    return Relate(a_.Surfaces(), b_.Surfaces(), kInteriorsMeet) ||
           Relate(a_.Surfaces(), b_.Lines(), kInteriorsMeet) ||
           Relate(a_.Lines(), b_.Surfaces(), kInteriorsMeet) ||
           Relate(a_.Surfaces(), b_.Points(), kInteriorsMeet) ||
           Relate(a_.Points(), b_.Surfaces(), kInteriorsMeet) || LineInteriorsMeet() ||
           LineMeetsPoints(a_, b_) || LineMeetsPoints(b_, a_) || PointsMeet();
  }

  bool IsOnSurface(GEOSGeometry const* part) {
    return Meet(part, a_.Surfaces()) || Meet(part, b_.Surfaces());
  }

  // Requires: no surface's interior meets the other side. So the lines meet the surfaces on boundaries.
  bool LineInteriorsMeet() {
    if (!Relate(a_.Lines(), b_.Lines(), kInteriorsMeet)) return false;
    if (a_.Surfaces() == nullptr && b_.Surfaces() == nullptr) return true;
    GEOSContextHandle_t const handle = session_.Handle();
    GeosGeometry const common = session_.Own(GEOSIntersection_r(handle, a_.Lines(), b_.Lines()));
    std::vector<LineSegment> shared;
    std::vector<LineSegment> boundaries;
    AddSegments(common.get(), shared);
    AddBoundary(a_.Surfaces(), boundaries);
    AddBoundary(b_.Surfaces(), boundaries);
    if (!NotAlong(shared, std::move(boundaries)).empty()) return true;
    GeosGeometry const endsA = session_.Own(GEOSBoundary_r(handle, a_.Lines()));
    GeosGeometry const endsB = session_.Own(GEOSBoundary_r(handle, b_.Lines()));
    return AnyPoint(common.get(), [&](GEOSGeometry const* point) {
      return !IsOnSurface(point) && !Meet(point, endsA.get()) && !Meet(point, endsB.get());
    });
  }

  bool LineMeetsPoints(Kinds const& withLines, Kinds const& withPoints) {
    return AnyPoint(withPoints.Points(), [&](GEOSGeometry const* point) {
      return Relate(withLines.Lines(), point, kInteriorsMeet) && !IsOnSurface(point) &&
             !Meet(point, withPoints.Lines());
    });
  }

  bool PointsMeet() {
    return AnyPoint(a_.Points(), [&](GEOSGeometry const* point) {
      return Meet(point, b_.Points()) && !IsOnSurface(point) && !Meet(point, a_.Lines()) &&
             !Meet(point, b_.Lines());
    });
  }

  bool MeetsBoundary(Kinds const& inner, Kinds const& outer) {
    GEOSContextHandle_t const handle = session_.Handle();
    if (outer.Surfaces() != nullptr) {
      GeosGeometry const boundary = session_.Own(GEOSBoundary_r(handle, outer.Surfaces()));
      if (Meet(boundary.get(), inner)) return true;
    }
    if (outer.Lines() == nullptr) return false;
    GeosGeometry const ends = session_.Own(GEOSBoundary_r(handle, outer.Lines()));
    return AnyPoint(ends.get(), [&](GEOSGeometry const* end) {
      return !Meet(end, outer.Surfaces()) && Meet(end, inner);
    });
  }

  bool Cross() {
    if (a_.Dimension() < b_.Dimension()) return InteriorsMeet() && !IsCovered(a_, b_);
    if (a_.Dimension() > b_.Dimension()) return InteriorsMeet() && !IsCovered(b_, a_);
    return a_.Dimension() == 1 && InteriorsMeet() && !Relate(a_.Lines(), b_.Lines(), kInteriorsShareLength);
  }

  bool Overlap() {
    if (a_.Dimension() != b_.Dimension()) return false;
    bool const share = a_.Dimension() == 2 ? Relate(a_.Surfaces(), b_.Surfaces(), kInteriorsMeet)
                                           : Relate(a_.Lines(), b_.Lines(), kInteriorsShareLength);
    return share && !IsCovered(a_, b_) && !IsCovered(b_, a_);
  }

  GeosSession& session_;
  Kinds const& a_;
  Kinds const& b_;
};

}  // namespace

bool HoldsForMixed(GeosSession& session, GeosOperand const& a, Relation relation, GeosOperand const& b) {
  Kinds const kindsA(session, a);
  Kinds const kindsB(session, b);
  return MixedPair(session, kindsA, kindsB).Holds(relation);
}

}  // namespace fdo_sdk

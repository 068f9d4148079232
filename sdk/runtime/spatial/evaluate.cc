// FdoSpatialUtility::Evaluate: boxes first, then the quick way for points, then GEOS.
#include <algorithm>
#include <cmath>
#include <string>

#include "FdoSpatial.h"
#include "sdk/runtime/geometry/geometry_append.h"
#include "sdk/runtime/spatial/box_decision.h"
#include "sdk/runtime/spatial/mixed_relation.h"
#include "sdk/runtime/spatial/operand_cache.h"
#include "sdk/runtime/spatial/point_location.h"

namespace fdo_sdk {

namespace {

constexpr double kExactTolerance = 1e-10;

// From the second sight on an index pays for all but points, whose way without one is short too.
constexpr int kSightingsToPrepare = 2;
constexpr int kSightingsToIndexForPoints = 8;

// The side of a geometry that the evaluation sees; that of another maker is copied.
class Viewed {
 public:
  explicit Viewed(FdoIGeometry* geometry) : view_(AsFgfBacked(geometry)) {
    if (view_ != nullptr) return;
    FdoPtr<FdoFgfGeometryFactory> factory = FdoFgfGeometryFactory::GetInstance();
    copy_ = factory->CreateGeometry(geometry);
    view_ = AsFgfBacked(copy_);
  }

  FgfBacked const& operator*() const { return *view_; }

 private:
  FgfBacked const* view_;
  FdoPtr<FdoIGeometry> copy_;
};

// What is true of the relation when a point lies there to a polygon: point to polygon, not the other way.
bool PointAt(Location location, Relation relation) {
  switch (relation) {
    case Relation::kIntersects:
    case Relation::kCoveredBy:
      return location != Location::kExterior;
    case Relation::kDisjoint:
      return location == Location::kExterior;
    case Relation::kWithin:
    case Relation::kInside:
      return location == Location::kInterior;
    case Relation::kTouches:
      return location == Location::kBoundary;
    default:
      return false;
  }
}

Xy PointOf(FgfBacked const& point) {
  PositionSpan const position{point.Bytes().data + kPointHead, 1, point.Scan().dimensionality};
  return {position.X(0), position.Y(0)};
}

// Two geometries, neither a mixed collection.
class GeosPair {
 public:
  GeosPair(GeosSession& session, GEOSGeometry const* a, GEOSPreparedGeometry const* preparedA,
           GEOSGeometry const* b, GEOSPreparedGeometry const* preparedB)
      : session_(session), a_(a), b_(b), preparedA_(preparedA), preparedB_(preparedB) {}

  bool Holds(Relation relation) {
    if (preparedA_ != nullptr && HasIndexedForm(relation)) return Prepared(preparedA_, relation, b_);
    Relation const transposed = Transposed(relation);
    if (preparedB_ != nullptr && HasIndexedForm(transposed)) return Prepared(preparedB_, transposed, a_);
    return Plain(relation);
  }

 private:
  static bool HasIndexedForm(Relation relation) {
    return relation == Relation::kIntersects || relation == Relation::kDisjoint ||
           relation == Relation::kContains || relation == Relation::kCovers ||
           relation == Relation::kContainsProperly;
  }

  bool Prepared(GEOSPreparedGeometry const* prepared, Relation relation, GEOSGeometry const* other) {
    GEOSContextHandle_t const handle = session_.Handle();
    switch (relation) {
      case Relation::kIntersects:
        return session_.Answer(GEOSPreparedIntersects_r(handle, prepared, other));
      case Relation::kDisjoint:
        return session_.Answer(GEOSPreparedDisjoint_r(handle, prepared, other));
      case Relation::kContains:
        return session_.Answer(GEOSPreparedContains_r(handle, prepared, other));
      case Relation::kCovers:
        return session_.Answer(GEOSPreparedCovers_r(handle, prepared, other));
      default:
        return session_.Answer(GEOSPreparedContainsProperly_r(handle, prepared, other));
    }
  }

  bool Plain(Relation relation) {
    GEOSContextHandle_t const handle = session_.Handle();
    switch (relation) {
      case Relation::kContains:
        return session_.Answer(GEOSContains_r(handle, a_, b_));
      case Relation::kCrosses:
        return session_.Answer(GEOSCrosses_r(handle, a_, b_));
      case Relation::kDisjoint:
        return session_.Answer(GEOSDisjoint_r(handle, a_, b_));
      case Relation::kEquals:
        return session_.Answer(GEOSEquals_r(handle, a_, b_));
      case Relation::kIntersects:
      case Relation::kEnvelopeIntersects:
        return session_.Answer(GEOSIntersects_r(handle, a_, b_));
      case Relation::kOverlaps:
        return session_.Answer(GEOSOverlaps_r(handle, a_, b_));
      case Relation::kTouches:
        return session_.Answer(GEOSTouches_r(handle, a_, b_));
      case Relation::kWithin:
        return session_.Answer(GEOSWithin_r(handle, a_, b_));
      case Relation::kCoveredBy:
        return session_.Answer(GEOSCoveredBy_r(handle, a_, b_));
      case Relation::kCovers:
        return session_.Answer(GEOSCovers_r(handle, a_, b_));
      case Relation::kInside:
        return session_.Answer(GEOSRelatePattern_r(handle, a_, b_, "TFF*FF***"));
      case Relation::kContainsProperly:
        return session_.Answer(GEOSRelatePattern_r(handle, a_, b_, "T**FF*FF*"));
    }
    return false;
  }

  GeosSession& session_;
  GEOSGeometry const* a_;
  GEOSGeometry const* b_;
  GEOSPreparedGeometry const* preparedA_;
  GEOSPreparedGeometry const* preparedB_;
};

// What one side of the question is to GEOS: kept from earlier questions, or made for this one.
class GeosSide {
 public:
  GeosSide(GeosSession& session, FgfBacked const& geometry, CachedOperand* cached)
      : session_(session), cached_(cached) {
    if (cached_ == nullptr) own_ = BuildOperand(session, geometry.Bytes().data, geometry.Bytes().size);
  }

  GeosOperand const& Operand() { return cached_ == nullptr ? own_ : cached_->Geos(session_); }

  GEOSPreparedGeometry const* Prepared() {
    if (cached_ == nullptr || cached_->Sightings() < kSightingsToPrepare) return nullptr;
    return cached_->Prepared(session_);
  }

 private:
  GeosSession& session_;
  CachedOperand* cached_;
  GeosOperand own_;
};

bool HoldsInGeos(FgfBacked const& a, CachedOperand* cachedA, Relation relation, FgfBacked const& b,
                 CachedOperand* cachedB) {
  GeosSession& session = GeosSession::OfThisThread();
  GeosSide sideA(session, a, cachedA);
  GeosSide sideB(session, b, cachedB);
  GeosOperand const& operandA = sideA.Operand();
  GeosOperand const& operandB = sideB.Operand();
  // What looked like something in its bytes and is nothing.
  if (operandA.empty() || operandB.empty()) {
    return relation == Relation::kDisjoint ||
           (relation == Relation::kEquals && operandA.empty() && operandB.empty());
  }
  if (operandA.size() > 1 || operandB.size() > 1) return HoldsForMixed(session, operandA, relation, operandB);
  return GeosPair(session, operandA[0].get(), sideA.Prepared(), operandB[0].get(), sideB.Prepared())
      .Holds(relation);
}

// A polygon has no arcs.
bool IsPointInPolygon(FgfBacked const& point, FgfBacked const& polygon) {
  return point.Scan().type == FdoGeometryType_Point && polygon.Scan().type == FdoGeometryType_Polygon;
}

bool LocatedIn(FgfBacked const& point, Relation relation, FgfBacked const& polygon) {
  CachedOperand* const cached = OperandCache::OfThisThread().Find(polygon);
  Xy const at = PointOf(point);
  if (cached != nullptr && cached->Sightings() >= kSightingsToIndexForPoints) {
    return PointAt(cached->Index().Locate(at), relation);
  }
  return PointAt(LocateInPolygon(polygon.Bytes().data, polygon.Bytes().size, at), relation);
}

bool HoldsExactly(FgfBacked const& a, Relation relation, FgfBacked const& b) {
  if (std::optional<bool> const answer = DecideByBoxes(a, relation, b)) return *answer;
  if (IsPointInPolygon(a, b)) return LocatedIn(a, relation, b);
  if (IsPointInPolygon(b, a)) return LocatedIn(b, Transposed(relation), a);
  OperandCache& cache = OperandCache::OfThisThread();
  CachedOperand* const cachedA = cache.Find(a);
  CachedOperand* const cachedB = cache.Find(b);
  return HoldsInGeos(a, cachedA, relation, b, cachedB);
}

bool AnyWithin(GeosSession& session, GeosOperand const& a, double distance, GeosOperand const& b) {
  for (GeosGeometry const& partA : a) {
    for (GeosGeometry const& partB : b) {
      if (session.Answer(GEOSDistanceWithin_r(session.Handle(), partA.get(), partB.get(), distance)))
        return true;
    }
  }
  return false;
}

// Whether the two are no further apart than the distance; what is nothing is near to nothing.
bool IsNear(FgfBacked const& a, FgfBacked const& b, double distance) {
  OperandCache& cache = OperandCache::OfThisThread();
  CachedOperand* const cachedA = cache.Find(a);
  CachedOperand* const cachedB = cache.Find(b);
  GeosSession& session = GeosSession::OfThisThread();
  GeosSide sideA(session, a, cachedA);
  GeosSide sideB(session, b, cachedB);
  GeosOperand const& operandA = sideA.Operand();
  GeosOperand const& operandB = sideB.Operand();
  if (operandA.size() != 1 || operandB.size() != 1) return AnyWithin(session, operandA, distance, operandB);
  GEOSContextHandle_t const handle = session.Handle();
  if (GEOSPreparedGeometry const* prepared = sideB.Prepared()) {
    return session.Answer(GEOSPreparedDistanceWithin_r(handle, prepared, operandA[0].get(), distance));
  }
  if (GEOSPreparedGeometry const* prepared = sideA.Prepared()) {
    return session.Answer(GEOSPreparedDistanceWithin_r(handle, prepared, operandB[0].get(), distance));
  }
  return AnyWithin(session, operandA, distance, operandB);
}

// Moves the positions of each to those of the other that are nearer than the tolerance.
void Snap(GeosSession& session, GeosOperand& a, double tolerance, GeosOperand const& b) {
  for (GeosGeometry& partA : a) {
    for (GeosGeometry const& partB : b) {
      partA = session.Own(GEOSSnap_r(session.Handle(), partA.get(), partB.get(), tolerance));
    }
  }
}

bool HoldsWithin(FgfBacked const& a, Relation relation, FgfBacked const& b, double tolerance) {
  FgfBox boxA = a.Scan().box;
  FgfBox const& boxB = b.Scan().box;
  if (boxA.IsEmpty() || boxB.IsEmpty()) return *DecideByBoxes(a, relation, b);
  boxA.minX -= tolerance;
  boxA.minY -= tolerance;
  boxA.maxX += tolerance;
  boxA.maxY += tolerance;
  bool const boxesMeet = boxA.Intersects(boxB);
  if (relation == Relation::kEnvelopeIntersects) return boxesMeet;
  if (!boxesMeet) return relation == Relation::kDisjoint;
  if (relation == Relation::kIntersects) return IsNear(a, b, tolerance);
  if (relation == Relation::kDisjoint) return !IsNear(a, b, tolerance);
  GeosSession& session = GeosSession::OfThisThread();
  GeosOperand operandA = BuildOperand(session, a.Bytes().data, a.Bytes().size);
  GeosOperand operandB = BuildOperand(session, b.Bytes().data, b.Bytes().size);
  if (operandA.empty() || operandB.empty()) return false;
  Snap(session, operandB, tolerance, operandA);
  Snap(session, operandA, tolerance, operandB);
  if (operandA.size() > 1 || operandB.size() > 1) return HoldsForMixed(session, operandA, relation, operandB);
  return GeosPair(session, operandA[0].get(), nullptr, operandB[0].get(), nullptr).Holds(relation);
}

}  // namespace

}  // namespace fdo_sdk

bool FdoSpatialUtility::Evaluate(FdoIGeometry* g1, FdoSpatialOperations op, FdoIGeometry* g2) {
  return Evaluate(g1, op, g2, fdo_sdk::kExactTolerance);
}

bool FdoSpatialUtility::Evaluate(FdoIGeometry* g1, FdoSpatialOperations op, FdoIGeometry* g2,
                                 double toleranceXY) {
  return Evaluate(g1, op, g2, toleranceXY, fdo_sdk::kExactTolerance);
}

bool FdoSpatialUtility::Evaluate(FdoIGeometry* g1, FdoSpatialOperations op, FdoIGeometry* g2,
                                 double toleranceXY, double toleranceZ) {
  using namespace fdo_sdk;
  if (op < FdoSpatialOperations_Contains || op > FdoSpatialOperations_EnvelopeIntersects) {
    ThrowFailure(L"The spatial operation is unknown.");
  }
  if (!(toleranceXY > 0) || !(toleranceZ > 0)) ThrowFailure(L"A tolerance must be above 0.");
  if (g1 == nullptr || g2 == nullptr) return false;
  Viewed const a(g1);
  Viewed const b(g2);
  Relation const relation = static_cast<Relation>(op);
  if (toleranceXY <= kExactTolerance) return HoldsExactly(*a, relation, *b);
  return HoldsWithin(*a, relation, *b, toleranceXY);
}

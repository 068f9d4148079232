#include "sdk/runtime/spatial/box_decision.h"

namespace fdo_sdk {

namespace {

bool SameBox(FgfBox const& a, FgfBox const& b) {
  return a.minX == b.minX && a.minY == b.minY && a.maxX == b.maxX && a.maxY == b.maxY;
}

// Whether the geometry is a polygon that fills its box, so that the box says all there is to say.
bool IsRectangle(FgfBacked const& geometry) {
  if (geometry.Scan().type != FdoGeometryType_Polygon) return false;
  FdoByte const* const rings = geometry.Bytes().data + kLineHead - sizeof(FdoInt32);
  constexpr FdoInt32 kCorners = 5;
  if (Load<FdoInt32>(rings) != 1 || Load<FdoInt32>(rings + sizeof(FdoInt32)) != kCorners) return false;
  PositionSpan const ring{rings + 2 * sizeof(FdoInt32), kCorners, geometry.Scan().dimensionality};
  FgfBox const& box = geometry.Scan().box;
  if (!(box.minX < box.maxX && box.minY < box.maxY)) return false;
  if (ring.X(0) != ring.X(4) || ring.Y(0) != ring.Y(4)) return false;
  for (FdoInt32 i = 0; i < 4; ++i) {
    bool const isCorner =
        (ring.X(i) == box.minX || ring.X(i) == box.maxX) && (ring.Y(i) == box.minY || ring.Y(i) == box.maxY);
    bool const sameX = ring.X(i) == ring.X(i + 1);
    bool const sameY = ring.Y(i) == ring.Y(i + 1);
    if (!isCorner || sameX == sameY) return false;
  }
  return true;
}

// The interior of one box meets that of the other.
bool InteriorsMeet(FgfBox const& a, FgfBox const& b) {
  return a.minX < b.maxX && b.minX < a.maxX && a.minY < b.maxY && b.minY < a.maxY;
}

bool BetweenRectangles(FgfBox const& a, Relation relation, FgfBox const& b) {
  switch (relation) {
    case Relation::kContains:
    case Relation::kCovers:
      return a.Contains(b);
    case Relation::kWithin:
    case Relation::kCoveredBy:
      return b.Contains(a);
    case Relation::kContainsProperly:
      return a.ContainsProperly(b);
    case Relation::kInside:
      return b.ContainsProperly(a);
    case Relation::kCrosses:
      return false;
    case Relation::kDisjoint:
      return !a.Intersects(b);
    case Relation::kIntersects:
    case Relation::kEnvelopeIntersects:
      return a.Intersects(b);
    case Relation::kEquals:
      return SameBox(a, b);
    case Relation::kOverlaps:
      return InteriorsMeet(a, b) && !a.Contains(b) && !b.Contains(a);
    case Relation::kTouches:
      return a.Intersects(b) && !InteriorsMeet(a, b);
  }
  return false;
}

// a is a rectangle and b lies in its interior.
bool AroundInside(Relation relation) {
  return relation == Relation::kContains || relation == Relation::kCovers ||
         relation == Relation::kContainsProperly || relation == Relation::kIntersects;
}

std::optional<bool> ByRectangle(FgfBacked const& a, Relation relation, FgfBacked const& b) {
  FgfBox const& boxA = a.Scan().box;
  FgfBox const& boxB = b.Scan().box;
  if (!boxA.Contains(boxB) || !IsRectangle(a)) return std::nullopt;
  if (boxA.ContainsProperly(boxB)) return AroundInside(relation);
  if (relation == Relation::kIntersects || relation == Relation::kCovers) return true;
  if (relation == Relation::kDisjoint) return false;
  return std::nullopt;
}

}  // namespace

std::optional<bool> DecideByBoxes(FgfBacked const& a, Relation relation, FgfBacked const& b) {
  FgfBox const& boxA = a.Scan().box;
  FgfBox const& boxB = b.Scan().box;
  if (boxA.IsEmpty() || boxB.IsEmpty()) {
    return relation == Relation::kDisjoint ||
           (relation == Relation::kEquals && boxA.IsEmpty() && boxB.IsEmpty());
  }
  if (relation == Relation::kEnvelopeIntersects) return boxA.Intersects(boxB);
  if (!boxA.Intersects(boxB)) return relation == Relation::kDisjoint;
  // What follows holds for positions; an arc is replaced by lines that stay within its box, but need not
  // fill it.
  if (a.Scan().hasArcs || b.Scan().hasArcs) return std::nullopt;
  bool const mustHold = relation == Relation::kContains || relation == Relation::kCovers ||
                        relation == Relation::kContainsProperly;
  bool const mustLie =
      relation == Relation::kWithin || relation == Relation::kCoveredBy || relation == Relation::kInside;
  if ((mustHold || relation == Relation::kEquals) && !boxA.Contains(boxB)) return false;
  if ((mustLie || relation == Relation::kEquals) && !boxB.Contains(boxA)) return false;
  if (IsRectangle(a) && IsRectangle(b)) return BetweenRectangles(boxA, relation, boxB);
  if (std::optional<bool> const answer = ByRectangle(a, relation, b)) return answer;
  return ByRectangle(b, Transposed(relation), a);
}

}  // namespace fdo_sdk

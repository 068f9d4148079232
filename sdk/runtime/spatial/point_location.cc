#include "sdk/runtime/spatial/point_location.h"

#include <cmath>

namespace fdo_sdk {

namespace {

// A number as a sum of doubles that do not overlap, the smallest first: what Shewchuk calls an expansion.
class ExactSum {
 public:
  void Add(double term) {
    int kept = 0;
    for (int i = 0; i < size_; ++i) {
      double rest = 0;
      term = TwoSum(term, terms_[i], rest);
      if (rest != 0) terms_[kept++] = rest;
    }
    if (term != 0) terms_[kept++] = term;
    size_ = kept;
  }

  void AddProduct(double left, double right) {
    double const product = left * right;
    Add(std::fma(left, right, -product));
    Add(product);
  }

  int Sign() const {
    if (size_ == 0) return 0;
    return terms_[size_ - 1] > 0 ? 1 : -1;
  }

  static double TwoSum(double left, double right, double& rest) {
    double const sum = left + right;
    double const virtualRight = sum - left;
    rest = (left - (sum - virtualRight)) + (right - virtualRight);
    return sum;
  }

 private:
  double terms_[16];  // eight products of two terms each
  int size_ = 0;
};

int ExactOrientation(Xy const& a, Xy const& b, Xy const& c) {
  double axRest = 0;
  double ayRest = 0;
  double bxRest = 0;
  double byRest = 0;
  double const ax = ExactSum::TwoSum(a.x, -c.x, axRest);
  double const ay = ExactSum::TwoSum(a.y, -c.y, ayRest);
  double const bx = ExactSum::TwoSum(b.x, -c.x, bxRest);
  double const by = ExactSum::TwoSum(b.y, -c.y, byRest);
  ExactSum sum;
  sum.AddProduct(axRest, byRest);
  sum.AddProduct(-ayRest, bxRest);
  sum.AddProduct(axRest, by);
  sum.AddProduct(ax, byRest);
  sum.AddProduct(-ayRest, bx);
  sum.AddProduct(-ay, bxRest);
  sum.AddProduct(ax, by);
  sum.AddProduct(-ay, bx);
  return sum.Sign();
}

Xy At(FdoByte const* at) { return {Load<double>(at), Load<double>(at + sizeof(double))}; }

// A sink that locates the point in one ring after the other.
class PolygonSink : public FgfSink {
 public:
  explicit PolygonSink(Xy const& point) : point_(point) {}

  void Positions(PositionSpan const& ring) {
    bool const isOuter = !sawOuter_;
    sawOuter_ = true;
    if (decided_) return;
    Location const inRing = LocateInRing(ring, point_);
    Location const outside = isOuter ? Location::kExterior : Location::kInterior;
    location_ = isOuter ? inRing : location_;
    if (inRing == Location::kBoundary || inRing == outside) {
      location_ = inRing == Location::kBoundary ? Location::kBoundary : Location::kExterior;
      decided_ = true;
    }
  }

  Location Found() const { return location_; }

 private:
  Xy point_;
  bool sawOuter_ = false;
  bool decided_ = false;
  Location location_ = Location::kExterior;
};

}  // namespace

int Orientation(Xy const& a, Xy const& b, Xy const& c) {
  RoundedOrientation const rounded(a, b, c);
  if (rounded.IsUnsure()) return ExactOrientation(a, b, c);
  return rounded.difference > 0 ? 1 : -1;
}

Location LocateInRing(PositionSpan const& ring, Xy const& point) {
  if (ring.count == 0) return Location::kExterior;
  std::size_t const stride = PositionBytes(ring.dimensionality);
  FdoByte const* at = ring.data;
  Xy from = At(ring.At(ring.count - 1));
  bool inside = false;
  for (FdoInt32 i = 0; i < ring.count; ++i, at += stride) {
    Xy const to = At(at);
    EdgeAtRay const edge = FollowRay(from, to, point);
    if (edge == EdgeAtRay::kHoldsPoint) return Location::kBoundary;
    if (edge == EdgeAtRay::kCrosses) inside = !inside;
    from = to;
  }
  return inside ? Location::kInterior : Location::kExterior;
}

Location LocateInPolygon(FdoByte const* polygon, std::size_t size, Xy const& point) {
  FgfCursor in(polygon, size);
  PolygonSink sink(point);
  FgfWalk<PolygonSink>(in, sink).Geometry();
  return sink.Found();
}

}  // namespace fdo_sdk

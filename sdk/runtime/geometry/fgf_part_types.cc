#include "sdk/runtime/geometry/fgf_part_types.h"

namespace fdo_sdk {

FdoInt32 PartList::Count(FgfBytes const& bytes) const {
  return Load<FdoInt32>(bytes.data + sizeof(FdoInt32));
}

FdoIGeometry* PartList::Item(FgfBytes const& bytes, FdoInt32 index) const {
  CheckIndex(index, Count(bytes));
  std::size_t const offset = offsets_.Find(index, kPartsHead, [&bytes](std::size_t at) {
    FgfCursor in = bytes.Cursor(at);
    FgfSink sink;
    FgfWalk<FgfSink>(in, sink).Geometry();
    return static_cast<std::size_t>(in.At() - bytes.data);
  });
  return MakeGeometry(bytes.From(offset));
}

namespace {

// A sink that lays the points of a multi point side by side, all with the ordinates that any of them has.
struct OrdinateSink : FgfSink {
  FdoInt32 dimensionality;
  double* to;

  OrdinateSink(FdoInt32 dimensionality_, double* to_) : dimensionality(dimensionality_), to(to_) {}
  void Positions(PositionSpan const& position) {
    double x = 0;
    double y = 0;
    double z = 0;
    double m = 0;
    GetMembers(position.data, position.dimensionality, &x, &y, &z, &m, nullptr);
    *to++ = x;
    *to++ = y;
    if (dimensionality & FdoDimensionality_Z) *to++ = z;
    if (dimensionality & FdoDimensionality_M) *to++ = m;
  }
};

}  // namespace

double const* FgfMultiPoint::GetOrdinates() {
  FdoInt32 const count = GetCount();
  if (count == 0) return nullptr;
  if (ordinates_ == nullptr) {
    auto const perPoint = static_cast<std::size_t>(OrdinateCount(Scan().dimensionality));
    auto ordinates = std::make_unique<double[]>(static_cast<std::size_t>(count) * perPoint);
    OrdinateSink sink(Scan().dimensionality, ordinates.get());
    FgfCursor in = Bytes().Cursor();
    FgfWalk<OrdinateSink>(in, sink).Geometry();
    ordinates_ = std::move(ordinates);
  }
  return ordinates_.get();
}

}  // namespace fdo_sdk

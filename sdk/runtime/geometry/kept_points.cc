// Points in XY come and go by the row, and a point that is made anew takes most of its time to fill in what
// every point of the kind has. So each thread keeps some that nobody holds any more, whole but for their
// position, and makes the next points of them.
#include "sdk/runtime/geometry/fgf_simple_types.h"

namespace fdo_sdk {

// Requires: IsPointXy of the bytes, which are borrowed.
class PointMaker {
 public:
  static FdoIGeometry* New(FdoByte const* bytes) {
    return new FgfPoint({bytes, kPointXyBytes, {}}, ScanPointXy(bytes));
  }
  static FdoIGeometry* Make(FdoByte const* bytes);
};

#ifdef FDO_SDK_KEEPS_NO_MEMORY

FdoIGeometry* PointMaker::Make(FdoByte const* bytes) { return New(bytes); }

FdoInt32 FgfPoint::Release() { return FdoInternal::Counting::Release(*this); }

void FgfPoint::Dispose() { delete this; }

#else

namespace {

constexpr unsigned kMostPoints = 16;

// The room is none before the first use on a thread and after the thread's own objects are gone. Never
// destroyed, because points may end later still.
struct KeptPoints {
  FgfPoint* points[kMostPoints];
  unsigned count;
  unsigned room;
  bool wasOpened;
};

constinit thread_local KeptPoints keptPoints{};

struct ClosesAtThreadEnd {
  ~ClosesAtThreadEnd() {
    keptPoints.room = 0;
    while (keptPoints.count > 0) delete keptPoints.points[--keptPoints.count];
  }
};

// Errors: false when there is no room and never will be more.
bool Open() {
  if (keptPoints.wasOpened) return false;
  thread_local ClosesAtThreadEnd const closes;
  keptPoints.wasOpened = true;
  keptPoints.room = kMostPoints;
  return true;
}

}  // namespace

inline FdoIGeometry* PointMaker::Make(FdoByte const* bytes) {
  auto const x = Load<double>(bytes + kPointHead);
  auto const y = Load<double>(bytes + kPointHead + sizeof(double));
  bool const isEmpty = x != x || y != y;
  if (keptPoints.count == 0 || isEmpty) return New(bytes);
  FgfPoint* const point = keptPoints.points[--keptPoints.count];
  point->BecomePoint(bytes, x, y);
  FdoInternal::Counting::BeginAgain(*point);
  return point;
}

// As inherited, but for the virtual call of Dispose.
FdoInt32 FgfPoint::Release() {
  FdoInt32 const left = FdoInternal::Counting::Change(*this, -1);
  if (left == 0) FgfPoint::Dispose();
  return left;
}

void FgfPoint::Dispose() {
  bool const isKeepable = Scan().dimensionality == FdoDimensionality_XY && Bytes().array == nullptr;
  if (!isKeepable || (keptPoints.count >= keptPoints.room && !Open())) {
    delete this;
    return;
  }
  lent_.Forget();
  keptPoints.points[keptPoints.count++] = this;
}

#endif  // FDO_SDK_KEEPS_NO_MEMORY

}  // namespace fdo_sdk

// Here, because the whole object of a point takes less time than a call more would.
FdoIGeometry* FdoFgfGeometryFactory::CreateGeometryFromFgf(FdoByte const* byteArray, FdoInt32 count) {
  if (count < 0) fdo_sdk::ThrowInvalidFgf();
  auto const size = static_cast<std::size_t>(count);
  if (fdo_sdk::IsPointXy(byteArray, size)) return fdo_sdk::PointMaker::Make(byteArray);
  return fdo_sdk::MakeGeometry({byteArray, size, {}});
}

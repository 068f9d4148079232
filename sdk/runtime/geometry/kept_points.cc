// Points in XY come and go by the row, and a point that is made anew takes most of its time to fill in what
// every point of the kind has. So each thread keeps some that nobody holds any more, whole but for their
// position, and makes the next points of them.
#include <cmath>
#include <utility>

#include "port/inlining.h"
#include "sdk/runtime/geometry/fgf_simple_types.h"

namespace fdo_sdk {

class PointMaker {
 public:
  // Requires: IsPointXy of the bytes, which are borrowed.
  // Errors: null where the point kept last is not there, or the new one is nowhere.
  static FdoIGeometry* MakeOfLast(FdoByte const* bytes);
  // The same, of any that is kept or anew.
  static FdoIGeometry* Make(FdoByte const* bytes);

  // Keeps the point, or deletes it. Gives 0, the references that are left.
  // Requires: nobody holds the point.
  static FdoInt32 End(FgfPoint* point);

 private:
  static FdoInt32 EndOther(FgfPoint* point);
};

#ifdef FDO_SDK_KEEPS_NO_MEMORY

inline FdoIGeometry* PointMaker::MakeOfLast(FdoByte const*) { return nullptr; }

FdoIGeometry* PointMaker::Make(FdoByte const* bytes) {
  return new FgfPoint({bytes, kPointXyBytes, {}}, ScanPointXy(bytes));
}

inline FdoInt32 PointMaker::End(FgfPoint* point) {
  delete point;
  return 0;
}

#else

namespace {

constexpr unsigned kMostOthers = 15;

// Open from the first use on a thread until the thread's own objects are gone. Never destroyed, because
// points may end later still.
struct KeptPoints {
  FgfPoint* last;  // apart, because most often there is one at a time
  bool isOpen;
  bool wasOpened;
  unsigned otherCount;
  FgfPoint* others[kMostOthers];
};

constinit thread_local KeptPoints keptPoints{};

struct ClosesAtThreadEnd {
  ~ClosesAtThreadEnd() {
    keptPoints.isOpen = false;
    delete std::exchange(keptPoints.last, nullptr);
    while (keptPoints.otherCount > 0) delete keptPoints.others[--keptPoints.otherCount];
  }
};

// Errors: false where nothing will ever be kept again.
bool Open() {
  if (keptPoints.wasOpened) return keptPoints.isOpen;
  thread_local ClosesAtThreadEnd const closes;
  keptPoints.wasOpened = keptPoints.isOpen = true;
  return true;
}

}  // namespace

inline FdoIGeometry* PointMaker::MakeOfLast(FdoByte const* bytes) {
  auto const x = Load<double>(bytes + kPointHead);
  auto const y = Load<double>(bytes + kPointHead + sizeof(double));
  FgfPoint* const point = keptPoints.last;
  if (point == nullptr || std::isunordered(x, y)) [[unlikely]]
    return nullptr;
  keptPoints.last = nullptr;
  point->BecomePoint(bytes, x, y);
  FdoInternal::Counting::BeginAgain(*point);
  return point;
}

FdoIGeometry* PointMaker::Make(FdoByte const* bytes) {
  if (keptPoints.last == nullptr && keptPoints.otherCount > 0) {
    keptPoints.last = keptPoints.others[--keptPoints.otherCount];
  }
  if (FdoIGeometry* const point = MakeOfLast(bytes)) return point;
  return new FgfPoint({bytes, kPointXyBytes, {}}, ScanPointXy(bytes));
}

inline FdoInt32 PointMaker::End(FgfPoint* point) {
  bool const isBare = point->isPlain_ && !point->HasText() && !point->lent_.HasLent();
  if (!isBare || !keptPoints.isOpen || keptPoints.last != nullptr) [[unlikely]]
    return EndOther(point);
  keptPoints.last = point;
  return 0;
}

// Apart, so that the common case needs no stack.
QUILLON_NEVER_INLINE FdoInt32 PointMaker::EndOther(FgfPoint* point) {
  if (!point->isPlain_ || !Open() || keptPoints.otherCount == kMostOthers) {
    delete point;
    return 0;
  }
  point->ForgetText();
  point->lent_.Forget();
  keptPoints.others[keptPoints.otherCount++] = point;
  return 0;
}

#endif  // FDO_SDK_KEEPS_NO_MEMORY

FgfPoint::FgfPoint(FgfBytes&& bytes, FgfScan const& scan)
    : FgfGeometry(std::move(bytes), scan),
      isPlain_(Scan().dimensionality == FdoDimensionality_XY && Bytes().array == nullptr) {}

// As inherited, but for the virtual call of Dispose.
FdoInt32 FgfPoint::Release() {
  FdoInt32 const left = FdoInternal::Counting::Change(*this, -1);
  if (left != 0) [[unlikely]]
    return left;
  return PointMaker::End(this);
}

void FgfPoint::Dispose() { PointMaker::End(this); }

namespace {

QUILLON_NEVER_INLINE FdoIGeometry* MakeOther(FdoByte const* bytes, FdoInt32 count) {
  if (count < 0) ThrowInvalidFgf();
  auto const size = static_cast<std::size_t>(count);
  return IsPointXy(bytes, size) ? PointMaker::Make(bytes) : MakeGeometry({bytes, size, {}});
}

}  // namespace

}  // namespace fdo_sdk

// Here, because the whole object of a point takes less time than a call more would.
FdoIGeometry* FdoFgfGeometryFactory::CreateGeometryFromFgf(FdoByte const* byteArray, FdoInt32 count) {
  if (count >= static_cast<FdoInt32>(fdo_sdk::kPointXyBytes) &&
      fdo_sdk::IsPointXy(byteArray, static_cast<std::size_t>(count))) [[likely]] {
    FdoIGeometry* const point = fdo_sdk::PointMaker::MakeOfLast(byteArray);
    if (point != nullptr) [[likely]]
      return point;
  }
  return fdo_sdk::MakeOther(byteArray, count);
}

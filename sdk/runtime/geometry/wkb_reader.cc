#include "sdk/runtime/geometry/wkb_reader.h"

#include <algorithm>
#include <limits>
#include <string>

#include "sdk/runtime/geometry/wkb_layout.h"

namespace fdo_sdk {

namespace {

// Reads WKB front to back and never past its end, in the byte order that was announced last.
class WkbCursor {
 public:
  WkbCursor(FdoByte const* begin, std::size_t size) : at_(begin), end_(begin + size) {}

  std::size_t Left() const { return static_cast<std::size_t>(end_ - at_); }

  FdoByte const* Take(std::size_t size) {
    if (size > Left()) ThrowInvalidWkb();
    FdoByte const* const taken = at_;
    at_ += size;
    return taken;
  }

  void ByteOrder() {
    FdoByte const order = *Take(1);
    if (order > 1) ThrowInvalidWkb();
    bigEndian_ = order == 0;
  }

  std::uint32_t Uint32() {
    FdoByte const* const taken = Take(sizeof(std::uint32_t));
    return bigEndian_ ? Reversed<std::uint32_t>(taken) : Load<std::uint32_t>(taken);
  }

  FdoInt32 Count(std::size_t smallest) {
    std::uint32_t const count = Uint32();
    if (count > static_cast<std::uint32_t>(std::numeric_limits<FdoInt32>::max()) ||
        count > Left() / smallest) {
      ThrowInvalidWkb();
    }
    return static_cast<FdoInt32>(count);
  }

  void CopyPositions(FdoInt32 count, FdoInt32 dimensionality, FgfBuilder& out) {
    std::size_t const size = static_cast<std::size_t>(count) * PositionBytes(dimensionality);
    FdoByte const* const taken = Take(size);
    if (!bigEndian_) return out.Bytes(taken, size);
    for (std::size_t at = 0; at < size; at += sizeof(double)) out.Double(Reversed<double>(taken + at));
  }

 private:
  template <class Number>
  static Number Reversed(FdoByte const* from) {
    FdoByte turned[sizeof(Number)];
    std::reverse_copy(from, from + sizeof(Number), turned);
    return Load<Number>(turned);
  }

  FdoByte const* at_;
  FdoByte const* end_;
  bool bigEndian_ = false;
};

struct WkbHead {
  std::uint32_t type;
  FdoInt32 dimensionality;
};

class WkbReader {
 public:
  WkbReader(FdoByte const* wkb, std::size_t size, FgfBuilder& out) : in_(wkb, size), out_(out) {}

  void Geometry(int level) {
    if (level > kMaxLevels) ThrowInvalidWkb();
    WkbHead const head = Head();
    switch (head.type) {
      case kWkbPoint:
      case kWkbLineString:
      case kWkbPolygon:
        return Simple(head);
      case kWkbMultiPoint:
        return Parts(FdoGeometryType_MultiPoint, kWkbPoint);
      case kWkbMultiLineString:
        return Parts(FdoGeometryType_MultiLineString, kWkbLineString);
      case kWkbMultiPolygon:
        return Parts(FdoGeometryType_MultiPolygon, kWkbPolygon);
      case kWkbGeometryCollection: {
        FdoInt32 const count = BeginParts(FdoGeometryType_MultiGeometry);
        for (FdoInt32 i = 0; i < count; ++i) Geometry(level + 1);
        return;
      }
      case kWkbCircularString:
      case kWkbCompoundCurve:
        return CurveString(head);
      case kWkbCurvePolygon:
        return CurvePolygon(head);
      case kWkbMultiCurve: {
        FdoInt32 const count = BeginParts(FdoGeometryType_MultiCurveString);
        for (FdoInt32 i = 0; i < count; ++i) CurveString(Head());
        return;
      }
      case kWkbMultiSurface: {
        FdoInt32 const count = BeginParts(FdoGeometryType_MultiCurvePolygon);
        for (FdoInt32 i = 0; i < count; ++i) CurvePolygon(Head());
        return;
      }
      default:
        ThrowFailure(
            (L"The WKB geometry type " + std::to_wstring(head.type) + L" is not supported.").c_str());
    }
  }

 private:
  WkbHead Head() {
    in_.ByteOrder();
    std::uint32_t word = in_.Uint32();
    bool const oldZ = (word & kWkbOldZ) != 0;
    word &= ~kWkbOldZ;
    std::uint32_t const thousands = word / kWkbThousand;
    if (thousands > (FdoDimensionality_Z | FdoDimensionality_M)) ThrowInvalidWkb();
    FdoInt32 const iso = static_cast<FdoInt32>(thousands);
    return {word % kWkbThousand, oldZ ? iso | FdoDimensionality_Z : iso};
  }

  FdoInt32 PositionCount(FdoInt32 dimensionality) { return in_.Count(PositionBytes(dimensionality)); }

  void Simple(WkbHead const& head) {
    FdoInt32 const dimensionality = head.dimensionality;
    out_.Uint32(head.type);
    out_.Int32(dimensionality);
    if (head.type == kWkbPoint) return in_.CopyPositions(1, dimensionality, out_);
    if (head.type == kWkbLineString) return CountedPositions(dimensionality);
    FdoInt32 const rings = in_.Count(kSmallestWkbRing);
    out_.Int32(rings);
    for (FdoInt32 i = 0; i < rings; ++i) CountedPositions(dimensionality);
  }

  void CountedPositions(FdoInt32 dimensionality) {
    FdoInt32 const count = PositionCount(dimensionality);
    out_.Int32(count);
    in_.CopyPositions(count, dimensionality, out_);
  }

  FdoInt32 BeginParts(FdoGeometryType fgfType) {
    FdoInt32 const count = in_.Count(kSmallestWkbPart);
    out_.Int32(fgfType);
    out_.Int32(count);
    return count;
  }

  void Parts(FdoGeometryType fgfType, std::uint32_t partType) {
    FdoInt32 const count = BeginParts(fgfType);
    for (FdoInt32 i = 0; i < count; ++i) {
      WkbHead const head = Head();
      if (head.type != partType) ThrowInvalidWkb();
      Simple(head);
    }
  }

  void CurveString(WkbHead const& head) {
    out_.Int32(FdoGeometryType_CurveString);
    out_.Int32(head.dimensionality);
    Curve(head);
  }

  // A ring of a polygon has no header of its own; that of a curve polygon is a whole curve.
  void CurvePolygon(WkbHead const& head) {
    if (head.type != kWkbCurvePolygon && head.type != kWkbPolygon) ThrowInvalidWkb();
    bool const straight = head.type == kWkbPolygon;
    FdoInt32 const rings = in_.Count(straight ? kSmallestWkbRing : kSmallestWkbPart);
    out_.Int32(FdoGeometryType_CurvePolygon);
    out_.Int32(head.dimensionality);
    out_.Int32(rings);
    for (FdoInt32 i = 0; i < rings; ++i) {
      if (straight) {
        Curve({kWkbLineString, head.dimensionality});
      } else {
        Curve(MemberHead(head.dimensionality));
      }
    }
  }

  WkbHead MemberHead(FdoInt32 dimensionality) {
    WkbHead const head = Head();
    if (head.dimensionality != dimensionality) ThrowInvalidWkb();
    return head;
  }

  // Start position, segment count and segments, from what follows the header of a curve.
  void Curve(WkbHead const& head) {
    std::size_t const startAt = out_.Size();
    for (int i = 0; i < OrdinateCount(head.dimensionality); ++i) {
      out_.Double(std::numeric_limits<double>::quiet_NaN());
    }
    std::size_t const countAt = out_.Size();
    out_.Int32(0);
    previousAt_ = kNowhere;
    FdoInt32 segments = 0;
    if (head.type == kWkbCompoundCurve) {
      FdoInt32 const members = in_.Count(kSmallestWkbPart);
      for (FdoInt32 i = 0; i < members; ++i) segments += Member(MemberHead(head.dimensionality), startAt);
    } else {
      segments = Member(head, startAt);
    }
    out_.SetInt32(countAt, segments);
  }

  // One line string or circular string; gives the number of segments it becomes.
  FdoInt32 Member(WkbHead const& head, std::size_t startAt) {
    bool const arcs = head.type == kWkbCircularString;
    if (!arcs && head.type != kWkbLineString) ThrowInvalidWkb();
    FdoInt32 const count = PositionCount(head.dimensionality);
    if (count == 0) return 0;
    if (arcs && count % 2 == 0) ThrowInvalidWkb();
    FgfBuilder first;
    in_.CopyPositions(1, head.dimensionality, first);
    // Arcs of one position that is nowhere are how an empty curve may be written, too.
    if (arcs && count == 1 && first.IsNanAt(0) && first.IsNanAt(sizeof(double))) return 0;
    Join(first, startAt);
    if (!arcs) {
      out_.Int32(FdoGeometryComponentType_LineStringSegment);
      out_.Int32(count - 1);
      in_.CopyPositions(count - 1, head.dimensionality, out_);
      if (count > 1) previousAt_ = out_.Size() - PositionBytes(head.dimensionality);
      return 1;
    }
    for (FdoInt32 i = 1; i < count; i += 2) {
      out_.Int32(FdoGeometryComponentType_CircularArcSegment);
      in_.CopyPositions(2, head.dimensionality, out_);
      previousAt_ = out_.Size() - PositionBytes(head.dimensionality);
    }
    return count / 2;
  }

  // The first position of a member is the start of the curve, or the end of the member before.
  void Join(FgfBuilder const& first, std::size_t startAt) {
    if (previousAt_ == kNowhere) {
      out_.SetBytes(startAt, first);
      previousAt_ = startAt;
    } else if (!out_.SameBytes(previousAt_, first)) {
      ThrowInvalidWkb();
    }
  }

  static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

  WkbCursor in_;
  FgfBuilder& out_;
  std::size_t previousAt_ = kNowhere;  // where the end of the curve so far was written
};

}  // namespace

void ReadWkb(FdoByte const* wkb, std::size_t size, FgfBuilder& out) {
  if (wkb == nullptr) ThrowInvalidWkb();
  WkbReader(wkb, size, out).Geometry(1);
}

}  // namespace fdo_sdk

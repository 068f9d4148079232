#include "sdk/runtime/geometry/wkb_reader.h"

#include <limits>
#include <string>
#include <type_traits>

#include "sdk/runtime/geometry/fgf_scan.h"
#include "sdk/runtime/geometry/wkb_cursor.h"

namespace fdo_sdk {

namespace {

// Reads the curves. Their starts and counts are known only when their members have been read.
class WkbCurveReader {
 public:
  WkbCurveReader(WkbCursor& in, FgfBuilder& out) : in_(in), out_(out) {}

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

 private:
  WkbHead MemberHead(FdoInt32 dimensionality) {
    WkbHead const head = in_.Head();
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
    FdoInt32 const count = in_.Count(PositionBytes(head.dimensionality));
    if (count == 0) return 0;
    if (arcs && count % 2 == 0) ThrowInvalidWkb();
    FgfBuilder first;
    in_.Positions(1, head.dimensionality, first);
    // Arcs of one position that is nowhere are how an empty curve may be written, too.
    if (arcs && count == 1 && first.IsNanAt(0) && first.IsNanAt(sizeof(double))) return 0;
    Join(first, startAt);
    if (!arcs) {
      out_.Int32(FdoGeometryComponentType_LineStringSegment);
      out_.Int32(count - 1);
      in_.Positions(count - 1, head.dimensionality, out_);
      if (count > 1) previousAt_ = out_.Size() - PositionBytes(head.dimensionality);
      return 1;
    }
    for (FdoInt32 i = 1; i < count; i += 2) {
      out_.Int32(FdoGeometryComponentType_CircularArcSegment);
      in_.Positions(2, head.dimensionality, out_);
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

  WkbCursor& in_;
  FgfBuilder& out_;
  std::size_t previousAt_ = kNowhere;  // where the end of the curve so far was written
};

// Takes the place of FgfBuilder where only the box is wanted.
struct WkbBoxSink : BoxSink {
  void Uint32(std::uint32_t) {}
  void Int32(FdoInt32) {}
};

// Out is FgfBuilder, or WkbBoxSink: what one of them accepts the other does.
template <class Out>
class WkbReader {
 public:
  WkbReader(WkbCursor& in, Out& out) : in_(in), out_(out) {}

  void Geometry(int level) {
    if (level > kMaxLevels) ThrowInvalidWkb();
    WkbHead const head = in_.Head();
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
        return Curve([&](WkbCurveReader reader) { reader.CurveString(head); });
      case kWkbCurvePolygon:
        return Curve([&](WkbCurveReader reader) { reader.CurvePolygon(head); });
      case kWkbMultiCurve: {
        FdoInt32 const count = BeginParts(FdoGeometryType_MultiCurveString);
        for (FdoInt32 i = 0; i < count; ++i)
          Curve([&](WkbCurveReader reader) { reader.CurveString(in_.Head()); });
        return;
      }
      case kWkbMultiSurface: {
        FdoInt32 const count = BeginParts(FdoGeometryType_MultiCurvePolygon);
        for (FdoInt32 i = 0; i < count; ++i)
          Curve([&](WkbCurveReader reader) { reader.CurvePolygon(in_.Head()); });
        return;
      }
      default:
        ThrowFailure(
            (L"The WKB geometry type " + std::to_wstring(head.type) + L" is not supported.").c_str());
    }
  }

 private:
  void Simple(WkbHead const& head) {
    FdoInt32 const dimensionality = head.dimensionality;
    out_.Uint32(head.type);
    out_.Int32(dimensionality);
    if (head.type == kWkbPoint) return in_.Positions(1, dimensionality, out_);
    if (head.type == kWkbLineString) return CountedPositions(dimensionality);
    FdoInt32 const rings = in_.Count(kSmallestWkbRing);
    out_.Int32(rings);
    for (FdoInt32 i = 0; i < rings; ++i) CountedPositions(dimensionality);
  }

  void CountedPositions(FdoInt32 dimensionality) {
    FdoInt32 const count = in_.Count(PositionBytes(dimensionality));
    out_.Int32(count);
    in_.Positions(count, dimensionality, out_);
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
      WkbHead const head = in_.Head();
      if (head.type != partType) ThrowInvalidWkb();
      Simple(head);
    }
  }

  template <class Read>
  void Curve(Read read) {
    if constexpr (std::is_same_v<Out, FgfBuilder>) {
      read(WkbCurveReader(in_, out_));
    } else {
      FgfBuilder fgf;
      read(WkbCurveReader(in_, fgf));
      out_.box.Join(ScanFgf(fgf.Data(), fgf.Size()).box);
    }
  }

  WkbCursor& in_;
  Out& out_;
};

template <class Out>
void Read(FdoByte const* wkb, std::size_t size, Out& out) {
  if (wkb == nullptr) ThrowInvalidWkb();
  WkbCursor in(wkb, size);
  WkbReader<Out>(in, out).Geometry(1);
}

}  // namespace

void ReadWkb(FdoByte const* wkb, std::size_t size, FgfBuilder& out) { Read(wkb, size, out); }

FgfBox MeasureWkb(FdoByte const* wkb, std::size_t size) {
  WkbBoxSink sink;
  Read(wkb, size, sink);
  return sink.box;
}

}  // namespace fdo_sdk

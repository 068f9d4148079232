#include "sdk/runtime/geometry/fgf_curve_types.h"

#include "sdk/runtime/geometry/fgf_scan.h"

namespace fdo_sdk {

namespace {

// A sink that makes the one segment that it is shown.
struct SegmentMaker : FgfSink {
  FgfBytes const& bytes;
  FdoPtr<FdoICurveSegmentAbstract> made;

  explicit SegmentMaker(FgfBytes const& bytes_) : bytes(bytes_) {}
  void Arc(PositionSpan const& previous, PositionSpan const& midAndEnd) {
    made = new FgfArcSegment(bytes, previous, midAndEnd);
  }
  void Line(PositionSpan const& previous, PositionSpan const& rest) {
    made = new FgfLineSegment(bytes, previous, rest);
  }
};

}  // namespace

SegmentList::SegmentList(FgfBytes bytes, FdoInt32 dimensionality)
    : bytes_(std::move(bytes)), dimensionality_(dimensionality) {}

FdoInt32 SegmentList::Count() const { return Load<FdoInt32>(bytes_.data + PositionBytes(dimensionality_)); }

FgfBox SegmentList::Box() const {
  FgfCursor in = bytes_.Cursor();
  BoxSink sink;
  FgfWalk<BoxSink>(in, sink).Ring(dimensionality_);
  return sink.box;
}

std::size_t SegmentList::Size() const {
  FgfCursor in = bytes_.Cursor();
  FgfSink sink;
  FgfWalk<FgfSink>(in, sink).Ring(dimensionality_);
  return static_cast<std::size_t>(in.At() - bytes_.data);
}

PositionSpan SegmentList::End() const {
  FgfCursor in = bytes_.Cursor(PositionBytes(dimensionality_) + sizeof(FdoInt32));
  FgfSink sink;
  return FgfWalk<FgfSink>(in, sink).Segments(Start(), Count());
}

void SegmentList::Index() const {
  if (!segments_.empty()) return;
  FgfCursor in = bytes_.Cursor(PositionBytes(dimensionality_) + sizeof(FdoInt32));
  FgfSink sink;
  FgfWalk<FgfSink> walk(in, sink);
  std::vector<Segment> segments;
  segments.reserve(static_cast<std::size_t>(Count()));
  PositionSpan previous = Start();
  for (FdoInt32 i = 0; i < Count(); ++i) {
    segments.push_back({static_cast<std::size_t>(in.At() - bytes_.data),
                        static_cast<std::size_t>(previous.data - bytes_.data)});
    previous = walk.Segment(previous);
  }
  segments_ = std::move(segments);
}

FdoICurveSegmentAbstract* SegmentList::Item(FdoInt32 index) const {
  CheckIndex(index, Count());
  Index();
  Segment const& segment = segments_[static_cast<std::size_t>(index)];
  FgfCursor in = bytes_.Cursor(segment.offset);
  SegmentMaker maker(bytes_);
  FgfWalk<SegmentMaker>(in, maker).Segment({bytes_.data + segment.previous, 1, dimensionality_});
  return maker.made.Detach();
}

FdoCurveSegmentCollection* SegmentList::Items() const {
  FdoPtr<FdoCurveSegmentCollection> items = FdoCurveSegmentCollection::Create();
  for (FdoInt32 i = 0; i < Count(); ++i) {
    FdoPtr<FdoICurveSegmentAbstract> segment = Item(i);
    items->Add(segment);
  }
  return items.Detach();
}

FgfArcSegment::FgfArcSegment(FgfBytes const& bytes, PositionSpan const& start, PositionSpan const& midAndEnd)
    : bytes_(bytes), run_(start, midAndEnd) {}

FdoIEnvelope* FgfArcSegment::GetEnvelope() const {
  FgfBox box;
  ExpandBox(box, run_.Apart());
  ExpandBoxByArc(box, run_.Apart(), run_.Rest());
  return MakeEnvelope(box);
}

FgfLineSegment::FgfLineSegment(FgfBytes const& bytes, PositionSpan const& start, PositionSpan const& rest)
    : bytes_(bytes), run_(start, rest) {}

FgfCurveString::FgfCurveString(FgfBytes bytes, FgfScan const& scan)
    : FgfGeometry(std::move(bytes), scan), segments_(Bytes().From(kPointHead), scan.dimensionality) {}

FdoIDirectPosition* FgfCurveString::GetStartPosition() const {
  return CopyPosition(segments_.Start().data, Scan().dimensionality);
}

FdoIDirectPosition* FgfCurveString::GetEndPosition() const {
  return CopyPosition(segments_.End().data, Scan().dimensionality);
}

bool FgfCurveString::GetIsClosed() const {
  return PositionRun(segments_.Start(), segments_.End()).IsClosed();
}

FdoInt32 FgfCurvePolygon::GetInteriorRingCount() const {
  FdoInt32 const rings = Load<FdoInt32>(Bytes().data + kLineHead - sizeof(FdoInt32));
  return rings == 0 ? 0 : rings - 1;
}

FdoIRing* FgfCurvePolygon::GetInteriorRing(FdoInt32 index) const {
  CheckIndex(index, GetInteriorRingCount());
  return Ring(index + 1);
}

FdoIRing* FgfCurvePolygon::Ring(FdoInt32 index) const {
  CheckIndex(index, Load<FdoInt32>(Bytes().data + kLineHead - sizeof(FdoInt32)));
  std::size_t const offset = offsets_.Find(index, kLineHead, [this](std::size_t at) {
    return at + SegmentList(Bytes().From(at), Scan().dimensionality).Size();
  });
  return new FgfRing(Bytes().From(offset), Scan().dimensionality);
}

}  // namespace fdo_sdk

// Writes text from WKB, which the SDK's writer makes of FGF.
#include <charconv>
#include <string_view>

#include "sdk/providers/sqlite/stored_wkt.h"
#include "sdk/providers/sqlite/wkt_words.h"
#include "sdk/runtime/geometry/wkb_cursor.h"
#include "sdk/runtime/geometry/wkb_writer.h"

namespace fdo_sqlite {

using fdo_sdk::FgfBuilder;
using fdo_sdk::PositionSpan;
using fdo_sdk::WkbHead;

namespace {

class WktWriter {
 public:
  WktWriter(FgfBuilder const& wkb, FgfBuilder& text) : in_(wkb.Data(), wkb.Size()), text_(text) {}

  void Tagged() { Tagged(in_.Head()); }

  // For the cursor, which hands over positions.
  void Positions(PositionSpan const& positions) {
    int const ordinates = fdo_sdk::OrdinateCount(positions.dimensionality);
    for (FdoInt32 i = 0; i < positions.count; ++i) {
      if (i > 0) Text(",");
      for (int ordinate = 0; ordinate < ordinates; ++ordinate) {
        if (ordinate > 0) Text(" ");
        Number(fdo_sdk::Load<double>(positions.At(i) + static_cast<std::size_t>(ordinate) * sizeof(double)));
      }
    }
  }

 private:
  void Tagged(WkbHead const& head) {
    WktWord const& word = *WktWordOf(head.type);
    Text(word.word);
    bool const isCurve = head.type >= fdo_sdk::kWkbCircularString;
    constexpr std::string_view kPlain[] = {"", "", " M", " ZM"};
    constexpr std::string_view kCurved[] = {"", " Z", " M", " ZM"};
    Text((isCurve ? kCurved : kPlain)[head.dimensionality]);
    Text(" ");
    Body(word, head.dimensionality, false);
  }

  // bare: a point of a MULTIPOINT, which needs no parentheses.
  void Body(WktWord const& word, FdoInt32 dimensionality, bool bare) {
    if (word.body == WktBody::kPosition) return Point(dimensionality, bare);
    if (word.body == WktBody::kPositions) return PositionList(dimensionality);
    FdoInt32 const count = in_.Count(fdo_sdk::kSmallestWkbRing);
    if (count == 0) return Text("EMPTY");
    Text("(");
    for (FdoInt32 i = 0; i < count; ++i) {
      if (i > 0) Text(",");
      if (word.body == WktBody::kRings) {
        PositionList(dimensionality);
      } else {
        Part(word, dimensionality);
      }
    }
    Text(")");
  }

  void Part(WktWord const& parent, FdoInt32 dimensionality) {
    WkbHead const head = in_.Head();
    if (parent.body == WktBody::kParts && head.type != parent.plainPart) return Tagged(head);
    // The word of M stands at the parent and is for all; a third ordinate alone is Z.
    if (head.dimensionality != dimensionality &&
        ((head.dimensionality | dimensionality) & FdoDimensionality_M)) {
      fdo_sdk::ThrowFailure(L"Text cannot say a geometry of which only some parts have M.");
    }
    Body(*WktWordOf(head.type), head.dimensionality, parent.type == fdo_sdk::kWkbMultiPoint);
  }

  void Point(FdoInt32 dimensionality, bool bare) {
    FgfBuilder position;
    in_.Positions(1, dimensionality, position);
    if (position.IsNanAt(0) && position.IsNanAt(sizeof(double))) return Text("EMPTY");
    if (!bare) Text("(");
    Positions({position.Data(), 1, dimensionality});
    if (!bare) Text(")");
  }

  void PositionList(FdoInt32 dimensionality) {
    FdoInt32 const count = in_.Count(fdo_sdk::PositionBytes(dimensionality));
    if (count == 0) return Text("EMPTY");
    Text("(");
    in_.Positions(count, dimensionality, *this);
    Text(")");
  }

  void Number(double number) {
    char digits[32];
    auto const written = std::to_chars(digits, digits + sizeof(digits), number);
    Text({digits, static_cast<std::size_t>(written.ptr - digits)});
  }

  void Text(std::string_view text) { text_.Bytes(text.data(), text.size()); }

  fdo_sdk::WkbCursor in_;
  FgfBuilder& text_;
};

}  // namespace

void WriteWkt(FdoByte const* fgf, std::size_t size, FgfBuilder& text) {
  FgfBuilder wkb;
  fdo_sdk::WriteWkb(fgf, size, wkb);
  WktWriter(wkb, text).Tagged();
}

}  // namespace fdo_sqlite

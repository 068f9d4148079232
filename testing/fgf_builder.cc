#include "testing/fgf_builder.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "testing/wkt_scanner.h"

namespace fdo {
namespace {

class FgfBuilder {
 public:
  explicit FgfBuilder(std::string_view text) : scanner_(text) {}

  FgfStream Build() {
    Geometry();
    scanner_.ExpectEnd();
    return std::move(stream_);
  }

 private:
  void Geometry() {
    std::string const word = scanner_.Word();
    int const dim = scanner_.Dimensionality();
    if (word == "POINT") return Point(dim);
    if (word == "LINESTRING") return LineString(dim);
    if (word == "POLYGON") return Polygon(dim);
    if (word == "CURVESTRING") return CurveString(dim);
    if (word == "CURVEPOLYGON") return CurvePolygon(dim);
    if (word == "MULTIPOINT") return Parts(4, [this, dim] { Point(dim); });
    if (word == "MULTILINESTRING") return Parts(5, [this, dim] { LineString(dim); });
    if (word == "MULTIPOLYGON") return Parts(6, [this, dim] { Polygon(dim); });
    if (word == "GEOMETRYCOLLECTION") return Parts(7, [this] { Geometry(); });
    if (word == "MULTICURVESTRING") return Parts(12, [this, dim] { CurveString(dim); });
    if (word == "MULTICURVEPOLYGON") return Parts(13, [this, dim] { CurvePolygon(dim); });
    scanner_.Fail("no such geometry");
  }

  void Point(int dim) {
    Int(1);
    Int(dim);
    if (scanner_.TakeWord("EMPTY")) {
      double const none = std::numeric_limits<double>::quiet_NaN();
      return Write({none, none, none, none}, dim);
    }
    bool const enclosed = scanner_.Take('(');
    Position(dim);
    if (enclosed) scanner_.Expect(')');
  }

  void LineString(int dim) {
    Int(2);
    Int(dim);
    List(stream_.countOffsets, [this, dim] { Position(dim); });
  }

  void Polygon(int dim) {
    Int(3);
    Int(dim);
    List(stream_.ringCountOffsets,
         [this, dim] { List(stream_.countOffsets, [this, dim] { Position(dim); }); });
  }

  void CurveString(int dim) {
    Int(10);
    Int(dim);
    Curve(dim);
  }

  void CurvePolygon(int dim) {
    Int(11);
    Int(dim);
    List(stream_.ringCountOffsets, [this, dim] { Curve(dim); });
  }

  void Curve(int dim) {
    scanner_.Expect('(');
    Position(dim);
    List(stream_.countOffsets, [this, dim] { Segment(dim); });
    scanner_.Expect(')');
  }

  void Segment(int dim) {
    if (scanner_.TakeWord("LINESTRINGSEGMENT")) {
      Int(131);
      return List(stream_.countOffsets, [this, dim] { Position(dim); });
    }
    if (!scanner_.TakeWord("CIRCULARARCSEGMENT")) scanner_.Fail("no such segment");
    Int(130);
    scanner_.Expect('(');
    Position(dim);
    scanner_.Expect(',');
    Position(dim);
    scanner_.Expect(')');
  }

  template <class Part>
  void Parts(std::int32_t type, Part part) {
    Int(type);
    List(stream_.countOffsets, part);
  }

  // Writes the count, then what each item writes.
  template <class Item>
  void List(std::vector<std::size_t>& offsets, Item item) {
    std::size_t const countAt = stream_.bytes.size();
    offsets.push_back(countAt);
    Int(0);
    if (scanner_.TakeWord("EMPTY")) return;
    scanner_.Expect('(');
    std::int32_t count = 0;
    do {
      item();
      ++count;
    } while (scanner_.Take(','));
    scanner_.Expect(')');
    std::memcpy(&stream_.bytes[countAt], &count, sizeof(count));
  }

  void Position(int dim) { Write(scanner_.Position(dim), dim); }

  void Write(std::array<double, 4> const& position, int dim) {
    stream_.positions.push_back(position);
    constexpr std::size_t kOrdinates[] = {2, 3, 3, 4};
    Append(position.data(), kOrdinates[dim] * sizeof(double));
  }

  void Int(std::int32_t value) { Append(&value, sizeof(value)); }

  void Append(void const* from, std::size_t size) {
    auto const* const first = static_cast<unsigned char const*>(from);
    stream_.bytes.insert(stream_.bytes.end(), first, first + size);
  }

  WktScanner scanner_;
  FgfStream stream_;
};

}  // namespace

FgfStream BuildFgf(std::string_view text) { return FgfBuilder(text).Build(); }

std::vector<unsigned char> Fgf(std::string_view text) { return BuildFgf(text).bytes; }

}  // namespace fdo

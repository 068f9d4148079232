#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "testing/fgf_builder.h"
#include "testing/wkt_scanner.h"

namespace fdo {
namespace {

class WkbBuilder {
 public:
  WkbBuilder(std::string_view text, WkbOrder order, WkbZ z)
      : scanner_(text), order_(order), z_(z), bigEndian_(order == WkbOrder::kBigEndian) {}

  WkbStream Build() {
    Geometry("", 0);
    scanner_.ExpectEnd();
    return std::move(stream_);
  }

 private:
  // plainWord: the type of a member that is written without its word; empty where a word is needed.
  // A word without a dimensionality has that of what it stands in.
  void Geometry(std::string_view plainWord, int outerDim) {
    std::string word(plainWord);
    int dim = outerDim;
    if (plainWord.empty() || scanner_.NextIsTypeWord()) {
      word = scanner_.Word();
      int const own = scanner_.Dimensionality();
      if (own != 0) dim = own;
    }
    bool const outerOrder = bigEndian_;
    if (order_ == WkbOrder::kMixed) bigEndian_ = !bigEndian_;
    Body(word, dim);
    bigEndian_ = outerOrder;
  }

  void Body(std::string const& word, int dim) {
    if (word == "POINT") {
      Header(1, dim);
      return Point(dim);
    }
    struct Row {
      char const* word;
      std::uint32_t code;
      char const* plainMember;
    };
    constexpr Row kCollections[] = {
        {"MULTIPOINT", 4, "POINT"},         {"MULTILINESTRING", 5, "LINESTRING"},
        {"MULTIPOLYGON", 6, "POLYGON"},     {"GEOMETRYCOLLECTION", 7, ""},
        {"COMPOUNDCURVE", 9, "LINESTRING"}, {"CURVEPOLYGON", 10, "LINESTRING"},
        {"MULTICURVE", 11, "LINESTRING"},   {"MULTISURFACE", 12, "POLYGON"},
    };
    for (Row const& row : kCollections) {
      if (word != row.word) continue;
      Header(row.code, dim);
      return List([this, &row, dim] { Geometry(row.plainMember, dim); });
    }
    if (word == "POLYGON" || word == "TRIANGLE") {
      Header(word == "POLYGON" ? 3 : 17, dim);
      return List([this, dim] { Line(dim); });
    }
    if (word == "TIN" || word == "POLYHEDRALSURFACE") {
      Header(word == "TIN" ? 16 : 15, dim);
      return List([this, &word, dim] { Geometry(word == "TIN" ? "TRIANGLE" : "POLYGON", dim); });
    }
    if (word != "LINESTRING" && word != "CIRCULARSTRING") scanner_.Fail("no such geometry");
    Header(word == "LINESTRING" ? 2 : 8, dim);
    Line(dim);
  }

  void Point(int dim) {
    if (scanner_.TakeWord("EMPTY")) {
      double const none = std::numeric_limits<double>::quiet_NaN();
      return Write({none, none, none, none}, dim);
    }
    bool const enclosed = scanner_.Take('(');
    Write(scanner_.Position(dim), dim);
    if (enclosed) scanner_.Expect(')');
  }

  void Line(int dim) {
    List([this, dim] { Write(scanner_.Position(dim), dim); });
  }

  template <class Item>
  void List(Item item) {
    std::size_t const countAt = stream_.bytes.size();
    stream_.countOffsets.push_back(countAt);
    Number(std::uint32_t{0});
    if (scanner_.TakeWord("EMPTY")) return;
    scanner_.Expect('(');
    std::uint32_t count = 0;
    do {
      item();
      ++count;
    } while (scanner_.Take(','));
    scanner_.Expect(')');
    Overwrite(countAt, count);
  }

  void Header(std::uint32_t code, int dim) {
    stream_.bytes.push_back(bigEndian_ ? 0 : 1);
    bool const bit = z_ == WkbZ::kBit && dim == 1;
    Number(bit ? code | 0x80000000U : code + 1000U * static_cast<std::uint32_t>(dim));
  }

  void Write(std::array<double, 4> const& position, int dim) {
    constexpr std::size_t kOrdinates[] = {2, 3, 3, 4};
    for (std::size_t i = 0; i < kOrdinates[dim]; ++i) Number(position[i]);
  }

  template <class Value>
  void Number(Value value) {
    std::size_t const at = stream_.bytes.size();
    stream_.bytes.resize(at + sizeof(value));
    Overwrite(at, value);
  }

  template <class Value>
  void Overwrite(std::size_t at, Value value) {
    std::memcpy(&stream_.bytes[at], &value, sizeof(value));
    if (bigEndian_) {
      auto const first = stream_.bytes.begin() + static_cast<std::ptrdiff_t>(at);
      std::reverse(first, first + static_cast<std::ptrdiff_t>(sizeof(value)));
    }
  }

  WktScanner scanner_;
  WkbOrder order_;
  WkbZ z_;
  bool bigEndian_;
  WkbStream stream_;
};

}  // namespace

WkbStream BuildWkb(std::string_view text, WkbOrder order, WkbZ z) {
  return WkbBuilder(text, order, z).Build();
}

std::vector<unsigned char> Wkb(std::string_view text, WkbOrder order, WkbZ z) {
  return BuildWkb(text, order, z).bytes;
}

}  // namespace fdo

#include "tools/quillon/geometry_text.h"

#include <fdo/geometry_stream.h>

#include <charconv>
#include <cmath>
#include <vector>

#include "tools/quillon/geometry_kind.h"

namespace fdo::tool {

namespace {

// By the dimensionality of a stream: bit 0 is Z, bit 1 is M.
constexpr char const* kDimensionWords[] = {"", " Z", " M", " ZM"};

class TextVisitor : public FgfVisitor {
 public:
  explicit TextVisitor(std::string& out) : out_(out), begin_(out.size()) {}

  bool BeginGeometry(FgfGeometry const& geometry) override {
    if (!FitsParent(geometry.type, geometry.parentType)) return false;
    GeometryKind const& kind = *FindGeometryKind(geometry.type);
    type_ = geometry.type;
    if (!kind.isMulti) {
      dimensionWord_ = kDimensionWords[geometry.dimensionality];
      NameDimensionsOfCollections();
    }
    Separate();
    if (HasName(geometry)) {
      out_ += kind.wkt;
      if (kind.isMulti) {
        nameEnds_.push_back(out_.size());
      } else {
        out_ += dimensionWord_;
      }
      out_ += ' ';
    }
    if (type_ != kPoint) Open(geometry.count > 0);
    return true;
  }

  bool BeginRing(std::int32_t, std::int32_t count) override {
    Separate();
    if (type_ == kCurvePolygon) AppendName("COMPOUNDCURVE");
    Open(count > 0);
    return true;
  }

  bool Positions(FgfPositions const& positions) override {
    bool const isEmptyPoint =
        type_ == kPoint && std::isnan(positions.Ordinate(0, 0)) && std::isnan(positions.Ordinate(0, 1));
    if (type_ == kPoint) Open(!isEmptyPoint);
    for (std::int32_t i = 0; i < positions.count && !isEmptyPoint; ++i) Append(positions, i);
    if (type_ == kPoint) Close();
    return true;
  }

  bool Start(FgfPositions const& position) override {
    last_.clear();
    AppendOrdinates(last_, position, 0);
    return true;
  }

  bool Segment(std::int32_t type, FgfPositions const& positions) override {
    Separate();
    if (type == kFgfArc) AppendName("CIRCULARSTRING");
    Open(true);
    out_ += last_;
    for (std::int32_t i = 0; i < positions.count; ++i) Append(positions, i);
    Close();
    if (positions.count > 0) {
      last_.clear();
      AppendOrdinates(last_, positions, positions.count - 1);
    }
    return true;
  }

  bool EndRing() override {
    Close();
    return true;
  }

  bool EndGeometry(FgfGeometry const& geometry) override {
    if (geometry.type != kPoint) Close();
    // Whatever waits for its dimensions here is this collection, which turned out to have no positions.
    bool const isNamedMulti = FindGeometryKind(geometry.type)->isMulti && HasName(geometry);
    if (isNamedMulti && !nameEnds_.empty()) nameEnds_.pop_back();
    return true;
  }

  bool UnknownType(std::int32_t) override { return false; }

 private:
  // The parts of a multi type are named only where they could be more than one thing.
  static bool HasName(FgfGeometry const& geometry) {
    return geometry.parentType == kNoGeometry || geometry.parentType == kMultiGeometry ||
           geometry.type == kCurveString || geometry.type == kCurvePolygon;
  }

  // A collection's stream does not say how many dimensions it has; its first position does.
  void NameDimensionsOfCollections() {
    for (auto end = nameEnds_.rbegin(); end != nameEnds_.rend(); ++end) out_.insert(*end, dimensionWord_);
    nameEnds_.clear();
  }

  void AppendName(char const* name) {
    out_ += name;
    out_ += dimensionWord_;
    out_ += ' ';
  }

  void Open(bool hasContent) {
    out_ += hasContent ? "(" : "EMPTY";
    isOpen_.push_back(hasContent);
  }

  void Close() {
    if (isOpen_.back()) out_ += ')';
    isOpen_.pop_back();
  }

  void Separate() {
    if (out_.size() > begin_ && out_.back() != '(') out_ += ", ";
  }

  void Append(FgfPositions const& positions, std::int32_t i) {
    Separate();
    AppendOrdinates(out_, positions, i);
  }

  static void AppendOrdinates(std::string& out, FgfPositions const& positions, std::int32_t position) {
    for (int ordinate = 0; ordinate < positions.ordinates; ++ordinate) {
      if (ordinate > 0) out += ' ';
      char digits[32];
      double const number = positions.Ordinate(position, ordinate);
      out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
    }
  }

  std::string& out_;
  std::size_t const begin_;
  std::int32_t type_ = kNoGeometry;
  char const* dimensionWord_ = "";
  std::string last_;                   // the position that a curve has got to
  std::vector<bool> isOpen_;           // for each level, whether it needs a closing parenthesis
  std::vector<std::size_t> nameEnds_;  // where open collections without a position so far end their names
};

}  // namespace

bool AppendGeometryText(std::string& out, unsigned char const* fgf, std::size_t length) {
  std::size_t const begin = out.size();
  TextVisitor visitor(out);
  if (VisitFgf(fgf, fgf + length, visitor) != nullptr) return true;
  out.resize(begin);
  return false;
}

}  // namespace fdo::tool

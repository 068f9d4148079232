#include <bit>
#include <cmath>

#include "sdk/runtime/text/fgf_text.h"
#include "sdk/runtime/text/fgf_words.h"
#include "sdk/runtime/text/number_text.h"
#include "sdk/runtime/text/text_error.h"
#include "sdk/runtime/text/text_limits.h"

namespace fdo_sdk {
namespace {

[[noreturn]] void ThrowInvalidStream() { throw TextError{0, kInvalidFgf}; }

class Writer {
 public:
  Writer(FdoByte const* bytes, std::size_t count) : at_(bytes), left_(count) {}

  std::wstring WriteAll() {
    WriteGeometry();
    if (left_ != 0) ThrowInvalidStream();
    return std::move(out_);
  }

 private:
  template <class Bits>
  Bits TakeBits() {
    if (left_ < sizeof(Bits)) ThrowInvalidStream();
    Bits bits = 0;
    for (std::size_t i = 0; i < sizeof(Bits); ++i) bits |= static_cast<Bits>(at_[i]) << (8 * i);
    at_ += sizeof(Bits);
    left_ -= sizeof(Bits);
    return bits;
  }

  FdoInt32 TakeInteger() { return static_cast<FdoInt32>(TakeBits<std::uint32_t>()); }

  // Requires: each item takes at least itemBytes bytes, so that a count is known to be true before use.
  FdoInt32 TakeCount(std::size_t itemBytes) {
    FdoInt32 const count = TakeInteger();
    if (count < 0 || static_cast<std::size_t>(count) > left_ / itemBytes) ThrowInvalidStream();
    return count;
  }

  int TakeDimensionality() {
    FdoInt32 const dimensionality = TakeInteger();
    if (dimensionality < 0 || dimensionality > 3) ThrowInvalidStream();
    return dimensionality;
  }

  FgfType const& TakeType() {
    FgfType const* type = FindFgfType(TakeInteger());
    if (type == nullptr) ThrowInvalidStream();
    return *type;
  }

  static std::size_t PositionBytes(int dimensionality) {
    return sizeof(double) * static_cast<std::size_t>(OrdinatesOf(dimensionality));
  }

  void WriteOrdinate(double ordinate) {
    if (std::isnan(ordinate)) {
      out_ += L"NaN";
    } else if (std::isinf(ordinate)) {
      out_ += ordinate > 0 ? L"Infinity" : L"-Infinity";
    } else {
      out_ += NumberText(ordinate);
    }
  }

  void WritePosition(int dimensionality) {
    for (int i = 0; i < OrdinatesOf(dimensionality); ++i) {
      if (i > 0) out_ += L" ";
      WriteOrdinate(std::bit_cast<double>(TakeBits<std::uint64_t>()));
    }
  }

  template <class Item>
  void WriteList(std::size_t itemBytes, Item item) {
    FdoInt32 const count = TakeCount(itemBytes);
    if (count == 0) {
      out_ += kEmptyWord;
      return;
    }
    out_ += L"(";
    for (FdoInt32 i = 0; i < count; ++i) {
      if (i > 0) out_ += L", ";
      item();
    }
    out_ += L")";
  }

  void WritePositions(int dimensionality) {
    WriteList(PositionBytes(dimensionality), [&] { WritePosition(dimensionality); });
  }

  void WriteSegment(int dimensionality) {
    FdoInt32 const type = TakeInteger();
    if (type == FdoGeometryComponentType_CircularArcSegment) {
      (out_ += kArcWord) += L" (";
      WritePosition(dimensionality);
      out_ += L", ";
      WritePosition(dimensionality);
      out_ += L")";
    } else if (type == FdoGeometryComponentType_LineStringSegment) {
      (out_ += kLineWord) += L" ";
      WritePositions(dimensionality);
    } else {
      ThrowInvalidStream();
    }
  }

  void WriteCurve(int dimensionality) {
    out_ += L"(";
    WritePosition(dimensionality);
    out_ += L" ";
    WriteList(2 * sizeof(FdoInt32), [&] { WriteSegment(dimensionality); });
    out_ += L")";
  }

  // The words before the body; plain geometries need no word for XY.
  void WriteDimension(int dimensionality) {
    if (dimensionality == 0) return;
    for (FgfDimension const& known : kFgfDimensions) {
      if (known.dimensionality != dimensionality) continue;
      out_ += known.word;
      out_ += L" ";
      return;
    }
  }

  // Requires: type and dimensionality have been taken.
  void WriteSimpleBody(FgfType const& type, int dimensionality, bool isPart) {
    switch (type.body) {
      case FgfBody::kPosition:
        if (!isPart) out_ += L"(";
        WritePosition(dimensionality);
        if (!isPart) out_ += L")";
        break;
      case FgfBody::kLine:
        WritePositions(dimensionality);
        break;
      case FgfBody::kRings:
        WriteList(sizeof(FdoInt32), [&] { WritePositions(dimensionality); });
        break;
      case FgfBody::kCurve:
        WriteCurve(dimensionality);
        break;
      case FgfBody::kCurveRings:
        WriteList(PositionBytes(dimensionality) + sizeof(FdoInt32), [&] { WriteCurve(dimensionality); });
        break;
      case FgfBody::kParts:
      case FgfBody::kCollection:
        break;
    }
  }

  void WriteParts(FgfType const& type) {
    FgfType const& partType = *FindFgfType(type.part);
    int dimensionality = -1;  // that of the first part, which the rest must share
    std::size_t const wordEnd = out_.size();
    WriteList(2 * sizeof(FdoInt32), [&] {
      if (TakeType().type != partType.type) ThrowInvalidStream();
      int const own = TakeDimensionality();
      if (dimensionality == -1) {
        dimensionality = own;
        out_.resize(wordEnd);
        WriteDimension(own);
        out_ += L"(";
      }
      if (own != dimensionality) ThrowInvalidStream();
      WriteSimpleBody(partType, own, true);
    });
  }

  void WriteGeometry() {
    FgfType const& type = TakeType();
    out_ += type.word;
    out_ += L" ";
    if (type.body == FgfBody::kParts) {
      WriteParts(type);
    } else if (type.body == FgfBody::kCollection) {
      if (++nesting_ > kMaximumNesting) ThrowInvalidStream();
      WriteList(2 * sizeof(FdoInt32), [&] { WriteGeometry(); });
      --nesting_;
    } else {
      int const dimensionality = TakeDimensionality();
      WriteDimension(dimensionality);
      WriteSimpleBody(type, dimensionality, false);
    }
  }

  FdoByte const* at_;
  std::size_t left_;
  int nesting_ = 0;
  std::wstring out_;
};

}  // namespace

std::wstring FgfToText(FdoByte const* bytes, std::size_t count) { return Writer(bytes, count).WriteAll(); }

}  // namespace fdo_sdk

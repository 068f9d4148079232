#include <algorithm>
#include <bit>
#include <limits>

#include "sdk/runtime/text/fgf_text.h"
#include "sdk/runtime/text/fgf_words.h"
#include "sdk/runtime/text/number_text.h"
#include "sdk/runtime/text/text_error.h"
#include "sdk/runtime/text/text_limits.h"
#include "sdk/runtime/text/words.h"

namespace fdo_sdk {
namespace {

class Reader {
 public:
  explicit Reader(std::wstring_view text) : text_(text) {}

  std::vector<FdoByte> ReadAll() {
    ReadGeometry();
    SkipBlanks();
    if (at_ != text_.size()) Fail(L"expected the end of the geometry");
    return std::move(bytes_);
  }

 private:
  [[noreturn]] void Fail(std::wstring expected) {
    SkipBlanks();
    std::wstring const found = at_ == text_.size()
                                   ? std::wstring(L"the end of the text")
                                   : L"\"" + std::wstring(text_.substr(at_, ShownLength())) + L"\"";
    throw TextError{at_, std::move(expected) + L", but found " + found + L"."};
  }

  std::size_t ShownLength() {
    constexpr std::size_t kLongestShown = 40;
    std::size_t end = at_;
    while (end < text_.size() && IsNameUnit(text_[end])) ++end;
    return std::min(std::max<std::size_t>(end - at_, 1), kLongestShown);
  }

  void SkipBlanks() { at_ = std::min(text_.find_first_not_of(L" \t\r\n\v\f", at_), text_.size()); }

  bool Take(wchar_t symbol) {
    SkipBlanks();
    if (at_ == text_.size() || text_[at_] != symbol) return false;
    ++at_;
    return true;
  }

  void Expect(wchar_t symbol) {
    if (!Take(symbol)) Fail(std::wstring(L"expected \"") + symbol + L"\"");
  }

  // The word at the cursor, which stays before it.
  std::wstring_view Word() {
    SkipBlanks();
    std::size_t end = at_;
    while (end < text_.size() && IsNameUnit(text_[end])) ++end;
    return text_.substr(at_, end - at_);
  }

  bool TakeWord(std::wstring_view word) {
    std::wstring_view const found = Word();
    if (found.empty() || !IsWord(found, word)) return false;
    at_ += found.size();
    return true;
  }

  void PutInteger(FdoInt32 value) { PutBits<std::uint32_t>(static_cast<std::uint32_t>(value)); }

  void PutDouble(double value) { PutBits(std::bit_cast<std::uint64_t>(value)); }

  template <class Bits>
  void PutBits(Bits bits) {
    for (std::size_t i = 0; i < sizeof bits; ++i) bytes_.push_back(static_cast<FdoByte>(bits >> (8 * i)));
  }

  // Errors: false when there is no number; one that is no double throws.
  bool TakeNumber(double& number) {
    SkipBlanks();
    std::size_t end = at_;
    bool const negative = end < text_.size() && text_[end] == L'-';
    if (end < text_.size() && (text_[end] == L'-' || text_[end] == L'+')) ++end;
    std::size_t const signEnd = end;
    while (end < text_.size() && IsNameUnit(text_[end])) ++end;
    std::wstring_view const word = text_.substr(signEnd, end - signEnd);
    if (IsWord(word, L"NAN") || IsWord(word, L"INFINITY")) {
      number = word.size() == 3 ? std::numeric_limits<double>::quiet_NaN()
                                : std::numeric_limits<double>::infinity();
      end = signEnd + word.size();
    } else {
      std::size_t const length = NumberEnd(text_.substr(signEnd), nullptr);
      if (length == 0) return false;
      if (!ReadNumber(text_.substr(signEnd, length), number))
        Fail(L"expected a number in the range of a double");
      end = signEnd + length;
    }
    if (negative) number = -number;
    at_ = end;
    return true;
  }

  void ReadPosition(int dimensionality) {
    double ordinate = 0;
    for (int i = 0; i < OrdinatesOf(dimensionality); ++i) {
      if (!TakeNumber(ordinate)) Fail(L"expected an ordinate");
      PutDouble(ordinate);
    }
    while (TakeNumber(ordinate)) {
    }
  }

  // A list in parentheses, with its count before it in the bytes; or EMPTY.
  template <class Item>
  void ReadList(Item item) {
    std::size_t const countAt = bytes_.size();
    PutInteger(0);
    if (TakeWord(kEmptyWord)) return;
    Expect(L'(');
    FdoInt32 count = 0;
    do {
      item();
      ++count;
    } while (Take(L','));
    if (!Take(L')')) Fail(L"expected \",\" or \")\"");
    for (std::size_t i = 0; i < 4; ++i) {
      bytes_[countAt + i] = static_cast<FdoByte>(static_cast<std::uint32_t>(count) >> (8 * i));
    }
  }

  void ReadPositions(int dimensionality) {
    ReadList([&] { ReadPosition(dimensionality); });
  }

  void ReadSegment(int dimensionality) {
    if (TakeWord(kArcWord)) {
      PutInteger(FdoGeometryComponentType_CircularArcSegment);
      Expect(L'(');
      ReadPosition(dimensionality);
      Expect(L',');
      ReadPosition(dimensionality);
      Expect(L')');
    } else if (TakeWord(kLineWord)) {
      PutInteger(FdoGeometryComponentType_LineStringSegment);
      ReadPositions(dimensionality);
    } else {
      Fail(L"expected CIRCULARARCSEGMENT or LINESTRINGSEGMENT");
    }
  }

  void ReadCurve(int dimensionality) {
    Expect(L'(');
    ReadPosition(dimensionality);
    ReadList([&] { ReadSegment(dimensionality); });
    Expect(L')');
  }

  void ReadBody(FgfType const& type, int dimensionality) {
    PutInteger(type.type);
    if (type.body != FgfBody::kParts && type.body != FgfBody::kCollection) PutInteger(dimensionality);
    switch (type.body) {
      case FgfBody::kPosition:
        Expect(L'(');
        ReadPosition(dimensionality);
        Expect(L')');
        break;
      case FgfBody::kLine:
        ReadPositions(dimensionality);
        break;
      case FgfBody::kRings:
        ReadList([&] { ReadPositions(dimensionality); });
        break;
      case FgfBody::kCurve:
        ReadCurve(dimensionality);
        break;
      case FgfBody::kCurveRings:
        ReadList([&] { ReadCurve(dimensionality); });
        break;
      case FgfBody::kParts:
        ReadList([&] { ReadPart(*FindFgfType(type.part), dimensionality); });
        break;
      case FgfBody::kCollection:
        if (++nesting_ > kMaximumNesting) Fail(L"expected fewer collections within each other");
        ReadList([&] { ReadGeometry(); });
        --nesting_;
        break;
    }
  }

  void ReadPart(FgfType const& type, int dimensionality) {
    SkipBlanks();
    bool const bare = type.body == FgfBody::kPosition && !(at_ < text_.size() && text_[at_] == L'(');
    if (!bare) {
      ReadBody(type, dimensionality);
    } else {
      PutInteger(type.type);
      PutInteger(dimensionality);
      ReadPosition(dimensionality);
    }
  }

  void ReadGeometry() {
    std::wstring_view const word = Word();
    auto const* type = std::find_if(std::begin(kFgfTypes), std::end(kFgfTypes),
                                    [&](FgfType const& known) { return IsWord(word, known.word); });
    if (type == std::end(kFgfTypes)) Fail(L"expected the word of a geometry type, such as POINT");
    at_ += word.size();
    int dimensionality = 0;
    for (FgfDimension const& known : kFgfDimensions) {
      if (TakeWord(known.word)) {
        dimensionality = known.dimensionality;
        break;
      }
    }
    ReadBody(*type, dimensionality);
  }

  std::wstring_view text_;
  std::size_t at_ = 0;
  int nesting_ = 0;
  std::vector<FdoByte> bytes_;
};

}  // namespace

std::vector<FdoByte> TextToFgf(std::wstring_view text) { return Reader(text).ReadAll(); }

}  // namespace fdo_sdk

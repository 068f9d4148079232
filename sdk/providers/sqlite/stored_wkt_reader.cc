// Reads text into WKB, which the SDK's reader then checks and turns into FGF.
#include <charconv>
#include <limits>

#include "sdk/providers/sqlite/stored_wkt.h"
#include "sdk/providers/sqlite/wkt_words.h"
#include "sdk/runtime/geometry/wkb_reader.h"

namespace fdo_sqlite {

using fdo_sdk::FgfBuilder;

namespace {

constexpr int kUnknown = -1;  // a dimensionality that the first position will tell

// What ends the reading of a text; it does not leave this file.
struct NotUnderstood {};

constexpr char Upper(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

constexpr bool IsLetter(char letter) { return Upper(letter) >= 'A' && Upper(letter) <= 'Z'; }

class WktReader {
 public:
  WktReader(std::string_view text, FgfBuilder& wkb) : text_(text), wkb_(wkb) {}

  void Whole() {
    Tagged(kUnknown, 1);
    SkipBlanks();
    if (!text_.empty()) throw NotUnderstood();
  }

 private:
  // A geometry with its word. Each function gives the dimensionality of what it read.
  int Tagged(int dimensionality, int level) {
    std::string_view name = Letters();
    WktWord const& word = TakeType(name);
    int const stated = Dimensionality(name.empty() ? Letters() : name);
    if (stated != kUnknown) dimensionality = stated;
    return Geometry(word, dimensionality, level);
  }

  // Cuts the type word off the letters; what is left may be the Z of POINTZ.
  static WktWord const& TakeType(std::string_view& letters) {
    WktWord const* found = nullptr;
    for (WktWord const& word : kWktWords) {
      if (StartsWith(letters, word.word) && (found == nullptr || word.word.size() > found->word.size())) {
        found = &word;
      }
    }
    if (found == nullptr) throw NotUnderstood();
    letters.remove_prefix(found->word.size());
    return *found;
  }

  static bool StartsWith(std::string_view letters, std::string_view word) {
    if (letters.size() < word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      if (Upper(letters[i]) != word[i]) return false;
    }
    return true;
  }

  static bool Is(std::string_view letters, std::string_view word) {
    return letters.size() == word.size() && StartsWith(letters, word);
  }

  int Dimensionality(std::string_view letters) {
    if (letters.empty()) return kUnknown;
    if (Is(letters, "Z")) return FdoDimensionality_Z;
    if (Is(letters, "M")) return FdoDimensionality_M;
    if (Is(letters, "ZM")) return FdoDimensionality_Z | FdoDimensionality_M;
    if (!Is(letters, "EMPTY")) throw NotUnderstood();
    text_ = std::string_view(letters.data(),
                             text_.size() + static_cast<std::size_t>(text_.data() - letters.data()));
    return kUnknown;
  }

  int Geometry(WktWord const& word, int dimensionality, int level) {
    if (level > fdo_sdk::kMaxLevels) throw NotUnderstood();
    wkb_.Byte(1);
    std::size_t const typeAt = wkb_.Size();
    wkb_.Uint32(0);
    bool const empty = TakeEmpty();
    if (word.body == WktBody::kPosition) {
      dimensionality = empty ? EmptyPoint(dimensionality) : Point(dimensionality);
    } else {
      std::size_t const countAt = wkb_.Size();
      wkb_.Int32(0);
      FdoInt32 count = 0;
      if (!empty) {
        Expect('(');
        do {
          if (count == std::numeric_limits<FdoInt32>::max()) throw NotUnderstood();
          dimensionality = Item(word, dimensionality, level);
          ++count;
        } while (Take(','));
        Expect(')');
      }
      wkb_.SetInt32(countAt, count);
    }
    if (dimensionality == kUnknown) dimensionality = FdoDimensionality_XY;
    auto const thousands = static_cast<std::uint32_t>(dimensionality) * fdo_sdk::kWkbThousand;
    wkb_.SetInt32(typeAt, static_cast<FdoInt32>(word.type + thousands));
    return dimensionality;
  }

  // One of the things that a body counts.
  int Item(WktWord const& word, int dimensionality, int level) {
    switch (word.body) {
      case WktBody::kPosition:
      case WktBody::kPositions:
        return Position(dimensionality);
      case WktBody::kRings:
        return Ring(dimensionality);
      case WktBody::kBareParts:
        // Parts without words may differ, as they may in the other formats.
        Geometry(*WktWordOf(word.plainPart), dimensionality, level + 1);
        return dimensionality;
      case WktBody::kParts:
        break;
    }
    bool const oneCurve = word.type == fdo_sdk::kWkbCompoundCurve || word.type == fdo_sdk::kWkbCurvePolygon;
    int const found = NextIsWord() || word.plainPart == 0
                          ? Tagged(dimensionality, level + 1)
                          : Geometry(*WktWordOf(word.plainPart), dimensionality, level + 1);
    return oneCurve ? found : dimensionality;
  }

  int Ring(int dimensionality) {
    std::size_t const countAt = wkb_.Size();
    wkb_.Int32(0);
    if (TakeEmpty()) return dimensionality;
    FdoInt32 count = 0;
    Expect('(');
    do {
      dimensionality = Position(dimensionality);
      ++count;
    } while (Take(','));
    Expect(')');
    wkb_.SetInt32(countAt, count);
    return dimensionality;
  }

  // The position of a point stands in parentheses, but may be without as a part of a MULTIPOINT.
  int Point(int dimensionality) {
    bool const enclosed = Take('(');
    dimensionality = Position(dimensionality);
    if (enclosed) Expect(')');
    return dimensionality;
  }

  int EmptyPoint(int dimensionality) {
    int const known = dimensionality == kUnknown ? int{FdoDimensionality_XY} : dimensionality;
    for (int i = 0; i < fdo_sdk::OrdinateCount(known); ++i) {
      wkb_.Double(std::numeric_limits<double>::quiet_NaN());
    }
    return known;
  }

  int Position(int dimensionality) {
    constexpr int kMost = 4;
    int count = 0;
    double ordinate = 0;
    while (count < kMost && Number(ordinate)) {
      wkb_.Double(ordinate);
      ++count;
    }
    if (dimensionality == kUnknown) {
      dimensionality = count == 3   ? int{FdoDimensionality_Z}
                       : count == 4 ? FdoDimensionality_Z | FdoDimensionality_M
                                    : int{FdoDimensionality_XY};
    }
    if (count != fdo_sdk::OrdinateCount(dimensionality)) throw NotUnderstood();
    return dimensionality;
  }

  bool Number(double& value) {
    SkipBlanks();
    char const* const end = text_.data() + text_.size();
    char const* const begin = !text_.empty() && text_.front() == '+' ? text_.data() + 1 : text_.data();
    auto const [after, error] = std::from_chars(begin, end, value);
    if (error == std::errc::invalid_argument) return false;
    if (error != std::errc()) throw NotUnderstood();
    text_.remove_prefix(static_cast<std::size_t>(after - text_.data()));
    return true;
  }

  void SkipBlanks() {
    while (!text_.empty() && (text_.front() == ' ' || (text_.front() >= '\t' && text_.front() <= '\r'))) {
      text_.remove_prefix(1);
    }
  }

  bool NextIsWord() {
    SkipBlanks();
    return !text_.empty() && IsLetter(text_.front()) && !NextIsEmpty();
  }

  bool NextIsEmpty() {
    SkipBlanks();
    std::size_t length = 0;
    while (length < text_.size() && IsLetter(text_[length])) ++length;
    return Is(text_.substr(0, length), "EMPTY");
  }

  bool TakeEmpty() {
    if (!NextIsEmpty()) return false;
    Letters();
    return true;
  }

  std::string_view Letters() {
    SkipBlanks();
    std::size_t length = 0;
    while (length < text_.size() && IsLetter(text_[length])) ++length;
    std::string_view const letters = text_.substr(0, length);
    text_.remove_prefix(length);
    return letters;
  }

  bool Take(char punctuation) {
    SkipBlanks();
    if (text_.empty() || text_.front() != punctuation) return false;
    text_.remove_prefix(1);
    return true;
  }

  void Expect(char punctuation) {
    if (!Take(punctuation)) throw NotUnderstood();
  }

  std::string_view text_;  // what is left
  FgfBuilder& wkb_;
};

}  // namespace

bool ReadWkt(std::string_view text, FgfBuilder& fgf) {
  FgfBuilder wkb;
  try {
    WktReader(text, wkb).Whole();
  } catch (NotUnderstood const&) {
    return false;
  }
  fdo_sdk::ReadWkb(wkb.Data(), wkb.Size(), fgf);
  return true;
}

}  // namespace fdo_sqlite

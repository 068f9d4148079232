#include "bench/seeded_rows.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace fdo::bench {
namespace {

constexpr char kTextAlphabet[] = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::int64_t kWideBound = 1'000'000'000'000'000;  // fits in the 18 digits of a shapefile's column
constexpr double kTurn = 6.283185307179586;

static_assert(std::endian::native == std::endian::little, "numbers are appended as they lie in memory");

template <class Number>
void Append(std::vector<unsigned char>& bytes, Number number) {
  unsigned char raw[sizeof(number)];
  std::memcpy(raw, &number, sizeof(number));
  bytes.insert(bytes.end(), raw, raw + sizeof(number));
}

void AppendPositions(SeededRow const& row, Shape shape, std::vector<unsigned char>& bytes) {
  if (shape == Shape::kPolygon) {
    Append(bytes, std::int32_t{1});  // rings
    Append(bytes, static_cast<std::int32_t>(row.ordinates.size() / 2));
  }
  for (double const ordinate : row.ordinates) Append(bytes, ordinate);
}

std::int32_t TypeCode(Shape shape) { return shape == Shape::kPoint ? 1 : 3; }

}  // namespace

SeededRow const& SeededRows::Next() {
  row_.wide = WholeBelow(2 * kWideBound) - kWideBound;
  row_.narrow = static_cast<std::int32_t>(WholeBelow(199'999'999) - 99'999'999);
  row_.real = RealBelow(1'000'000);
  for (int i = 0; i < kTextLength; ++i) {
    row_.text[static_cast<std::size_t>(i)] = kTextAlphabet[WholeBelow(sizeof(kTextAlphabet) - 1)];
  }
  row_.year = 1970 + static_cast<int>(WholeBelow(60));
  row_.month = 1 + static_cast<int>(WholeBelow(12));
  row_.day = 1 + static_cast<int>(WholeBelow(28));
  row_.hour = static_cast<int>(WholeBelow(24));
  row_.minute = static_cast<int>(WholeBelow(60));
  row_.second = static_cast<int>(WholeBelow(60));
  row_.flag = WholeBelow(2) == 1;

  double const x = RealBelow(340) - 170;
  double const y = RealBelow(160) - 80;
  if (shape_ == Shape::kPoint) {
    row_.ordinates = {x, y};
  } else {
    PlaceRing(x, y);
  }
  return row_;
}

void SeededRows::PlaceRing(double x, double y) {
  double const radius = 0.001 + RealBelow(0.01);
  row_.ordinates.clear();
  for (int i = 0; i < kRingPoints - 1; ++i) {
    // Clockwise, as shapefiles keep an outer ring.
    double const angle = -kTurn * i / (kRingPoints - 1);
    double const distance = radius * (0.5 + RealBelow(0.5));
    row_.ordinates.push_back(x + distance * std::cos(angle));
    row_.ordinates.push_back(y + distance * std::sin(angle));
  }
  row_.ordinates.push_back(row_.ordinates[0]);
  row_.ordinates.push_back(row_.ordinates[1]);
}

void AppendFgf(SeededRow const& row, Shape shape, std::vector<unsigned char>& bytes) {
  Append(bytes, TypeCode(shape));
  Append(bytes, std::int32_t{0});  // X and Y
  AppendPositions(row, shape, bytes);
}

void AppendWkb(SeededRow const& row, Shape shape, std::vector<unsigned char>& bytes) {
  bytes.push_back(1);  // little-endian
  Append(bytes, TypeCode(shape));
  AppendPositions(row, shape, bytes);
}

}  // namespace fdo::bench

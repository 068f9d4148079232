// The rows that every data set holds, the same for the same seed on every machine.
#ifndef BENCH_SEEDED_ROWS_H_
#define BENCH_SEEDED_ROWS_H_

#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace fdo::bench {

inline constexpr int kTextLength = 16;
inline constexpr int kRingPoints = 21;

enum class Shape { kPoint, kPolygon };

struct SeededRow {
  std::int64_t wide;
  std::int32_t narrow;
  double real;
  std::array<char, kTextLength + 1> text;  // letters and digits, ends with 0
  int year, month, day, hour, minute, second;
  bool flag;
  std::vector<double> ordinates;  // X and Y of the point, or of each point of one closed ring
};

class SeededRows {
 public:
  SeededRows(std::uint64_t seed, Shape shape) : shape_(shape), engine_(seed) {}

  // Borrowed: until the next call.
  SeededRow const& Next();

 private:
  // The standard fixes what the engine gives, but not what its distributions make of it.
  std::int64_t WholeBelow(std::int64_t bound) {
    return static_cast<std::int64_t>(engine_() % static_cast<std::uint64_t>(bound));
  }
  double RealBelow(double bound) { return static_cast<double>(engine_() >> 11) * 0x1p-53 * bound; }

  void PlaceRing(double x, double y);

  Shape shape_;
  std::mt19937_64 engine_;
  SeededRow row_{};
};

// Appends one geometry as a stream of FGF, or of little-endian WKB.
void AppendFgf(SeededRow const& row, Shape shape, std::vector<unsigned char>& bytes);
void AppendWkb(SeededRow const& row, Shape shape, std::vector<unsigned char>& bytes);

}  // namespace fdo::bench

#endif  // BENCH_SEEDED_ROWS_H_

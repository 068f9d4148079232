// Filters of every kind for the sample class, at random.
#ifndef SDK_PROVIDERS_SQLITE_RANDOM_FILTERS_H_
#define SDK_PROVIDERS_SQLITE_RANDOM_FILTERS_H_

#include <cstdint>
#include <random>
#include <string>

namespace fdo_sqlite {

// Makes the text of filters that are to be translated, not refused: operands have the kinds that operators
// take. The same seed gives the same filters on every platform.
class RandomFilters {
 public:
  explicit RandomFilters(std::uint64_t seed) : random_(seed) {}

  // depth: levels of AND, OR and NOT.
  std::wstring Filter(int depth);

 private:
  typedef std::wstring (RandomFilters::*Maker)(int depth);

  std::wstring Condition();
  std::wstring Comparison();
  std::wstring List();
  std::wstring NullTest();
  std::wstring Like();
  std::wstring Spatial();

  // depth: levels of operators and functions.
  std::wstring Number(int depth);
  std::wstring NumberFunction(int depth);
  std::wstring Text(int depth);
  std::wstring Date(int depth);
  std::wstring Truth(int depth);

  unsigned Below(unsigned count) { return static_cast<unsigned>(random_() % count); }
  bool Chance(unsigned percent) { return Below(100) < percent; }
  template <std::size_t count>
  std::wstring Any(wchar_t const* const (&choices)[count]) {
    return choices[Below(static_cast<unsigned>(count))];
  }

  std::mt19937_64 random_;
};

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_RANDOM_FILTERS_H_

// Random filters as text, which every back end is to understand in one way.
#ifndef TESTING_FILTER_FAMILY_H_
#define TESTING_FILTER_FAMILY_H_

#include <fdo/row.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

namespace fdo {

// What the filters are about, for MakeTableDef.
inline constexpr wchar_t const* kFamilyColumns =
    L"id:Int64 i:Int32 big:Int64 d:Double t:String f:Boolean w:DateTime shape:Geometry";

// Fills all columns but the id, now and then with null; the geometry may have another name.
// Requires: the row has the columns, in any order
void FillFamilyRow(Row& row, std::mt19937& random);

// Filters over the columns i:Int32 big:Int64 d:Double t:String f:Boolean w:DateTime, an id and a geometry:
// comparisons of numbers, texts, moments and of texts with numbers, arithmetic, functions, IN, LIKE, spatial
// and distance conditions, the test for null, under AND, OR and NOT. Each is what its seed makes it.
class FilterFamily {
 public:
  // The names of the id and of the geometry, as filters have them.
  explicit FilterFamily(std::uint64_t seed, wchar_t const* id = L"id", wchar_t const* shape = L"shape")
      : random_(seed), id_(id), shape_(shape) {}

  std::wstring Filter(int levels);

 private:
  std::wstring Condition();
  std::wstring Integer();
  std::wstring Number(int levels);
  std::wstring TextLiteral();
  std::wstring Text(int levels);
  int Below(int limit) { return static_cast<int>(random_() % static_cast<std::uint64_t>(limit)); }
  template <std::size_t count>
  wchar_t const* Any(wchar_t const* const (&choices)[count]) {
    return choices[Below(static_cast<int>(count))];
  }

  std::mt19937_64 random_;
  wchar_t const* id_;
  wchar_t const* shape_;
};

}  // namespace fdo

#endif  // TESTING_FILTER_FAMILY_H_

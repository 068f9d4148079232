// Two doubles taken together, such as the X and Y of a position: with the processor's vector
// instructions where the compiler is known to have them, one after the other elsewhere.
#ifndef PORT_DOUBLE_PAIR_H_
#define PORT_DOUBLE_PAIR_H_

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define QUILLON_DOUBLE_PAIR_SSE2 1
#else
#define QUILLON_DOUBLE_PAIR_SSE2 0
#endif
#include <cstring>

namespace fdo::port {

#if QUILLON_DOUBLE_PAIR_SSE2

using DoublePair = __m128d;

inline DoublePair BothOf(double value) { return _mm_set1_pd(value); }
inline DoublePair LoadPair(unsigned char const* from) {
  return _mm_castsi128_pd(_mm_loadu_si128(reinterpret_cast<__m128i const*>(from)));
}
inline void StorePair(double to[2], DoublePair pair) { _mm_storeu_pd(to, pair); }

// For each of the two: the value if it is less (greater) than the bound, otherwise the bound. A value
// that is not a number is neither, so the bound stays.
inline DoublePair Lower(DoublePair value, DoublePair bound) { return _mm_min_pd(value, bound); }
inline DoublePair Higher(DoublePair value, DoublePair bound) { return _mm_max_pd(value, bound); }

inline bool Same(DoublePair left, DoublePair right) {
  return _mm_movemask_pd(_mm_cmpeq_pd(left, right)) == 3;
}
// Whether each of the left is a number not above that of the right.
inline bool NoneGreater(DoublePair left, DoublePair right) {
  return _mm_movemask_pd(_mm_cmple_pd(left, right)) == 3;
}

#else

struct DoublePair {
  double first, second;
};

inline DoublePair BothOf(double value) { return {value, value}; }
inline DoublePair LoadPair(unsigned char const* from) {
  DoublePair pair;
  std::memcpy(&pair, from, sizeof(pair));
  return pair;
}
inline void StorePair(double to[2], DoublePair pair) {
  to[0] = pair.first;
  to[1] = pair.second;
}
inline DoublePair Lower(DoublePair value, DoublePair bound) {
  return {value.first < bound.first ? value.first : bound.first,
          value.second < bound.second ? value.second : bound.second};
}
inline DoublePair Higher(DoublePair value, DoublePair bound) {
  return {value.first > bound.first ? value.first : bound.first,
          value.second > bound.second ? value.second : bound.second};
}

inline bool Same(DoublePair left, DoublePair right) {
  return left.first == right.first && left.second == right.second;
}
inline bool NoneGreater(DoublePair left, DoublePair right) {
  return left.first <= right.first && left.second <= right.second;
}

#endif

}  // namespace fdo::port

#endif  // PORT_DOUBLE_PAIR_H_

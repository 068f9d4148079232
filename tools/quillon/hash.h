// Hashes of numbers and bytes, for comparing many rows without keeping them.
#ifndef TOOLS_QUILLON_HASH_H_
#define TOOLS_QUILLON_HASH_H_

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace fdo::tool {

// Folds a word into a hash; every bit of the word has a say in every bit of the result.
constexpr std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) {
  std::uint64_t mixed = hash ^ (word + 0x9e3779b97f4a7c15u + (hash << 6) + (hash >> 2));
  mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9u;
  mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebu;
  return mixed ^ (mixed >> 31);
}

// Numbers that compare equal have one hash, and so has every not-a-number.
inline std::uint64_t MixNumber(std::uint64_t hash, double number) {
  double const canonical = std::isnan(number) ? std::nan("") : number + 0.0;
  std::uint64_t bits = 0;
  std::memcpy(&bits, &canonical, sizeof bits);
  return Mix(hash, bits);
}

}  // namespace fdo::tool

#endif  // TOOLS_QUILLON_HASH_H_

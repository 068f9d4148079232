#ifndef VALUES_NAME_INDEX_H_
#define VALUES_NAME_INDEX_H_

#include <cstddef>
#include <cstdint>
#include <vector>

namespace fdo::internal {

// A NameIndex finds the positions of named things in the list that owns them. Names fall in one of 16
// buckets by their first character, and a look-up starts at the last hit where that was in the same bucket,
// so that a name asked for again is found at once.
//
// Of equal names only the first in the list is found.
// Borrowed: the names; the index is built anew whenever the list changes.
// Threads: a look-up remembers its hit, so not even Find may be shared.
class NameIndex {
 public:
  // nameAt(i) gives the name of position i, 0 <= i < count.
  template <class NameAt>
  NameIndex(int count, NameAt nameAt) {
    entries_.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      wchar_t const* const name = nameAt(i);
      entries_.push_back({name, PrintOf(name), i});
    }
    Arrange();
  }

  // The position of that very name, or -1; null is no name.
  int Find(wchar_t const* name) const;

 private:
  struct Entry {
    wchar_t const* name;
    std::uint32_t print;
    int position;
  };

  static constexpr std::size_t kBuckets = 16;
  static std::size_t BucketOf(wchar_t const* name) { return static_cast<std::size_t>(*name) % kBuckets; }
  // Made of the length and the end of a name, because it is there that the names of a list differ:
  // almost every entry of another name is told apart without a look at its text.
  static std::uint32_t PrintOf(wchar_t const* name);
  void Arrange();
  // The first entry of that name in a run of entries, or end.
  std::size_t Search(std::size_t begin, std::size_t end, wchar_t const* name, std::uint32_t print) const;

  std::vector<Entry> entries_;          // bucket by bucket, within one in list order
  std::size_t starts_[kBuckets + 1]{};  // where each bucket begins, and the end of the last
  mutable std::size_t lastBucket_ = 0;
  mutable std::size_t lastEntry_ = 0;  // within entries_; of lastBucket_
};

}  // namespace fdo::internal

#endif  // VALUES_NAME_INDEX_H_

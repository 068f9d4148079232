#include "values/name_index.h"

#include <algorithm>
#include <cwchar>

namespace fdo::internal {

void NameIndex::Arrange() {
  // A second entry of one name could only be found after a hit behind the first one, so that the
  // answer would depend on the look-ups before: it is left out.
  std::sort(entries_.begin(), entries_.end(), [](Entry const& left, Entry const& right) {
    int const order = std::wcscmp(left.name, right.name);
    return order != 0 ? order < 0 : left.position < right.position;
  });
  entries_.erase(std::unique(entries_.begin(), entries_.end(),
                             [](Entry const& left, Entry const& right) {
                               return std::wcscmp(left.name, right.name) == 0;
                             }),
                 entries_.end());
  std::sort(entries_.begin(), entries_.end(), [](Entry const& left, Entry const& right) {
    std::size_t const leftBucket = BucketOf(left.name);
    std::size_t const rightBucket = BucketOf(right.name);
    return leftBucket != rightBucket ? leftBucket < rightBucket : left.position < right.position;
  });
  for (Entry const& entry : entries_) ++starts_[BucketOf(entry.name) + 1];
  for (std::size_t i = 0; i < kBuckets; ++i) starts_[i + 1] += starts_[i];
}

std::size_t NameIndex::Search(Entry const* entries, std::size_t begin, std::size_t end, wchar_t const* name) {
  for (std::size_t i = begin; i != end; ++i) {
    if (std::wcscmp(entries[i].name, name) == 0) return i;
  }
  return end;
}

int NameIndex::Find(wchar_t const* name) const {
  std::size_t const bucket = BucketOf(name);
  std::size_t const begin = starts_[bucket];
  std::size_t const end = starts_[bucket + 1];
  std::size_t const start = lastBucket_ == bucket ? std::max(begin, lastEntry_) : begin;
  std::size_t found = Search(entries_.data(), start, end, name);
  if (found == end) {
    found = Search(entries_.data(), begin, start, name);
    if (found == start) return -1;
  }
  lastBucket_ = bucket;
  lastEntry_ = found;
  return entries_[found].position;
}

}  // namespace fdo::internal

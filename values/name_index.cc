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

std::uint32_t NameIndex::PrintOf(wchar_t const* name) {
  constexpr std::size_t kEnd = 4;
  std::size_t const length = std::wcslen(name);
  auto print = static_cast<std::uint32_t>(length);
  for (std::size_t i = length > kEnd ? length - kEnd : 0; i != length; ++i) {
    print = print * 31 + static_cast<std::uint32_t>(name[i]);
  }
  return print;
}

std::size_t NameIndex::Search(std::size_t begin, std::size_t end, wchar_t const* name,
                              std::uint32_t print) const {
  for (std::size_t i = begin; i != end; ++i) {
    if (entries_[i].print == print && std::wcscmp(entries_[i].name, name) == 0) return i;
  }
  return end;
}

int NameIndex::Find(wchar_t const* name) const {
  if (name == nullptr) return -1;
  std::size_t const bucket = BucketOf(name);
  std::size_t const begin = starts_[bucket];
  std::size_t const end = starts_[bucket + 1];
  std::size_t const start = lastBucket_ == bucket ? std::max(begin, lastEntry_) : begin;
  std::uint32_t const print = PrintOf(name);
  std::size_t found = Search(start, end, name, print);
  if (found == end) {
    found = Search(begin, start, name, print);
    if (found == start) return -1;
  }
  lastBucket_ = bucket;
  lastEntry_ = found;
  return entries_[found].position;
}

}  // namespace fdo::internal

#ifndef OGR_BACKEND_READ_AHEAD_H_
#define OGR_BACKEND_READ_AHEAD_H_

#include "ogr_backend/gdal_binding.h"

namespace fdo::internal {

// Features that have been read and not yet shown, in their order. Having GDAL's messages come to us
// costs as much as the library's whole share of a row, so it is paid once for a run of features.
//
// A run begins with one feature and grows, so that a query of which one row is wanted reads one.
// Where rows may be written through the source it stays one: what was written must be seen.
class ReadAhead {
 public:
  explicit ReadAhead(GdalApi const& gdal) : gdal_(gdal) {}
  ReadAhead(ReadAhead const&) = delete;
  ReadAhead& operator=(ReadAhead const&) = delete;
  ~ReadAhead() { Discard(); }

  bool IsEmpty() const { return next_ == count_; }

  // Gives: the next feature, to be destroyed.
  // Requires: !IsEmpty()
  OgrFeatureH Take() { return features_[next_++]; }

  // Fetches a run with next(), which gives null at the end.
  // Gives: false when it met the end, perhaps after some features.
  // Requires: IsEmpty()
  template <class Next>
  bool Fetch(bool oneOnly, Next next) {
    int const wanted = oneOnly ? 1 : length_;
    if (length_ < kLongest) length_ *= 2;
    next_ = 0;
    for (count_ = 0; count_ < wanted; ++count_) {
      features_[count_] = next();
      if (features_[count_] == nullptr) return false;
    }
    return true;
  }

  // Destroys what has not been taken; the next run is the first of a query.
  void Discard() {
    while (!IsEmpty()) gdal_.OGR_F_Destroy(Take());
    length_ = 1;
  }

 private:
  static constexpr int kLongest = 16;

  GdalApi const& gdal_;
  OgrFeatureH features_[kLongest];  // owned from next_ to count_
  int next_ = 0;
  int count_ = 0;
  int length_ = 1;  // of the next run
};

}  // namespace fdo::internal

#endif  // OGR_BACKEND_READ_AHEAD_H_

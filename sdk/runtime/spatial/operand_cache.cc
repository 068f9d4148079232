#include "sdk/runtime/spatial/operand_cache.h"

#include <cstring>

namespace fdo_sdk {

GeosOperand const& CachedOperand::Geos(GeosSession& session) {
  if (!geos_) geos_ = BuildOperand(session, bytes_.data(), bytes_.size());
  return *geos_;
}

GEOSPreparedGeometry const* CachedOperand::Prepared(GeosSession& session) {
  if (prepared_ == nullptr) {
    prepared_ = session.Own(GEOSPrepare_r(session.Handle(), Geos(session).front().get()));
  }
  return prepared_.get();
}

PolygonIndex const& CachedOperand::Index() {
  if (!index_) index_.emplace(bytes_.data(), bytes_.size());
  return *index_;
}

OperandCache& OperandCache::OfThisThread() {
  GeosSession::OfThisThread();  // made first, so that it ends last
  thread_local OperandCache cache;
  return cache;
}

CachedOperand* OperandCache::Find(FgfBacked const& geometry) {
  std::size_t const size = geometry.Bytes().size;
  if (size < kSmallest || size > kLargest) return nullptr;
  if (last_->serial_ == geometry.Serial()) return Seen(*last_);
  CachedOperand* found = nullptr;
  CachedOperand* oldest = &places_[0];
  for (CachedOperand& place : places_) {
    if (place.serial_ == geometry.Serial()) found = &place;
    if (place.lastUse_ < oldest->lastUse_) oldest = &place;
  }
  if (found == nullptr) {
    for (CachedOperand& place : places_) {
      if (place.bytes_.size() == size && std::memcmp(place.bytes_.data(), geometry.Bytes().data, size) == 0) {
        found = &place;
        break;
      }
    }
  }
  if (found == nullptr) {
    found = oldest;
    found->prepared_.reset();
    found->geos_.reset();
    found->index_.reset();
    found->sightings_ = 0;
    found->serial_ = 0;
    found->bytes_.assign(geometry.Bytes().data, geometry.Bytes().data + size);
  }
  found->serial_ = geometry.Serial();
  last_ = found;
  return Seen(*found);
}

CachedOperand* OperandCache::Seen(CachedOperand& place) {
  place.lastUse_ = ++uses_;
  if (place.sightings_ < std::numeric_limits<int>::max()) ++place.sightings_;
  return &place;
}

}  // namespace fdo_sdk

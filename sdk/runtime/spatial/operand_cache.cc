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

OperandCache& OperandCache::OfThisThread() {
  GeosSession::OfThisThread();  // made first, so that it ends last
  thread_local OperandCache cache;
  return cache;
}

CachedOperand* OperandCache::Find(FgfBacked const& geometry) {
  std::size_t const size = geometry.Bytes().size;
  if (size < kSmallest || size > kLargest) return nullptr;
  ++uses_;
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
    found->sightings_ = 0;
    found->serial_ = 0;
    found->bytes_.assign(geometry.Bytes().data, geometry.Bytes().data + size);
  }
  found->serial_ = geometry.Serial();
  found->lastUse_ = uses_;
  if (found->sightings_ < std::numeric_limits<int>::max()) ++found->sightings_;
  return found;
}

}  // namespace fdo_sdk

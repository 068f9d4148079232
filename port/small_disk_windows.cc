#include "port/small_disk.h"

namespace fdo::port {

// There is none without a driver.
SmallDisk::SmallDisk(std::string const& folder, std::size_t) : folder_(folder), isThere_(false) {}

SmallDisk::~SmallDisk() = default;

bool SmallDisk::SetReadOnly(bool) { return false; }

}  // namespace fdo::port

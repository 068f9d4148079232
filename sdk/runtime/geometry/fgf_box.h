// FgfBox is the box of a geometry while it is measured.
#ifndef SDK_RUNTIME_GEOMETRY_FGF_BOX_H_
#define SDK_RUNTIME_GEOMETRY_FGF_BOX_H_

#include <limits>
#include <type_traits>

namespace fdo_sdk {

// Starts empty, which is inverted. An ordinate that is NaN never enters it. Settled, it is what an envelope
// gives out: whatever is not there is NaN, which every question takes as empty too.
struct FgfBox {
  double minX = std::numeric_limits<double>::infinity();
  double minY = std::numeric_limits<double>::infinity();
  double minZ = std::numeric_limits<double>::infinity();
  double maxX = -std::numeric_limits<double>::infinity();
  double maxY = -std::numeric_limits<double>::infinity();
  double maxZ = -std::numeric_limits<double>::infinity();

  bool IsEmpty() const { return !(minX <= maxX && minY <= maxY); }
  bool HasZ() const { return minZ <= maxZ; }

  void Expand(double x, double y) {
    minX = x < minX ? x : minX;
    minY = y < minY ? y : minY;
    maxX = x > maxX ? x : maxX;
    maxY = y > maxY ? y : maxY;
  }
  void ExpandZ(double z) {
    minZ = z < minZ ? z : minZ;
    maxZ = z > maxZ ? z : maxZ;
  }

  void Join(FgfBox const& other) {
    minX = other.minX < minX ? other.minX : minX;
    minY = other.minY < minY ? other.minY : minY;
    minZ = other.minZ < minZ ? other.minZ : minZ;
    maxX = other.maxX > maxX ? other.maxX : maxX;
    maxY = other.maxY > maxY ? other.maxY : maxY;
    maxZ = other.maxZ > maxZ ? other.maxZ : maxZ;
  }

  // Nothing can be added to a settled box.
  FgfBox Settled() const {
    constexpr double kNotSet = std::numeric_limits<double>::quiet_NaN();
    FgfBox settled = *this;
    if (!HasZ()) settled.minZ = settled.maxZ = kNotSet;
    if (IsEmpty()) settled = {kNotSet, kNotSet, kNotSet, kNotSet, kNotSet, kNotSet};
    return settled;
  }
  // All six, in their order.
  double const* Ordinates() const { return &minX; }

  // In X and Y, edges included. Both are false where either box is empty.
  bool Intersects(FgfBox const& other) const {
    return minX <= other.maxX && other.minX <= maxX && minY <= other.maxY && other.minY <= maxY;
  }
  bool Contains(FgfBox const& other) const {
    return !other.IsEmpty() && minX <= other.minX && other.maxX <= maxX && minY <= other.minY &&
           other.maxY <= maxY;
  }
  // Without touching the edge.
  bool ContainsProperly(FgfBox const& other) const {
    return !other.IsEmpty() && minX < other.minX && other.maxX < maxX && minY < other.minY &&
           other.maxY < maxY;
  }
};

static_assert(std::is_standard_layout_v<FgfBox> && sizeof(FgfBox) == 6 * sizeof(double),
              "the members are read as the ordinates of an envelope");

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_GEOMETRY_FGF_BOX_H_

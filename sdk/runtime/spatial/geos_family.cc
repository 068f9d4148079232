#include "sdk/runtime/spatial/geos_family.h"

#include <geos_c.h>

#include <cmath>
#include <numbers>
#include <random>

namespace fdo_sdk {

namespace {

class Family {
 public:
  explicit Family(std::uint64_t seed)
      : random_(seed), geos_(GEOS_init_r()), reader_(GEOSWKTReader_create_r(geos_)) {}
  ~Family() {
    GEOSWKTReader_destroy_r(geos_, reader_);
    GEOS_finish_r(geos_);
  }
  Family(Family const&) = delete;
  Family& operator=(Family const&) = delete;

  std::string Next() {
    for (;;) {
      std::string const text = Candidate();
      GEOSGeometry* const geometry = GEOSWKTReader_read_r(geos_, reader_, text.c_str());
      bool const valid = geometry != nullptr && GEOSisValid_r(geos_, geometry) == 1;
      GEOSGeom_destroy_r(geos_, geometry);
      if (valid) return text;
    }
  }

 private:
  int Below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }

  static std::string Number(double value) {
    return std::lround(value * 2) % 2 == 0
               ? std::to_string(std::lround(value))
               : (value < 0 ? "-" : "") + std::to_string(static_cast<long>(std::fabs(value))) + ".5";
  }
  static std::string Position(double x, double y) { return Number(x) + " " + Number(y); }

  std::string Point() { return Position(Below(13), Below(13)); }

  std::string Line() {
    std::string text = "(" + Point();
    for (int i = Below(4); i >= 0; --i) text += ", " + Point();
    return text + ")";
  }

  std::string Rectangle() {
    int const x = Below(10);
    int const y = Below(10);
    int const right = x + 1 + Below(5);
    int const top = y + 1 + Below(5);
    return "((" + Position(x, y) + ", " + Position(right, y) + ", " + Position(right, top) + ", " +
           Position(x, top) + ", " + Position(x, y) + "))";
  }

  std::string Star() {
    double const x = 2 + Below(9);
    double const y = 2 + Below(9);
    int const corners = 3 + Below(20);
    std::string first;
    std::string text = "((";
    for (int i = 0; i < corners; ++i) {
      double const angle = 2 * std::numbers::pi * i / corners;
      double const reach = 1 + Below(5);
      std::string const position = Position(x + reach * std::cos(angle), y + reach * std::sin(angle));
      if (i == 0) first = position;
      text += position + ", ";
    }
    text += first + ")";
    if (Below(3) == 0) {
      text += ", (" + Position(x - 0.5, y) + ", " + Position(x, y + 0.5) + ", " + Position(x + 0.5, y) +
              ", " + Position(x - 0.5, y) + ")";
    }
    return text + ")";
  }

  std::string Surface() { return Below(3) == 0 ? Rectangle() : Star(); }

  std::string Candidate() {
    switch (Below(8)) {
      case 0:
        return "POINT (" + Point() + ")";
      case 1:
        return "LINESTRING " + Line();
      case 2:
      case 3:
        return "POLYGON " + Surface();
      case 4:
        return "POLYGON " + Rectangle();
      case 5:
        return "MULTIPOINT (" + Point() + ", " + Point() + ", " + Point() + ")";
      case 6:
        return "MULTILINESTRING (" + Line() + ", " + Line() + ")";
      default:
        return "MULTIPOLYGON (" + Surface() + ", " + Surface() + ")";
    }
  }

  std::mt19937_64 random_;
  GEOSContextHandle_t geos_;
  GEOSWKTReader* reader_;
};

}  // namespace

std::vector<std::string> GeosFamily(std::size_t count, std::uint64_t seed) {
  Family family(seed);
  std::vector<std::string> texts;
  while (texts.size() < count) texts.push_back(family.Next());
  return texts;
}

}  // namespace fdo_sdk

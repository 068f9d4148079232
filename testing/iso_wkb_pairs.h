// The same geometries in FGF and in ISO WKB, in every type and dimensionality.
#ifndef TESTING_ISO_WKB_PAIRS_H_
#define TESTING_ISO_WKB_PAIRS_H_

#include <string>
#include <vector>

namespace fdo {

// Each side is text for its builder: Fgf(pair.fgf) and Wkb(pair.wkb) are each other's conversion.
struct IsoWkbPair {
  std::string fgf;
  std::string wkb;
};

std::vector<IsoWkbPair> const& IsoWkbPairs();

}  // namespace fdo

#endif  // TESTING_ISO_WKB_PAIRS_H_

// Every geometry type in every dimensionality and in the shapes that matter to code that reads bytes:
// empty, single, around the lengths at which loops change over, nested, mixed.
#ifndef TESTING_FGF_CATALOGUE_H_
#define TESTING_FGF_CATALOGUE_H_

#include <string>
#include <vector>

#include "testing/fgf_builder.h"

namespace fdo {

struct CataloguedStream {
  std::string text;
  FgfStream stream;
  int dimensionality;
  bool inIsoWkb;  // whether ISO WKB can hold it
  bool inOldWkb;  // whether the older form can: the six plain types in XY and XYZ
};

// At least 200 streams, built once.
// Threads: any.
std::vector<CataloguedStream> const& FgfCatalogue();

}  // namespace fdo

#endif  // TESTING_FGF_CATALOGUE_H_

// Where GDAL need not be: Debian has no package of it for Windows, where tests that need it are then skipped.
// Elsewhere they fail without it.
#ifndef OGR_BACKEND_GDAL_ABSENCE_H_
#define OGR_BACKEND_GDAL_ABSENCE_H_

namespace fdo {

// Why a test that needs GDAL is skipped; the tests' runner looks for these words when a whole program is.
inline constexpr char kWithoutGdal[] = "GDAL is not there, and need not be";

// Whether GDAL is neither there nor has to be.
bool IsWithoutGdal();

}  // namespace fdo

#endif  // OGR_BACKEND_GDAL_ABSENCE_H_

// The well-known text of geometry columns that are registered as WKT. It is not FDO's own geometry text.
//
//   POINT (1 2)   POINT (1 2 3)   POINT M (1 2 3)   POINT ZM (1 2 3 4)   POINT EMPTY
//   MULTIPOINT (1 2,3 4)   MULTIPOINT ((1 2),(3 4))   POLYGON ((0 0,4 0,4 4,0 0))
//   GEOMETRYCOLLECTION (POINT (1 2),LINESTRING (0 0,1 1))
//   CIRCULARSTRING  COMPOUNDCURVE  CURVEPOLYGON  MULTICURVE  MULTISURFACE
//
// A third ordinate without a word is Z and a fourth is M. Words may be in any letter case, and Z, M and ZM
// may stand apart or not.
#ifndef SDK_PROVIDERS_SQLITE_STORED_WKT_H_
#define SDK_PROVIDERS_SQLITE_STORED_WKT_H_

#include <string_view>

#include "sdk/runtime/geometry/fgf_builder.h"

namespace fdo_sqlite {

// Appends the FGF of a text. Geometries nest at most as deep as FGF does.
// Errors: false for a text that is not understood, is followed by something else than blanks, or says what
// FGF
//   cannot hold; also throws FdoException* for the last.
bool ReadWkt(std::string_view text, fdo_sdk::FgfBuilder& fgf);

// Appends the text in UTF-8, without a blank after commas. A Z ordinate is written without its word, but for
// curves, M is written with it; numbers are as short as they can be and still read back the same.
// Errors: throws FdoException* for a stream that is not whole, and for a multi-geometry whose parts differ in
//   whether they have M, which text cannot say.
void WriteWkt(FdoByte const* fgf, std::size_t size, fdo_sdk::FgfBuilder& text);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_STORED_WKT_H_

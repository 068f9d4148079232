// FGF geometries as text: a superset of OGC WKT.
//
// A type word, a dimensionality word (XY, XYZ, XYM, XYZM, or Z, M, ZM; none is XY), then the body, or EMPTY
// in place of any list in parentheses. All words in any case. Ordinates beyond the dimensionality are
// passed over. The points of a MULTIPOINT may stand in parentheses of their own.
#ifndef SDK_RUNTIME_TEXT_FGF_TEXT_H_
#define SDK_RUNTIME_TEXT_FGF_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Common/FdoTypes.h"

namespace fdo_sdk {

// The bytes of the one geometry that the text is.
// Deliberate: a POINT and a CURVESTRING cannot be EMPTY, because their bytes always hold a position.
// Errors: throws TextError; collections nest at most kMaximumNesting deep.
std::vector<FdoByte> TextToFgf(std::wstring_view text);

// The text of the one geometry that the bytes are. Ordinates have the shortest text that reads as the same
// number; NaN, Infinity and -Infinity are words.
// Deliberate: a multi-geometry without parts has no dimensionality in its bytes, so its text has none.
// Errors: throws TextError "Invalid FGF stream!" when a count, a type or the length is wrong, or when the
// parts of a typed multi-geometry differ in dimensionality, which the text cannot say.
std::wstring FgfToText(FdoByte const* bytes, std::size_t count);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_TEXT_FGF_TEXT_H_

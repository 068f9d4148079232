// Which ordinates a position has beside X and Y; the values combine as bits.
#ifndef COMMON_DIMENSIONALITY_H_
#define COMMON_DIMENSIONALITY_H_

enum FdoDimensionality { FdoDimensionality_XY = 0, FdoDimensionality_Z = 1, FdoDimensionality_M = 2 };

#endif  // COMMON_DIMENSIONALITY_H_

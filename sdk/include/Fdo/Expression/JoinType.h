// The kinds of join; the values combine as bits in capabilities.
#ifndef FDO_EXPRESSION_JOIN_TYPE_H_
#define FDO_EXPRESSION_JOIN_TYPE_H_

enum FdoJoinType {
  FdoJoinType_None = 0,
  FdoJoinType_Inner = 1,
  FdoJoinType_RightOuter = 2,
  FdoJoinType_LeftOuter = 4,
  FdoJoinType_FullOuter = 8,
  FdoJoinType_Cross = 16
};

#endif  // FDO_EXPRESSION_JOIN_TYPE_H_

// The outcome of comparing two values that may not be comparable.
#ifndef COMMON_COMPARE_H_
#define COMMON_COMPARE_H_

enum FdoCompareType {
  FdoCompareType_Undefined = 0,
  FdoCompareType_Less = 1,
  FdoCompareType_Greater = 2,
  FdoCompareType_Equal = 3,
  FdoCompareType_PartlyEqual = 4
};

#endif  // COMMON_COMPARE_H_

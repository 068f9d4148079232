// The kinds of search condition, as capabilities list them.
#ifndef FDO_FILTER_CONDITION_TYPE_H_
#define FDO_FILTER_CONDITION_TYPE_H_

enum FdoConditionType {
  FdoConditionType_Comparison = 0,
  FdoConditionType_Like = 1,
  FdoConditionType_In = 2,
  FdoConditionType_Null = 3,
  FdoConditionType_Spatial = 4,
  FdoConditionType_Distance = 5
};

#endif  // FDO_FILTER_CONDITION_TYPE_H_

// What a function is about.
#ifndef FDO_CONNECTIONS_CAPABILITIES_FUNCTION_CATEGORY_TYPE_H_
#define FDO_CONNECTIONS_CAPABILITIES_FUNCTION_CATEGORY_TYPE_H_

enum FdoFunctionCategoryType {
  FdoFunctionCategoryType_Aggregate = 0,
  FdoFunctionCategoryType_Conversion = 1,
  FdoFunctionCategoryType_Custom = 2,
  FdoFunctionCategoryType_Date = 3,
  FdoFunctionCategoryType_Geometry = 4,
  FdoFunctionCategoryType_Math = 5,
  FdoFunctionCategoryType_Numeric = 6,
  FdoFunctionCategoryType_String = 7,
  FdoFunctionCategoryType_Unspecified = 8
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_FUNCTION_CATEGORY_TYPE_H_

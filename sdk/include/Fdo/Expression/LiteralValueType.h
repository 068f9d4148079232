// The kinds of literal value.
#ifndef FDO_EXPRESSION_LITERAL_VALUE_TYPE_H_
#define FDO_EXPRESSION_LITERAL_VALUE_TYPE_H_

enum FdoLiteralValueType { FdoLiteralValueType_Data = 0, FdoLiteralValueType_Geometry = 1 };

#endif  // FDO_EXPRESSION_LITERAL_VALUE_TYPE_H_

// The kinds of expression, as capabilities list them.
#ifndef FDO_EXPRESSION_EXPRESSION_TYPE_H_
#define FDO_EXPRESSION_EXPRESSION_TYPE_H_

enum FdoExpressionType {
  FdoExpressionType_Basic = 0,
  FdoExpressionType_Function = 1,
  FdoExpressionType_Parameter = 2
};

#endif  // FDO_EXPRESSION_EXPRESSION_TYPE_H_

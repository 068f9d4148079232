// The kinds of expression node.
#ifndef FDO_EXPRESSION_EXPRESSION_ITEM_TYPE_H_
#define FDO_EXPRESSION_EXPRESSION_ITEM_TYPE_H_

enum FdoExpressionItemType {
  FdoExpressionItemType_Identifier = 0,
  FdoExpressionItemType_ComputedIdentifier = 1,
  FdoExpressionItemType_SubSelectExpression = 2,
  FdoExpressionItemType_Parameter = 3,
  FdoExpressionItemType_Function = 4,
  FdoExpressionItemType_BinaryExpression = 5,
  FdoExpressionItemType_UnaryExpression = 6,
  FdoExpressionItemType_DataValue = 7,
  FdoExpressionItemType_GeometryValue = 8
};

#endif  // FDO_EXPRESSION_EXPRESSION_ITEM_TYPE_H_

// The arithmetic operations on two expressions.
#ifndef FDO_EXPRESSION_BINARY_OPERATIONS_H_
#define FDO_EXPRESSION_BINARY_OPERATIONS_H_

enum FdoBinaryOperations {
  FdoBinaryOperations_Add = 0,
  FdoBinaryOperations_Subtract = 1,
  FdoBinaryOperations_Multiply = 2,
  FdoBinaryOperations_Divide = 3
};

#endif  // FDO_EXPRESSION_BINARY_OPERATIONS_H_

// The arithmetic operation on one expression.
#ifndef FDO_EXPRESSION_UNARY_OPERATIONS_H_
#define FDO_EXPRESSION_UNARY_OPERATIONS_H_

enum FdoUnaryOperations { FdoUnaryOperations_Negate = 0 };

#endif  // FDO_EXPRESSION_UNARY_OPERATIONS_H_

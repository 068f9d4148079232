// FdoFunction is a call of a function by name.
#ifndef FDO_EXPRESSION_FUNCTION_H_
#define FDO_EXPRESSION_FUNCTION_H_

#include "Fdo/Expression/ExpressionCollection.h"

class FDO_API FdoFunction : public FdoExpression {
 public:
  // Gives: one reference. The arguments are shared; the collection itself is not, its items are.
  static FdoFunction* Create();
  static FdoFunction* Create(FdoString* name, FdoExpression** arguments, FdoInt32 numArgs);
  static FdoFunction* Create(FdoString* name, FdoExpressionCollection* arguments);

  // Borrowed: until SetName. Empty when none was set.
  FdoString* GetName();
  void SetName(FdoString* value);

  // Gives: one reference to the function's own collection; what is changed there changes the call.
  FdoExpressionCollection* GetArguments();

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;
  FdoExpressionItemType GetExpressionType() override;

 protected:
  FdoFunction();
  explicit FdoFunction(FdoString* name);
  ~FdoFunction() override;
  void Dispose() override;

 private:
  FdoStringP m_name;
  FdoPtr<FdoExpressionCollection> m_arguments;
};

#endif  // FDO_EXPRESSION_FUNCTION_H_

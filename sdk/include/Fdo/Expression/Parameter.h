// FdoParameter stands for a value that is given when a command runs.
#ifndef FDO_EXPRESSION_PARAMETER_H_
#define FDO_EXPRESSION_PARAMETER_H_

#include "Fdo/Expression/ValueExpression.h"

class FDO_API FdoParameter : public FdoValueExpression {
 public:
  // Gives: one reference.
  static FdoParameter* Create();
  static FdoParameter* Create(FdoString* name);

  // The name without the colon of the text form. Borrowed: until SetName.
  FdoString* GetName();
  void SetName(FdoString* value);

  void Process(FdoIExpressionProcessor* p) override;
  FdoString* ToString() override;
  FdoExpressionItemType GetExpressionType() override;

 protected:
  FdoParameter();
  explicit FdoParameter(FdoString* name);
  ~FdoParameter() override;
  void Dispose() override;

 private:
  FdoStringP m_name;
};

#endif  // FDO_EXPRESSION_PARAMETER_H_

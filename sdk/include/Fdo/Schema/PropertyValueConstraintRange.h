// FdoPropertyValueConstraintRange allows the values between two bounds.
#ifndef FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_RANGE_H_
#define FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_RANGE_H_

#include "Fdo/Schema/PropertyValueConstraint.h"

// A bound that is null, or a null value, does not bound.
class FDO_API FdoPropertyValueConstraintRange : public FdoPropertyValueConstraint {
 public:
  // Give: one reference. The values are shared; both bounds are exclusive, unless set.
  static FdoPropertyValueConstraintRange* Create();
  static FdoPropertyValueConstraintRange* Create(FdoDataValue* minValue, FdoDataValue* maxValue);

  FdoPropertyValueConstraintType GetConstraintType() override;

  // Gives: one reference, or null.
  FdoDataValue* GetMinValue();
  void SetMinValue(FdoDataValue* value);
  bool GetMinInclusive();
  void SetMinInclusive(bool value);

  // Gives: one reference, or null.
  FdoDataValue* GetMaxValue();
  void SetMaxValue(FdoDataValue* value);
  bool GetMaxInclusive();
  void SetMaxInclusive(bool value);

  // Whether the other is a range with the same bounds.
  bool Equals(FdoPropertyValueConstraint* pConstraint) override;

  // Whether the other is a range within this one, or a list of values that are all within it.
  bool Contains(FdoPropertyValueConstraint* pConstraint) override;
  bool Contains(FdoDataValue* pValue) override;

 protected:
  FdoPropertyValueConstraintRange();
  FdoPropertyValueConstraintRange(FdoDataValue* minValue, FdoDataValue* maxValue);
  ~FdoPropertyValueConstraintRange() override;
  void Dispose() override;

 private:
  FdoPtr<FdoDataValue> m_minValue;
  FdoPtr<FdoDataValue> m_maxValue;
  bool m_minInclusive;
  bool m_maxInclusive;
};

typedef FdoPtr<FdoPropertyValueConstraintRange> FdoPropertyValueConstraintRangeP;

#endif  // FDO_SCHEMA_PROPERTY_VALUE_CONSTRAINT_RANGE_H_

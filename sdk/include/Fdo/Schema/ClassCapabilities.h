// FdoClassCapabilities says what a provider supports for one class.
#ifndef FDO_SCHEMA_CLASS_CAPABILITIES_H_
#define FDO_SCHEMA_CLASS_CAPABILITIES_H_

#include <map>
#include <string>
#include <vector>

#include "Fdo/Commands/Locking/LockType.h"
#include "Fdo/Schema/PolygonVertexOrderRule.h"
#include "FdoStd.h"

class FdoClassDefinition;

class FDO_API FdoClassCapabilities : public FdoIDisposable {
 public:
  // Gives: one reference. The capabilities hold the class until FdoClassDefinition::SetCapabilities
  // makes them its part.
  static FdoClassCapabilities* Create(FdoClassDefinition& parent);

  // Gives: one reference; null when the class is gone or has other capabilities now.
  FdoClassDefinition* GetParent();

  FdoBoolean SupportsLocking();
  void SetSupportsLocking(FdoBoolean value);

  // Borrowed: until the lock types are set.
  FdoLockType* GetLockTypes(FdoInt32& size);
  void SetLockTypes(FdoLockType const* types, FdoInt32 size);

  FdoBoolean SupportsLongTransactions();
  void SetSupportsLongTransactions(FdoBoolean value);

  // True, unless set.
  FdoBoolean SupportsWrite();
  void SetSupportsWrite(FdoBoolean value);

  // Which way the rings of a geometric property's polygons run, and whether the provider insists on it.
  // None and false, unless set.
  FdoPolygonVertexOrderRule GetPolygonVertexOrderRule(FdoString* geometryPropName);
  void SetPolygonVertexOrderRule(FdoString* geometryPropName, FdoPolygonVertexOrderRule vertexOrderRule);
  FdoBoolean GetPolygonVertexOrderStrictness(FdoString* geometryPropName);
  void SetPolygonVertexOrderStrictness(FdoString* geometryPropName, FdoBoolean value);

  // Takes over everything but the parent.
  void Set(FdoClassCapabilities* pCapabilities);

 protected:
  explicit FdoClassCapabilities(FdoClassDefinition& parent);
  ~FdoClassCapabilities() override;
  void Dispose() override;

 private:
  friend class FdoClassDefinition;

  struct Values {
    bool supportsLocking = false;
    bool supportsLongTransactions = false;
    bool supportsWrite = true;
    std::vector<FdoLockType> lockTypes;
    std::map<std::wstring, FdoPolygonVertexOrderRule> vertexOrderRules;
    std::map<std::wstring, bool> vertexOrderStrictness;
  };

  // The class takes this in, and holds it instead of being held.
  // Errors: FdoSchemaException* when this was made for another class.
  void EnterClass(FdoClassDefinition& parent);
  void LeaveClass();

  Values m_values;
  FdoPtr<FdoClassDefinition> m_heldParent;  // before the class has taken this in
  FdoClassDefinition* m_parent;             // not counted
};

#endif  // FDO_SCHEMA_CLASS_CAPABILITIES_H_

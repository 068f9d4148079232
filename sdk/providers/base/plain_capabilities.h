// Capabilities that are the same for every provider of vector features, those that most have and some change,
// and what capabilities are made with.
#ifndef SDK_PROVIDERS_BASE_PLAIN_CAPABILITIES_H_
#define SDK_PROVIDERS_BASE_PLAIN_CAPABILITIES_H_

#include <cstddef>
#include <utility>
#include <vector>

#include "Fdo.h"

namespace fdo_provider {

// The elements, as the getters of capabilities give them.
template <class Element, std::size_t kLength>
Element* Array(Element (&elements)[kLength], FdoInt32& length) {
  length = static_cast<FdoInt32>(kLength);
  return elements;
}

// Of a store of vector features in one place: neither locks nor long transactions. What else a provider has,
// its heir says.
class PlainConnection : public FdoIConnectionCapabilities {
 public:
  FdoThreadCapability GetThreadCapability() override { return FdoThreadCapability_PerConnectionThreaded; }
  bool SupportsLocking() override { return false; }
  FdoLockType* GetLockTypes(FdoInt32& size) override {
    size = 0;
    return nullptr;
  }
  bool SupportsLongTransactions() override { return false; }
  bool SupportsMultipleSpatialContexts() override { return true; }
  bool SupportsCSysWKTFromCSysName() override { return false; }
  bool SupportsWrite() override { return true; }
  bool SupportsFlush() override { return true; }

 protected:
  void Dispose() override { delete this; }
};

// Classes with data and geometry of every data type, and keys of several properties; constraints, if any, are
// for an heir.
class PlainSchema : public FdoISchemaCapabilities {
 public:
  FdoClassType* GetClassTypes(FdoInt32& length) override { return Array(classTypes_, length); }
  FdoDataType* GetDataTypes(FdoInt32& length) override { return Array(dataTypes_, length); }
  FdoInt64 GetMaximumDataValueLength(FdoDataType) override { return -1; }
  FdoInt32 GetMaximumDecimalPrecision() override { return 15; }
  FdoInt32 GetMaximumDecimalScale() override { return 15; }
  FdoInt32 GetNameSizeLimit(FdoSchemaElementNameType) override { return -1; }
  FdoString* GetReservedCharactersForName() override { return L".:"; }
  FdoDataType* GetSupportedIdentityPropertyTypes(FdoInt32& length) override {
    return Array(dataTypes_, length);
  }
  bool SupportsAssociationProperties() override { return false; }
  bool SupportsAutoIdGeneration() override { return true; }
  bool SupportsCompositeId() override { return true; }
  bool SupportsCompositeUniqueValueConstraints() override { return false; }
  bool SupportsDataStoreScopeUniqueIdGeneration() override { return false; }
  bool SupportsDefaultValue() override { return false; }
  bool SupportsExclusiveValueRangeConstraints() override { return false; }
  bool SupportsInclusiveValueRangeConstraints() override { return false; }
  bool SupportsInheritance() override { return false; }
  bool SupportsMultipleSchemas() override { return false; }
  bool SupportsNetworkModel() override { return false; }
  bool SupportsNullValueConstraints() override { return false; }
  bool SupportsObjectProperties() override { return false; }
  bool SupportsSchemaModification() override { return true; }
  bool SupportsSchemaOverrides() override { return false; }
  bool SupportsUniqueValueConstraints() override { return false; }
  bool SupportsValueConstraintsList() override { return false; }

 protected:
  void Dispose() override { delete this; }

  // Those of long values come last.
  FdoDataType dataTypes_[12] = {FdoDataType_Boolean, FdoDataType_Byte,   FdoDataType_DateTime,
                                FdoDataType_Decimal, FdoDataType_Double, FdoDataType_Int16,
                                FdoDataType_Int32,   FdoDataType_Int64,  FdoDataType_Single,
                                FdoDataType_String,  FdoDataType_BLOB,   FdoDataType_CLOB};

 private:
  FdoClassType classTypes_[2] = {FdoClassType_Class, FdoClassType_FeatureClass};
};

// Commands with parameters, whose selects order.
class PlainCommands : public FdoICommandCapabilities {
 public:
  explicit PlainCommands(std::vector<FdoInt32> types) : commands_(std::move(types)) {}

  FdoInt32* GetCommands(FdoInt32& size) override {
    size = static_cast<FdoInt32>(commands_.size());
    return commands_.data();
  }
  bool SupportsParameters() override { return true; }
  bool SupportsTimeout() override { return false; }
  bool SupportsSelectExpressions() override { return false; }
  bool SupportsSelectFunctions() override { return false; }
  bool SupportsSelectDistinct() override { return false; }
  bool SupportsSelectOrdering() override { return true; }
  bool SupportsSelectGrouping() override { return false; }

 protected:
  void Dispose() override { delete this; }

 private:
  std::vector<FdoInt32> commands_;
};

class NoRasters : public FdoIRasterCapabilities {
 public:
  bool SupportsRaster() override { return false; }
  bool SupportsStitching() override { return false; }
  bool SupportsSubsampling() override { return false; }
  bool SupportsDataModel(FdoRasterDataModel*) override { return false; }

 protected:
  void Dispose() override { delete this; }
};

class NoTopology : public FdoITopologyCapabilities {
 public:
  bool SupportsTopology() override { return false; }
  bool SupportsTopologicalHierarchy() override { return false; }
  bool BreaksCurveCrossingsAutomatically() override { return false; }
  bool ActivatesTopologyByArea() override { return false; }
  bool ConstrainsFeatureMovements() override { return false; }

 protected:
  void Dispose() override { delete this; }
};

// Every geometry that FGF can hold.
class AllGeometries : public FdoIGeometryCapabilities {
 public:
  FdoGeometryType* GetGeometryTypes(FdoInt32& length) override { return Array(types_, length); }
  FdoGeometryComponentType* GetGeometryComponentTypes(FdoInt32& length) override {
    return Array(components_, length);
  }
  FdoInt32 GetDimensionalities() override { return FdoDimensionality_Z | FdoDimensionality_M; }

 protected:
  void Dispose() override { delete this; }

 private:
  FdoGeometryType types_[11] = {FdoGeometryType_Point,
                                FdoGeometryType_LineString,
                                FdoGeometryType_Polygon,
                                FdoGeometryType_MultiPoint,
                                FdoGeometryType_MultiLineString,
                                FdoGeometryType_MultiPolygon,
                                FdoGeometryType_MultiGeometry,
                                FdoGeometryType_CurveString,
                                FdoGeometryType_CurvePolygon,
                                FdoGeometryType_MultiCurveString,
                                FdoGeometryType_MultiCurvePolygon};
  FdoGeometryComponentType components_[4] = {
      FdoGeometryComponentType_LinearRing, FdoGeometryComponentType_CircularArcSegment,
      FdoGeometryComponentType_LineStringSegment, FdoGeometryComponentType_Ring};
};

}  // namespace fdo_provider

#endif  // SDK_PROVIDERS_BASE_PLAIN_CAPABILITIES_H_

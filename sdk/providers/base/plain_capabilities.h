// Capabilities that are the same for every provider of vector features, and what capabilities are made with.
#ifndef SDK_PROVIDERS_BASE_PLAIN_CAPABILITIES_H_
#define SDK_PROVIDERS_BASE_PLAIN_CAPABILITIES_H_

#include <cstddef>

#include "Fdo.h"

namespace fdo_provider {

// The elements, as the getters of capabilities give them.
template <class Element, std::size_t kLength>
Element* Array(Element (&elements)[kLength], FdoInt32& length) {
  length = static_cast<FdoInt32>(kLength);
  return elements;
}

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

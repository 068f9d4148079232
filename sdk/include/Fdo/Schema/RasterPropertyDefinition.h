// FdoRasterPropertyDefinition is a property that holds a raster image.
#ifndef FDO_SCHEMA_RASTER_PROPERTY_DEFINITION_H_
#define FDO_SCHEMA_RASTER_PROPERTY_DEFINITION_H_

#include "Fdo/Schema/PropertyDefinition.h"

class FdoRasterDataModel;

class FDO_API FdoRasterPropertyDefinition : public FdoPropertyDefinition {
 public:
  // Give: one reference.
  static FdoRasterPropertyDefinition* Create();
  static FdoRasterPropertyDefinition* Create(FdoString* name, FdoString* description, bool system = false);

  FdoPropertyType GetPropertyType() override;

  virtual bool GetReadOnly();
  virtual void SetReadOnly(bool value);

  virtual bool GetNullable();
  virtual void SetNullable(bool value);

  // Gives: one reference, or null.
  virtual FdoRasterDataModel* GetDefaultDataModel();
  virtual void SetDefaultDataModel(FdoRasterDataModel* datamodel);

  // Units: pixels.
  virtual FdoInt32 GetDefaultImageXSize();
  virtual void SetDefaultImageXSize(FdoInt32 size);

  virtual FdoInt32 GetDefaultImageYSize();
  virtual void SetDefaultImageYSize(FdoInt32 size);

  // The name of a spatial context; empty for no particular one.
  void SetSpatialContextAssociation(FdoString* spatialContextName);
  FdoString* GetSpatialContextAssociation();

 protected:
  FdoRasterPropertyDefinition();
  FdoRasterPropertyDefinition(FdoString* name, FdoString* description, bool system);
  ~FdoRasterPropertyDefinition() override;
  void Dispose() override;
  void KeepValues() override;
  void AcceptValues() override;
  void RejectValues() override;

 private:
  struct Values {
    bool readOnly = false;
    bool nullable = false;
    FdoPtr<FdoRasterDataModel> dataModel;
    FdoInt32 imageXSize = 0;
    FdoInt32 imageYSize = 0;
    FdoStringP spatialContext;
  };

  FdoInternal::Tracked<Values> m_values;
};

typedef FdoPtr<FdoRasterPropertyDefinition> FdoRasterPropertyDefinitionP;

#endif  // FDO_SCHEMA_RASTER_PROPERTY_DEFINITION_H_

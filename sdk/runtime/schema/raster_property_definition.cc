#include "Fdo/Schema/RasterPropertyDefinition.h"

#include "Fdo/Raster/RasterDataModel.h"

FdoRasterPropertyDefinition* FdoRasterPropertyDefinition::Create() {
  return new FdoRasterPropertyDefinition();
}

FdoRasterPropertyDefinition* FdoRasterPropertyDefinition::Create(FdoString* name, FdoString* description,
                                                                 bool system) {
  return new FdoRasterPropertyDefinition(name, description, system);
}

FdoRasterPropertyDefinition::FdoRasterPropertyDefinition() = default;

FdoRasterPropertyDefinition::FdoRasterPropertyDefinition(FdoString* name, FdoString* description, bool system)
    : FdoPropertyDefinition(name, description, system) {}

FdoRasterPropertyDefinition::~FdoRasterPropertyDefinition() = default;

void FdoRasterPropertyDefinition::Dispose() { delete this; }

FdoPropertyType FdoRasterPropertyDefinition::GetPropertyType() { return FdoPropertyType_RasterProperty; }

bool FdoRasterPropertyDefinition::GetReadOnly() { return m_values->readOnly; }

void FdoRasterPropertyDefinition::SetReadOnly(bool value) {
  BeginChange();
  m_values.current.readOnly = value;
}

bool FdoRasterPropertyDefinition::GetNullable() { return m_values->nullable; }

void FdoRasterPropertyDefinition::SetNullable(bool value) {
  BeginChange();
  m_values.current.nullable = value;
}

FdoRasterDataModel* FdoRasterPropertyDefinition::GetDefaultDataModel() {
  return FDO_SAFE_ADDREF(m_values->dataModel.p);
}

void FdoRasterPropertyDefinition::SetDefaultDataModel(FdoRasterDataModel* datamodel) {
  BeginChange();
  m_values.current.dataModel = FDO_SAFE_ADDREF(datamodel);
}

FdoInt32 FdoRasterPropertyDefinition::GetDefaultImageXSize() { return m_values->imageXSize; }

void FdoRasterPropertyDefinition::SetDefaultImageXSize(FdoInt32 size) {
  BeginChange();
  m_values.current.imageXSize = size;
}

FdoInt32 FdoRasterPropertyDefinition::GetDefaultImageYSize() { return m_values->imageYSize; }

void FdoRasterPropertyDefinition::SetDefaultImageYSize(FdoInt32 size) {
  BeginChange();
  m_values.current.imageYSize = size;
}

FdoString* FdoRasterPropertyDefinition::GetSpatialContextAssociation() { return m_values->spatialContext; }

void FdoRasterPropertyDefinition::SetSpatialContextAssociation(FdoString* spatialContextName) {
  BeginChange();
  m_values.current.spatialContext = spatialContextName;
}

void FdoRasterPropertyDefinition::KeepValues() {
  FdoPropertyDefinition::KeepValues();
  m_values.Keep();
}

void FdoRasterPropertyDefinition::AcceptValues() {
  FdoPropertyDefinition::AcceptValues();
  m_values.Accept();
}

void FdoRasterPropertyDefinition::RejectValues() {
  FdoPropertyDefinition::RejectValues();
  m_values.Reject();
}

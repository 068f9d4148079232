#include "Fdo/Raster/RasterDataModel.h"

FdoRasterDataModel* FdoRasterDataModel::Create() { return new FdoRasterDataModel(); }

FdoRasterDataModel::FdoRasterDataModel()
    : m_type(FdoRasterDataModelType_RGB),
      m_bitsPerPixel(24),
      m_organization(FdoRasterDataOrganization_Pixel),
      m_tileSizeX(1024),
      m_tileSizeY(1024),
      m_dataType(FdoRasterDataType_UnsignedInteger) {}

FdoRasterDataModel::~FdoRasterDataModel() = default;

void FdoRasterDataModel::Dispose() { delete this; }

FdoRasterDataModelType FdoRasterDataModel::GetDataModelType() { return m_type; }

void FdoRasterDataModel::SetDataModelType(FdoRasterDataModelType type) { m_type = type; }

FdoInt32 FdoRasterDataModel::GetBitsPerPixel() { return m_bitsPerPixel; }

void FdoRasterDataModel::SetBitsPerPixel(FdoInt32 bpp) { m_bitsPerPixel = bpp; }

FdoRasterDataOrganization FdoRasterDataModel::GetOrganization() { return m_organization; }

void FdoRasterDataModel::SetOrganization(FdoRasterDataOrganization organization) {
  m_organization = organization;
}

FdoInt32 FdoRasterDataModel::GetTileSizeX() { return m_tileSizeX; }

void FdoRasterDataModel::SetTileSizeX(FdoInt32 sizex) { m_tileSizeX = sizex; }

FdoInt32 FdoRasterDataModel::GetTileSizeY() { return m_tileSizeY; }

void FdoRasterDataModel::SetTileSizeY(FdoInt32 sizey) { m_tileSizeY = sizey; }

FdoRasterDataType FdoRasterDataModel::GetDataType() { return m_dataType; }

void FdoRasterDataModel::SetDataType(FdoRasterDataType dataType) { m_dataType = dataType; }

bool FdoRasterDataModel::Equals(FdoRasterDataModel* pModel) {
  return pModel != nullptr && m_type == pModel->m_type && m_bitsPerPixel == pModel->m_bitsPerPixel &&
         m_organization == pModel->m_organization && m_tileSizeX == pModel->m_tileSizeX &&
         m_tileSizeY == pModel->m_tileSizeY && m_dataType == pModel->m_dataType;
}

#include "bench/layer_scan.h"

#include <algorithm>
#include <cfloat>
#include <stdexcept>

#include "bench/cell_checksum.h"

namespace fdo::bench {
namespace {

std::uint64_t FieldChecksum(OGRFeatureH feature, int field, int type) {
  if (!OGR_F_IsFieldSetAndNotNull(feature, field)) return 0;
  switch (type) {
    case kOftInteger:
      return OfInteger(OGR_F_GetFieldAsInteger(feature, field));
    case kOftInteger64:
      return OfInteger(OGR_F_GetFieldAsInteger64(feature, field));
    case kOftReal:
      return OfReal(OGR_F_GetFieldAsDouble(feature, field));
    case kOftString:
      return OfCharacter(static_cast<unsigned char>(OGR_F_GetFieldAsString(feature, field)[0]));
    case kOftDate:
    case kOftDateTime: {
      int year, month, day, hour, minute, timeZone;
      float second;
      OGR_F_GetFieldAsDateTimeEx(feature, field, &year, &month, &day, &hour, &minute, &second, &timeZone);
      return OfYearDigit(year % 10);
    }
    default:
      throw std::runtime_error("a field of an unexpected type");
  }
}

}  // namespace

LayerScan::LayerScan(std::filesystem::path const& path) {
  GDALAllRegister();
  dataset_.reset(GDALOpenEx(path.string().c_str(), kGdalOpenVector, nullptr, nullptr, nullptr));
  layer_ = dataset_ == nullptr ? nullptr : GDALDatasetGetLayer(dataset_.get(), 0);
  if (layer_ == nullptr) throw std::runtime_error("GDAL does not open " + path.string());
  OGRFeatureDefnH const definition = OGR_L_GetLayerDefn(layer_);
  for (int i = 0; i < OGR_FD_GetFieldCount(definition); ++i) {
    OGRFieldDefnH const field = OGR_FD_GetFieldDefn(definition, i);
    fields_.push_back({OGR_Fld_GetType(field), OGR_Fld_GetNameRef(field)});
  }
}

Work LayerScan::ReadAll() {
  Work work;
  int const fieldCount = static_cast<int>(fields_.size());
  OGR_L_SetIgnoredFields(layer_, nullptr);
  OGR_L_ResetReading(layer_);
  while (OGRFeatureH const feature = OGR_L_GetNextFeature(layer_)) {
    work.checksum += OfInteger(OGR_F_GetFID(feature));
    for (int i = 0; i < fieldCount; ++i) {
      work.checksum += FieldChecksum(feature, i, fields_[static_cast<std::size_t>(i)].type);
    }
    if (OGRGeometryH const geometry = OGR_F_GetGeometryRef(feature)) {
      auto const length = static_cast<std::size_t>(OGR_G_WkbSize(geometry));
      if (wkb_.size() < length) wkb_.resize(length);
      if (OGR_G_ExportToWkb(geometry, kWkbLittleEndian, wkb_.data()) != kOgrErrNone) {
        throw std::runtime_error("a geometry that has no WKB");
      }
      work.checksum += OfGeometry(wkb_.data(), length);
    }
    OGR_F_Destroy(feature);
    ++work.amount;
  }
  return work;
}

Work LayerScan::ReadField(char const* name) {
  std::vector<char const*> ignored;
  int wanted = -1;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (fields_[i].name == name) {
      wanted = static_cast<int>(i);
    } else {
      ignored.push_back(fields_[i].name.c_str());
    }
  }
  if (wanted < 0) throw std::runtime_error(std::string("no field ") + name);
  ignored.push_back("OGR_GEOMETRY");
  ignored.push_back(nullptr);

  Work work;
  int const type = fields_[static_cast<std::size_t>(wanted)].type;
  OGR_L_SetIgnoredFields(layer_, ignored.data());
  OGR_L_ResetReading(layer_);
  while (OGRFeatureH const feature = OGR_L_GetNextFeature(layer_)) {
    work.checksum += FieldChecksum(feature, wanted, type);
    OGR_F_Destroy(feature);
    ++work.amount;
  }
  return work;
}

Work LayerScan::Measure() {
  std::vector<char const*> ignored;
  for (Field const& field : fields_) ignored.push_back(field.name.c_str());
  ignored.push_back(nullptr);

  Work work;
  OgrEnvelope all{DBL_MAX, -DBL_MAX, DBL_MAX, -DBL_MAX};
  OGR_L_SetIgnoredFields(layer_, ignored.data());
  OGR_L_ResetReading(layer_);
  while (OGRFeatureH const feature = OGR_L_GetNextFeature(layer_)) {
    if (OGRGeometryH const geometry = OGR_F_GetGeometryRef(feature)) {
      OgrEnvelope box;
      OGR_G_GetEnvelope(geometry, &box);
      all.minX = std::min(all.minX, box.minX);
      all.maxX = std::max(all.maxX, box.maxX);
      all.minY = std::min(all.minY, box.minY);
      all.maxY = std::max(all.maxY, box.maxY);
    }
    OGR_F_Destroy(feature);
    ++work.amount;
  }
  for (double const ordinate : {all.minX, all.minY, all.maxX, all.maxY}) work.checksum += OfReal(ordinate);
  return work;
}

}  // namespace fdo::bench

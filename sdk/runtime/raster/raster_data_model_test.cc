#include <gtest/gtest.h>

#include "Fdo.h"

namespace fdo_sdk {
namespace {

TEST(RasterDataModel, EqualWhenEveryPartIs) {
  struct Change {
    char const* name;
    void (*apply)(FdoRasterDataModel&);
  };
  Change const changes[] = {
      {"type", [](FdoRasterDataModel& m) { m.SetDataModelType(FdoRasterDataModelType_Gray); }},
      {"bits", [](FdoRasterDataModel& m) { m.SetBitsPerPixel(8); }},
      {"organization", [](FdoRasterDataModel& m) { m.SetOrganization(FdoRasterDataOrganization_Row); }},
      {"tile width", [](FdoRasterDataModel& m) { m.SetTileSizeX(7); }},
      {"tile height", [](FdoRasterDataModel& m) { m.SetTileSizeY(7); }},
      {"data type", [](FdoRasterDataModel& m) { m.SetDataType(FdoRasterDataType_Float); }},
  };
  for (Change const& change : changes) {
    FdoPtr<FdoRasterDataModel> left = FdoRasterDataModel::Create();
    FdoPtr<FdoRasterDataModel> right = FdoRasterDataModel::Create();
    EXPECT_TRUE(left->Equals(right)) << change.name;
    change.apply(*left);
    EXPECT_FALSE(left->Equals(right)) << change.name;
    change.apply(*right);
    EXPECT_TRUE(left->Equals(right)) << change.name;
  }
}

TEST(RasterDataModel, EqualsNothingWhenComparedWithNull) {
  FdoPtr<FdoRasterDataModel> model = FdoRasterDataModel::Create();
  EXPECT_FALSE(model->Equals(nullptr));
}

}  // namespace
}  // namespace fdo_sdk

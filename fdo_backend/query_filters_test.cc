#include "fdo_backend/query_filters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace fdo::internal {
namespace {

constexpr double kBox[] = {1.5, -2.0, 30.25, 40.0};

// The condition's geometry, byte by byte.
std::vector<FdoByte> GeometryOf(FdoSpatialCondition& condition) {
  FdoPtr<FdoExpression> const expression = condition.GetGeometry();
  auto* const value = dynamic_cast<FdoGeometryValue*>(expression.p);
  if (value == nullptr) return {};
  FdoPtr<FdoByteArray> const bytes = value->GetGeometry();
  return std::vector<FdoByte>(bytes->GetData(), bytes->GetData() + bytes->GetCount());
}

TEST(BoxFilter, IsAPolygonOf96BytesThatEnvelopesMeet) {
  FdoPtr<FdoFilter> const filter = BoxFilter(L"shape", kBox, nullptr);
  auto* const condition = dynamic_cast<FdoSpatialCondition*>(filter.p);
  ASSERT_NE(condition, nullptr);
  EXPECT_EQ(FdoPtr<FdoIdentifier>(condition->GetPropertyName())->GetText(), std::wstring(L"shape"));
  EXPECT_EQ(condition->GetOperation(), FdoSpatialOperations_EnvelopeIntersects);
  EXPECT_EQ(static_cast<int>(condition->GetOperation()), 10);

  std::int32_t const words[] = {3, 0, 1, 5};
  double const ordinates[] = {1.5, -2.0, 30.25, -2.0, 30.25, 40.0, 1.5, 40.0, 1.5, -2.0};
  std::vector<FdoByte> expected(sizeof(words) + sizeof(ordinates));
  std::memcpy(expected.data(), words, sizeof(words));
  std::memcpy(expected.data() + sizeof(words), ordinates, sizeof(ordinates));
  ASSERT_EQ(expected.size(), 96u);
  EXPECT_EQ(GeometryOf(*condition), expected);
}

TEST(BoxFilter, WithAFilterBothMustHold) {
  FdoPtr<FdoFilter> const other = FdoFilter::Parse(L"n < 20");
  FdoPtr<FdoFilter> const filter = BoxFilter(L"shape", kBox, other);
  auto* const both = dynamic_cast<FdoBinaryLogicalOperator*>(filter.p);
  ASSERT_NE(both, nullptr);
  EXPECT_EQ(both->GetOperation(), FdoBinaryLogicalOperations_And);
  EXPECT_NE(dynamic_cast<FdoSpatialCondition*>(FdoPtr<FdoFilter>(both->GetLeftOperand()).p), nullptr);
  EXPECT_EQ(FdoPtr<FdoFilter>(both->GetRightOperand()).p, other.p);
}

// The bound of one side of a range.
void ExpectBound(FdoFilter* side, FdoComparisonOperations operation, __int64 bound) {
  auto* const comparison = dynamic_cast<FdoComparisonCondition*>(side);
  ASSERT_NE(comparison, nullptr);
  EXPECT_EQ(comparison->GetOperation(), operation);
  FdoPtr<FdoExpression> const left = comparison->GetLeftExpression();
  FdoPtr<FdoExpression> const right = comparison->GetRightExpression();
  EXPECT_EQ(left->ToString(), std::wstring(L"id"));
  auto* const literal = dynamic_cast<FdoInt64Value*>(right.p);
  ASSERT_NE(literal, nullptr);
  EXPECT_EQ(literal->GetInt64(), bound);
}

TEST(RangeFilter, IsHalfOpenWithBoundsOf64Bits) {
  __int64 const bounds[][2] = {{10, 20}, {5, 5}, {0, 0}, {-3000000000, 3000000000}};
  for (auto const& bound : bounds) {
    FdoPtr<FdoFilter> const filter = RangeFilter(L"id", bound[0], bound[1]);
    auto* const both = dynamic_cast<FdoBinaryLogicalOperator*>(filter.p);
    ASSERT_NE(both, nullptr);
    EXPECT_EQ(both->GetOperation(), FdoBinaryLogicalOperations_And);
    ExpectBound(FdoPtr<FdoFilter>(both->GetLeftOperand()), FdoComparisonOperations_GreaterThanOrEqualTo,
                bound[0]);
    ExpectBound(FdoPtr<FdoFilter>(both->GetRightOperand()), FdoComparisonOperations_LessThan, bound[1]);
  }
}

struct IdCase {
  ColumnDef::DataType column;
  __int64 id;
  FdoDataType literal;
};

// An id that its column cannot hold is compared as it is: cut to 16 bits, 65543 would name record 7.
constexpr IdCase kIds[] = {
    {ColumnDef::kInt16, 7, FdoDataType_Int16},
    {ColumnDef::kInt16, -32768, FdoDataType_Int16},
    {ColumnDef::kInt16, 65543, FdoDataType_Int64},
    {ColumnDef::kInt32, 7, FdoDataType_Int32},
    {ColumnDef::kInt32, std::numeric_limits<std::int32_t>::max(), FdoDataType_Int32},
    {ColumnDef::kInt32, 4294967303, FdoDataType_Int64},
    {ColumnDef::kInt64, 7, FdoDataType_Int64},
    {ColumnDef::kInt64, std::numeric_limits<__int64>::min(), FdoDataType_Int64},
};

TEST(IdLiteral, HasTheTypeOfTheColumnThatHoldsIt) {
  for (IdCase const& test : kIds) {
    FdoPtr<FdoDataValue> const literal = IdLiteral(test.column, test.id);
    ASSERT_NE(literal, nullptr);
    EXPECT_EQ(literal->GetDataType(), test.literal) << test.column << ", " << test.id;
    EXPECT_EQ(literal->ToString(), std::to_wstring(test.id));
  }
}

TEST(IdLiteral, OnlyThreeTypesOfColumnHaveOne) {
  for (int type = ColumnDef::kUnset; type <= ColumnDef::kClob; ++type) {
    bool const supported = type >= ColumnDef::kInt16 && type <= ColumnDef::kInt64;
    EXPECT_EQ(IdLiteral(static_cast<ColumnDef::DataType>(type), 7) != nullptr, supported) << type;
  }
}

}  // namespace
}  // namespace fdo::internal

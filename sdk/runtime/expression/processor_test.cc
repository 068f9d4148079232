// A node calls exactly one operation of a processor, that of its kind, with itself.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Fdo.h"
#include "sdk/runtime/slot_order.h"

namespace {

struct Call {
  std::string operation;
  void* node;
};

#define FDO_SDK_RECORD(Kind) \
  void Process##Kind(Fdo##Kind& node) override { calls.push_back({#Kind, static_cast<Base*>(&node)}); }

class Recorder final : public FdoIExpressionProcessor, public FdoIFilterProcessor {
 public:
  std::vector<Call> calls;

  using Base = FdoExpression;
  FDO_SDK_RECORD(BinaryExpression)
  FDO_SDK_RECORD(UnaryExpression)
  FDO_SDK_RECORD(Function)
  FDO_SDK_RECORD(Identifier)
  FDO_SDK_RECORD(ComputedIdentifier)
  FDO_SDK_RECORD(Parameter)
  FDO_SDK_RECORD(BooleanValue)
  FDO_SDK_RECORD(ByteValue)
  FDO_SDK_RECORD(DateTimeValue)
  FDO_SDK_RECORD(DecimalValue)
  FDO_SDK_RECORD(DoubleValue)
  FDO_SDK_RECORD(Int16Value)
  FDO_SDK_RECORD(Int32Value)
  FDO_SDK_RECORD(Int64Value)
  FDO_SDK_RECORD(SingleValue)
  FDO_SDK_RECORD(StringValue)
  FDO_SDK_RECORD(BLOBValue)
  FDO_SDK_RECORD(CLOBValue)
  FDO_SDK_RECORD(GeometryValue)
  FDO_SDK_RECORD(SubSelectExpression)

  void ProcessBinaryLogicalOperator(FdoBinaryLogicalOperator& node) override {
    Filter("BinaryLogicalOperator", &node);
  }
  void ProcessUnaryLogicalOperator(FdoUnaryLogicalOperator& node) override {
    Filter("UnaryLogicalOperator", &node);
  }
  void ProcessComparisonCondition(FdoComparisonCondition& node) override {
    Filter("ComparisonCondition", &node);
  }
  void ProcessInCondition(FdoInCondition& node) override { Filter("InCondition", &node); }
  void ProcessNullCondition(FdoNullCondition& node) override { Filter("NullCondition", &node); }
  void ProcessSpatialCondition(FdoSpatialCondition& node) override { Filter("SpatialCondition", &node); }
  void ProcessDistanceCondition(FdoDistanceCondition& node) override { Filter("DistanceCondition", &node); }

 protected:
  void Dispose() override {}

 private:
  void Filter(char const* operation, FdoFilter* node) { calls.push_back({operation, node}); }
};

template <class Node>
void ExpectOneCall(FdoPtr<Node> node, char const* operation) {
  Recorder recorder;
  node->Process(&recorder);
  ASSERT_EQ(recorder.calls.size(), 1u) << operation;
  EXPECT_EQ(recorder.calls[0].operation, operation);
  EXPECT_EQ(recorder.calls[0].node, node.p) << operation;
  EXPECT_EQ(node.p->GetRefCount(), 1) << operation;
}

#define FDO_SDK_EXPECT_CALL(Base, Kind) ExpectOneCall(FdoPtr<Base>(Fdo##Kind::Create()), #Kind)

TEST(Processors, EachExpressionCallsItsOwnOperationOnce) {
  FDO_SDK_EXPECT_CALL(FdoExpression, BinaryExpression);
  FDO_SDK_EXPECT_CALL(FdoExpression, UnaryExpression);
  FDO_SDK_EXPECT_CALL(FdoExpression, Function);
  FDO_SDK_EXPECT_CALL(FdoExpression, Identifier);
  FDO_SDK_EXPECT_CALL(FdoExpression, ComputedIdentifier);
  FDO_SDK_EXPECT_CALL(FdoExpression, Parameter);
  FDO_SDK_EXPECT_CALL(FdoExpression, BooleanValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, ByteValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, DateTimeValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, DecimalValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, DoubleValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, Int16Value);
  FDO_SDK_EXPECT_CALL(FdoExpression, Int32Value);
  FDO_SDK_EXPECT_CALL(FdoExpression, Int64Value);
  FDO_SDK_EXPECT_CALL(FdoExpression, SingleValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, StringValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, BLOBValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, CLOBValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, GeometryValue);
  FDO_SDK_EXPECT_CALL(FdoExpression, SubSelectExpression);
}

TEST(Processors, EachFilterCallsItsOwnOperationOnce) {
  FDO_SDK_EXPECT_CALL(FdoFilter, BinaryLogicalOperator);
  FDO_SDK_EXPECT_CALL(FdoFilter, UnaryLogicalOperator);
  FDO_SDK_EXPECT_CALL(FdoFilter, ComparisonCondition);
  FDO_SDK_EXPECT_CALL(FdoFilter, InCondition);
  FDO_SDK_EXPECT_CALL(FdoFilter, NullCondition);
  FDO_SDK_EXPECT_CALL(FdoFilter, SpatialCondition);
  FDO_SDK_EXPECT_CALL(FdoFilter, DistanceCondition);
}

// The base is virtual here, so the slots of a processor begin with its own operations.
TEST(Processors, SlotsAreInThePublishedOrder) {
#define FDO_SDK_OPERATION(Processor, Kind) FDO_SDK_SLOT(Processor, Process##Kind, void(Fdo##Kind&))
#define FDO_SDK_EXPRESSION(Kind) FDO_SDK_OPERATION(FdoIExpressionProcessor, Kind)
#define FDO_SDK_FILTER(Kind) FDO_SDK_OPERATION(FdoIFilterProcessor, Kind)
  EXPECT_EQ(fdo_sdk::ExpectConsecutive(
                0, {FDO_SDK_EXPRESSION(BinaryExpression),   FDO_SDK_EXPRESSION(UnaryExpression),
                    FDO_SDK_EXPRESSION(Function),           FDO_SDK_EXPRESSION(Identifier),
                    FDO_SDK_EXPRESSION(ComputedIdentifier), FDO_SDK_EXPRESSION(Parameter),
                    FDO_SDK_EXPRESSION(BooleanValue),       FDO_SDK_EXPRESSION(ByteValue),
                    FDO_SDK_EXPRESSION(DateTimeValue),      FDO_SDK_EXPRESSION(DecimalValue),
                    FDO_SDK_EXPRESSION(DoubleValue),        FDO_SDK_EXPRESSION(Int16Value),
                    FDO_SDK_EXPRESSION(Int32Value),         FDO_SDK_EXPRESSION(Int64Value),
                    FDO_SDK_EXPRESSION(SingleValue),        FDO_SDK_EXPRESSION(StringValue),
                    FDO_SDK_EXPRESSION(BLOBValue),          FDO_SDK_EXPRESSION(CLOBValue),
                    FDO_SDK_EXPRESSION(GeometryValue),      FDO_SDK_EXPRESSION(SubSelectExpression)}),
            20);
  EXPECT_EQ(
      fdo_sdk::ExpectConsecutive(
          0, {FDO_SDK_FILTER(BinaryLogicalOperator), FDO_SDK_FILTER(UnaryLogicalOperator),
              FDO_SDK_FILTER(ComparisonCondition), FDO_SDK_FILTER(InCondition), FDO_SDK_FILTER(NullCondition),
              FDO_SDK_FILTER(SpatialCondition), FDO_SDK_FILTER(DistanceCondition)}),
      7);
}

}  // namespace

#include "sdk/providers/sqlite/function_definitions.h"

#include <gtest/gtest.h>

#include <string>

#include "sdk/providers/sqlite/function_table.h"
#include "sdk/runtime/core/utf8.h"

namespace fdo_sqlite {
namespace {

// The well-known functions are for capabilities alone.
class Capabilities : public FdoIExpressionCapabilities {
 public:
  using FdoIExpressionCapabilities::GetWellKnownFunctions;
};

FdoPtr<FdoFunctionDefinitionCollection> Made() {
  FdoPtr<FdoFunctionDefinitionCollection> const wellKnown = Capabilities::GetWellKnownFunctions();
  return MakeFunctionDefinitions(*wellKnown);
}

std::string NamesOf(FdoFunctionDefinitionCollection& functions) {
  std::string names;
  for (FdoInt32 i = 0; i < functions.GetCount(); ++i) {
    FdoPtr<FdoFunctionDefinition> const function = functions.GetItem(i);
    names += fdo_sdk::Utf8FromWide(function->GetName()) + " ";
  }
  return names;
}

TEST(FunctionDefinitions, AreThoseThatTheProviderHas) {
  FdoPtr<FdoFunctionDefinitionCollection> const functions = Made();
  std::string const names = NamesOf(*functions);
  for (FunctionRow const& row : Functions()) {
    EXPECT_NE(names.find(fdo_sdk::Utf8FromWide(row.name) + " "), std::string::npos)
        << fdo_sdk::Utf8FromWide(row.name);
  }
  for (char const* absent : {"Soundex", "AddMonths", "Area2D"}) {
    EXPECT_EQ(names.find(absent), std::string::npos) << absent;
  }
}

TEST(FunctionDefinitions, GiveTheTypesThatCallsHave) {
  struct Case {
    FdoString* name;
    FdoDataType result;  // of the first signature
    FdoInt32 signatures;
    bool isAggregate;
  };
  Case const cases[] = {
      {L"Abs", FdoDataType_Double, 7, false},      {L"Mod", FdoDataType_Int64, 7, false},
      {L"ToDate", FdoDataType_DateTime, 1, false},  // not the one with a form of its own
      {L"Trim", FdoDataType_String, 1, false},     {L"Count", FdoDataType_Int64, 14, true},
      {L"Sum", FdoDataType_Double, 7, true},       {L"Max", FdoDataType_Byte, 9, true},
      {L"If", FdoDataType_String, 1, false},
  };
  FdoPtr<FdoFunctionDefinitionCollection> const functions = Made();
  for (Case const& c : cases) {
    SCOPED_TRACE(fdo_sdk::Utf8FromWide(c.name));
    FdoPtr<FdoFunctionDefinition> const function = functions->FindItem(c.name);
    ASSERT_NE(function, nullptr);
    FdoPtr<FdoReadOnlySignatureDefinitionCollection> const signatures = function->GetSignatures();
    EXPECT_EQ(function->GetReturnType(), c.result);
    EXPECT_EQ(signatures->GetCount(), c.signatures);
    EXPECT_EQ(function->IsAggregate(), c.isAggregate);
  }
  FdoPtr<FdoFunctionDefinition> const extents = functions->FindItem(L"SpatialExtents");
  EXPECT_EQ(extents->GetReturnPropertyType(), FdoPropertyType_GeometricProperty);
}

}  // namespace
}  // namespace fdo_sqlite

#include <cstring>
#include <string>

#include "sdk/runtime/thrown.h"
#include "testing/memory_provider/memory_connection.h"

namespace memory_provider {
namespace {

class MemoryFilter : public MemoryConnection {};

TEST_F(MemoryFilter, SelectsWhatHolds) {
  struct Case {
    FdoString* filter;
    char const* ids;
  };
  Case const cases[] = {
      {nullptr, "1,2,3"},
      {L"1=1", "1,2,3"},
      {L"1=2", ""},
      {L"Id = 2", "2"},
      {L"Id <> 2", "1,3"},
      {L"Id >= 2 AND Id < 3", "2"},
      {L"Id > 1 AND Id <= 3", "2,3"},
      {L"Id = 1 OR Name = 'Side'", "1,3"},
      {L"NOT Id = 1", "2,3"},
      {L"Lanes = 4", "1"},
      {L"Lanes = 4.0", "1"},
      // A null neither equals nor differs.
      {L"Lanes <> 4", "3"},
      {L"NOT Lanes = 4", "3"},
      {L"NOT (Lanes = 4 AND Id = 2)", "1,3"},
      {L"Lanes = 4 OR Id = 2", "1,2"},
      {L"Lanes NULL", "2"},
      {L"NOT Lanes NULL", "1,3"},
      {L"Shape NULL", "3"},
      {L"Id IN (3, 1, 9)", "1,3"},
      {L"Lanes IN (4)", "1"},
      {L"Name LIKE 'H%'", "1"},
      {L"Name LIKE '_o_'", "2"},
      {L"Name LIKE '%[a-d]%'", "3"},
      {L"Name LIKE '[^HL]%'", "3"},
      {L"Name LIKE '%i%e'", "3"},
      {L"Name LIKE 'h%'", ""},
      {L"Name > 'Lo'", "2,3"},
      {L"Id + 1 = 3", "2"},
      {L"Lanes * 2 - 1 > Id + 5", "1"},
      {L"-Id < -2", "3"},
      {L"Id / 2 = 1", "2,3"},
      {L"Id / 0 = 1 OR Id = 2", "2"},
      {L"Id IN (1, NULL)", "1"},
      {L"NOT Id IN (1, NULL)", ""},
      {L"Id = '2'", "2"},
      {L"Upper(Name) = 'SIDE'", "3"},
      {L"Shape CONTAINS GeomFromText('POINT (0 0)')", "1"},
      {L"Shape WITHINDISTANCE GeomFromText('POINT (0 3)') 3", "1"},
      {L"Shape BEYOND GeomFromText('POINT (0 3)') 3", "2"},
  };
  for (Case const& c : cases) EXPECT_EQ(Ids(c.filter), c.ids) << FdoStringP(c.filter).operator char const*();
}

TEST_F(MemoryFilter, EnvelopesIntersectWhereTheyShareAPoint) {
  struct Case {
    double box[4];
    char const* ids;
  };
  Case const cases[] = {
      {{-1, -1, 20, 20}, "1,2"}, {{0, 0, 0, 0}, "1"},    {{10, 5, 11, 6}, "2"},
      {{1, 1, 9, 9}, ""},        {{-5, -5, -1, -1}, ""},
  };
  for (Case const& c : cases) {
    FdoInt32 const head[] = {3, 0, 1, 5};
    double const points[] = {c.box[0], c.box[1], c.box[2], c.box[1], c.box[2],
                             c.box[3], c.box[0], c.box[3], c.box[0], c.box[1]};
    FdoByte bytes[sizeof head + sizeof points];
    std::memcpy(bytes, head, sizeof head);
    std::memcpy(bytes + sizeof head, points, sizeof points);
    FdoPtr<FdoByteArray> fgf = FdoByteArray::Create(bytes, sizeof bytes);
    FdoPtr<FdoGeometryValue> polygon = FdoGeometryValue::Create(fgf);
    FdoPtr<FdoSpatialCondition> condition =
        FdoSpatialCondition::Create(L"Shape", FdoSpatialOperations_EnvelopeIntersects, polygon);
    FdoPtr<FdoISelect> select = Make<FdoISelect>(FdoCommandType_Select);
    select->SetFeatureClassName(L"Street");
    select->SetFilter(condition);
    FdoPtr<FdoIFeatureReader> reader = select->Execute();
    EXPECT_EQ(IdsOf(reader), c.ids) << c.box[0];
  }
}

TEST_F(MemoryFilter, ParametersTakeTheirValues) {
  FdoPtr<FdoISelect> select = Make<FdoISelect>(FdoCommandType_Select);
  select->SetFeatureClassName(L"Street");
  select->SetFilter(L"Id = :wanted");
  fdo_sdk::MessageThrownBy<FdoCommandException>([&] { select->Execute(); });
  FdoPtr<FdoParameterValue> wanted = FdoParameterValue::Create(L"wanted");
  wanted->SetValue(L"3");
  FdoPtr<FdoParameterValueCollection>(select->GetParameterValues())->Add(wanted);
  FdoPtr<FdoIFeatureReader> reader = select->Execute();
  EXPECT_EQ(IdsOf(reader), "3");
}

TEST_F(MemoryFilter, WhatCannotBeEvaluatedIsRefused) {
  for (FdoString* filter :
       {L"Width = 1", L"Soundex(Name) = 'H200'", L"Id IN (SELECT Id FROM Street)", L"Name - Name = 'x'"}) {
    fdo_sdk::MessageThrownBy<FdoCommandException>([&] { Ids(filter); });
  }
}

}  // namespace
}  // namespace memory_provider

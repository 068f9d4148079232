#include "sdk/providers/sqlite/filter_sql.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "port/address_sanitizer.h"
#include "port/small_stack.h"
#include "sdk/providers/sqlite/sample_class.h"
#include "sdk/providers/sqlite/spatial_operand.h"
#include "sdk/providers/sqlite/sql_functions.h"
#include "sdk/runtime/core/utf8.h"
#include "sdk/runtime/thrown.h"

namespace fdo_sqlite {
namespace {

std::string Shown(SqlParameter const& parameter) {
  struct Shower {
    std::string operator()(std::monostate) const { return "null"; }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(double value) const {
      FdoPtr<FdoDoubleValue> number = FdoDoubleValue::Create(value);
      return fdo_sdk::Utf8FromWide(number->ToString());
    }
    std::string operator()(std::string const& value) const { return "'" + value + "'"; }
    std::string operator()(SqlBytes const& value) const { return std::to_string(value.size()) + " bytes"; }
    std::string operator()(std::shared_ptr<SpatialOperand const> const&) const { return "geometry"; }
  };
  return "{" + std::visit(Shower{}, parameter) + "}";
}

// The text with each value in braces in the place of its question mark.
std::string Shown(SqlFragment const& sql) {
  std::string shown;
  std::size_t next = 0;
  for (char const unit : sql.Text()) {
    if (unit == '?') {
      shown += Shown(sql.Parameters()[next++]);
    } else {
      shown += unit;
    }
  }
  EXPECT_EQ(next, sql.Parameters().size());
  return shown;
}

class FilterSqlTest : public testing::Test {
 protected:
  FilterSqlTest() {
    EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK);
    EXPECT_EQ(RegisterSqlFunctions(database_), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database_, SampleTableSql().c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
  }
  ~FilterSqlTest() override { sqlite3_close(database_); }

  FilterSql Translated(FdoString* text) {
    FdoPtr<FdoFilter> const filter = FdoFilter::Parse(text);
    return TranslateFilter(filter, scope_);
  }

  // SQLite must take it, whatever it is.
  void ExpectPrepares(SqlFragment const& where) {
    std::string const sql = "SELECT * FROM Parts WHERE " + where.Text();
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database_) << "\n"
        << sql.substr(0, 1000);
    if (statement != nullptr) {
      EXPECT_EQ(BindParameters(statement, where.Parameters()),
                static_cast<int>(where.Parameters().size()) + 1);
    }
    sqlite3_finalize(statement);
  }

  std::string Plan(SqlFragment const& where) {
    std::string const sql = "EXPLAIN QUERY PLAN SELECT * FROM Parts WHERE " + where.Text();
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database_, sql.c_str(), -1, &statement, nullptr), SQLITE_OK);
    BindParameters(statement, where.Parameters());
    std::string plan;
    while (sqlite3_step(statement) == SQLITE_ROW) {
      plan += reinterpret_cast<char const*>(sqlite3_column_text(statement, 3));
    }
    sqlite3_finalize(statement);
    return plan;
  }

  std::wstring Refusal(FdoString* text) {
    FdoPtr<FdoFilter> const filter = FdoFilter::Parse(text);
    return fdo_sdk::MessageThrownBy<FdoCommandException>([&] { TranslateFilter(filter, scope_); });
  }

  sqlite3* database_ = nullptr;
  StoreClass class_ = SampleClass();
  SqlScope scope_{class_};
};

TEST_F(FilterSqlTest, BecomesTheseConditions) {
  struct Case {
    FdoString* filter;
    char const* sql;
  };
  Case const cases[] = {
      {L"1 = 1", "{1} = {1}"},
      {L"Whole = 5", "\"Whole\" = {5}"},
      {L"Whole <> 5.5", "\"Whole\" <> {5.5}"},
      {L"5 < Big", "{5} < \"Big\""},
      {L"Real >= -1e3", "\"Real\" >= {-1000.0}"},
      {L"Price <= 10000000000", "\"Price\" <= {10000000000}"},
      {L"Parts.Whole > 1", "\"Whole\" > {1}"},
      {L"Whole = NULL", "\"Whole\" = {null}"},
      // Booleans: whatever is not 0 is true.
      {L"Flag = TRUE", "(\"Flag\" <> 0) = {1}"},
      {L"Flag <> FALSE", "(\"Flag\" <> 0) <> {0}"},
      // Texts compare by code points, however the column is declared.
      {L"Name = 'O''Hara'", "\"Name\" = {'O'Hara'} COLLATE BINARY"},
      {L"Name + 's' < 'x'", "(\"Name\" || {'s'}) < {'x'}"},
      {L"Name IN ('a', 'b')", "\"Name\" COLLATE BINARY IN ({'a'}, {'b'})"},
      // A text and a number compare as numbers.
      {L"Whole = '5'", "\"Whole\" = {5}"},
      {L"Whole = ' 5.50 '", "\"Whole\" = {5.5}"},
      {L"Name = 5", "fdo_number(\"Name\") = {5}"},
      {L"Name IN (DATE '2024-03-01', NULL)", "fdo_date_key(\"Name\") IN ({'2024-03-01'}, {null})"},
      {L"Whole IN (5, 5.5, TRUE)", "\"Whole\" IN ({5}, {5.5}, {1})"},
      {L"Name IN (5, 6)", "fdo_number(\"Name\") IN ({5}, {6})"},
      {L"Name IN (NULL, 'a', 5, 'b', TRUE)",
       "\"Name\" COLLATE BINARY IN ({null}, {'a'}, {'b'}) OR fdo_number(\"Name\") IN ({5}, {1})"},
      {L"NOT Name IN ('a', 5)", "NOT (\"Name\" COLLATE BINARY IN ({'a'}) OR fdo_number(\"Name\") IN ({5}))"},
      // Dates compare by one text form, whatever forms the file has.
      {L"Built >= DATE '2024-03-01'", "fdo_date_key(\"Built\") >= {'2024-03-01'}"},
      {L"Built = TIMESTAMP '2024-03-01 14:30:05.5'", "fdo_date_key(\"Built\") = {'2024-03-01T14:30:05.500'}"},
      {L"Built < '2024-03-01 14:30'", "fdo_date_key(\"Built\") < {'2024-03-01T14:30:00'}"},
      {L"Name > DATE '2024-03-01'", "fdo_date_key(\"Name\") > {'2024-03-01'}"},
      {L"Built < DATE '12024-03-01'", "fdo_date_key(\"Built\") < {':12024-03-01'}"},
      {L"Built IN (DATE '2024-03-01', TIME '10:00:00')",
       "fdo_date_key(\"Built\") IN ({'2024-03-01'}, {' 10:00:00'})"},
      {L"Data = BLOB '00FF'", "\"Data\" = {2 bytes}"},
      // Arithmetic; a column of decimals may hold integers.
      {L"Whole + 1 = Big * 2 - Tiny", "\"Whole\" + {1} = \"Big\" * {2} - \"Tiny\""},
      {L"(Whole + 1) * 2 > 4", "(\"Whole\" + {1}) * {2} > {4}"},
      {L"Whole - (Big - 1) > 4", "\"Whole\" - (\"Big\" - {1}) > {4}"},
      {L"Price / 2 = 1", "CAST(\"Price\" AS REAL) / {2} = {1}"},
      {L"-Real < - -Whole", "-(\"Real\") < -(-(\"Whole\"))"},
      // LIKE is GLOB, which tells upper from lower case and can use an index.
      {L"Name LIKE 'A%_[b-d][^x]*?'", "\"Name\" GLOB {'A*?[b-d][^x][*][?]'}"},
      {L"Name LIKE '[%][_][[]'", "\"Name\" GLOB {'[%][_][[]'}"},
      {L"Name LIKE 'a[b'", "\"Name\" GLOB {'a[[]b'}"},
      {L"'x' LIKE Name", "{'x'} GLOB fdo_glob(\"Name\")"},
      {L"Built LIKE '2024-%'", "fdo_date(\"Built\") GLOB {'2024-*'}"},
      // Null.
      {L"Whole NULL", "\"Whole\" IS NULL"},
      {L"NOT Shape NULL", "NOT (fdo_has_geometry(\"Shape\", 0) = 0)"},
      // Logic.
      {L"Id = 1 AND Id = 2 AND Id = 3", "\"Id\" = {1} AND \"Id\" = {2} AND \"Id\" = {3}"},
      {L"Id = 1 OR Id = 2 AND NOT Id = 3", "\"Id\" = {1} OR \"Id\" = {2} AND NOT (\"Id\" = {3})"},
      {L"(Id = 1 OR Id = 2) AND Id = 3", "(\"Id\" = {1} OR \"Id\" = {2}) AND \"Id\" = {3}"},
      {L"NOT NOT NOT Id = 1", "NOT (\"Id\" = {1})"},
      {L"NOT NOT Id = 1", "\"Id\" = {1}"},
      {L"NOT (Id = 1 OR Id = 2)", "NOT (\"Id\" = {1} OR \"Id\" = {2})"},
      // Functions.
      {L"ROUND(Real, 2) = 1.25", "fdo_round(\"Real\", {2}) = {1.25}"},
      {L"concat(Name, Whole, Flag) = 'a'",
       "fdo_concat(\"Name\", \"Whole\", CASE (\"Flag\" <> 0) WHEN 1 THEN 'true' WHEN 0 THEN 'false' END) = "
       "{'a'}"},
      {L"If(Flag, Whole, 2.5) > 1", "CASE WHEN (\"Flag\" <> 0) <> 0 THEN \"Whole\" ELSE {2.5} END > {1}"},
      {L"Lookup(Whole, 'none', 1, 'one', 2, 'two') = 'one'",
       "CASE \"Whole\" WHEN {1} THEN {'one'} WHEN {2} THEN {'two'} ELSE {'none'} END = {'one'}"},
      {L"CurrentDate() > Built", "fdo_date_key(date('now')) > fdo_date_key(\"Built\")"},
      {L"X(Shape) > 1", "fdo_x(\"Shape\", 0) > {1}"},
      {L"Y(Outline) > 1", "fdo_y(\"Outline\", 1) > {1}"},
      {L"x('POINT (1 2)') > 1", "fdo_x({'POINT (1 2)'}, 2) > {1}"},
      // Geometry.
      {L"Shape WITHIN GeomFromText('POINT (1 2)')", "fdo_within(\"Shape\", {geometry})"},
      {L"Shape WITHINDISTANCE GeomFromText('POINT (1 2)') 3", "fdo_withindistance(\"Shape\", {geometry})"},
      {L"NOT Outline BEYOND GeomFromText('POINT (1 2)') 3", "NOT fdo_beyond(\"Outline\", {geometry})"},
      {L"Shape INTERSECTS NULL", "NULL"},
  };
  for (Case const& c : cases) {
    SCOPED_TRACE(fdo_sdk::Utf8FromWide(c.filter));
    SqlFragment const where = Translated(c.filter).Where();
    EXPECT_EQ(Shown(where), c.sql);
    ExpectPrepares(where);
  }
}

TEST_F(FilterSqlTest, IsRefusedWithTheReason) {
  struct Case {
    FdoString* filter;
    FdoString* message;
  };
  Case const cases[] = {
      {L"Width = 1", L"The class \"Parts\" has no property \"Width\"."},
      {L"whole = 1", L"The class \"Parts\" has no property \"whole\"."},
      {L"Other.Whole = 1", L"The class \"Parts\" has no property \"Other.Whole\"."},
      {L"Width NULL", L"The class \"Parts\" has no property \"Width\"."},
      {L"Soundex(Name) = 'x'", L"There is no function \"Soundex\" in this provider."},
      {L"Mod(Whole) = 1", L"The function \"Mod\" does not take 1 argument."},
      {L"Sin(Name) = 1", L"The function \"Sin\" needs a number, not a text."},
      {L"Count() = 1", L"The function \"Count\" summarises rows and has no value for one."},
      {L"If(Real, 1, 2) = 1",
       L"The function \"If\" needs a Boolean, a whole number or a text as its condition."},
      {L"If(Flag, 1, 'x') = 1",
       L"The function \"If\" gives either a number or a text; its results must be of one kind."},
      {L"If(Flag, 1, TRUE) = 1",
       L"The function \"If\" gives either a number or a Boolean; its results must be of one kind."},
      {L"Whole = 'five'", L"A number is compared with the text \"five\", which is no number."},
      {L"Built = 'soon'", L"A date is compared with the text \"soon\", which is no date."},
      {L"Built = 5", L"What cannot be compared: a date with a number."},
      {L"Data = 'x'", L"What cannot be compared: a BLOB with a text."},
      {L"Shape = 5", L"A geometry has no order and no equality; spatial conditions compare geometries."},
      {L"Name + 1 = 'x'", L"The operator \"+\" after or before a text needs a text, not a number."},
      {L"Built - 1 > Built", L"The operator \"-\" needs a number, not a date."},
      {L"-Name = 1", L"A minus sign needs a number, not a text."},
      {L"Whole LIKE '5%'", L"LIKE needs a text, not a number."},
      {L"Name IN (:a)", L"The parameter \"a\" has no value."},
      {L"Id IN (SELECT Id FROM Other)", L"This provider has no sub-selects."},
      {L"Name INTERSECTS GeomFromText('POINT (1 2)')",
       L"A spatial condition needs a geometry, and the property \"Name\" is none."},
      {L"Shape INTERSECTS Outline",
       L"A spatial condition needs a geometry literal, or a parameter with one, for its second side."},
  };
  for (Case const& c : cases) {
    SCOPED_TRACE(fdo_sdk::Utf8FromWide(c.filter));
    EXPECT_EQ(Refusal(c.filter), c.message);
  }
}

TEST_F(FilterSqlTest, ParametersTakeTheirValues) {
  FdoPtr<FdoParameterValueCollection> values = FdoParameterValueCollection::Create();
  FdoPtr<FdoStringValue> text = FdoStringValue::Create(L"x");
  values->Add(FdoPtr<FdoParameterValue>(FdoParameterValue::Create(L"who", text)));
  scope_.parameters = values;
  EXPECT_EQ(Shown(Translated(L"Name = :who").Where()), "\"Name\" = {'x'} COLLATE BINARY");
  EXPECT_EQ(Refusal(L"Name = :whom"), L"The parameter \"whom\" has no value.");
}

TEST_F(FilterSqlTest, ColumnsMayBeQualified) {
  scope_.tablePrefix = "\"t\".";
  EXPECT_EQ(Shown(Translated(L"Whole = 1 AND Name NULL").Where()),
            "\"t\".\"Whole\" = {1} AND \"t\".\"Name\" IS NULL");
}

TEST_F(FilterSqlTest, TellsWhatAnIndexOnBoxesCanDo) {
  struct Case {
    FdoString* filter;
    char const* boxes;  // for each condition that has one: place, column, box, and ! when it decides
  };
  Case const cases[] = {
      {L"Whole = 1", ""},
      {L"Shape INTERSECTS GeomFromText('LINESTRING (1 2, 3 4)')", "0 Shape 1 2 3 4"},
      {L"Shape ENVELOPEINTERSECTS GeomFromText('LINESTRING (1 2, 3 4)')", "0 Shape 1 2 3 4!"},
      {L"Whole = 1 AND (Name NULL AND Outline WITHIN GeomFromText('POINT (1 2)'))", "2 Outline 1 2 1 2"},
      {L"Shape DISJOINT GeomFromText('POINT (1 2)')", ""},
      {L"NOT Shape INTERSECTS GeomFromText('POINT (1 2)')", ""},
      {L"Whole = 1 OR Shape INTERSECTS GeomFromText('POINT (1 2)')", ""},
      {L"Shape BEYOND GeomFromText('POINT (1 2)') 1", ""},
      // An empty geometry equals empty ones, which are in no box.
      {L"Shape EQUALS GeomFromText('LINESTRING EMPTY')", ""},
  };
  for (Case const& c : cases) {
    FilterSql const filter = Translated(c.filter);
    std::string boxes;
    for (std::size_t i = 0; i < filter.conditions.size(); ++i) {
      if (!filter.conditions[i].box) continue;
      BoxCondition const& condition = *filter.conditions[i].box;
      boxes += std::to_string(i) + " " + class_.columns[static_cast<std::size_t>(condition.column)].sqlName;
      for (double const edge :
           {condition.box.minX, condition.box.minY, condition.box.maxX, condition.box.maxY}) {
        boxes += " " + std::to_string(static_cast<int>(edge));
      }
      boxes += condition.decides ? "!" : "";
    }
    EXPECT_EQ(boxes, c.boxes) << fdo_sdk::Utf8FromWide(c.filter);
  }
  FilterSql const near = Translated(L"Shape WITHINDISTANCE GeomFromText('POINT (1 2)') 0.1");
  ASSERT_TRUE(near.conditions[0].box.has_value());
  EXPECT_LT(near.conditions[0].box->box.minX, 0.9);
  EXPECT_GT(near.conditions[0].box->box.maxY, 2.1);
}

TEST_F(FilterSqlTest, AConditionCanBeLeftOut) {
  FilterSql const filter =
      Translated(L"Whole = 1 AND Shape ENVELOPEINTERSECTS GeomFromText('POINT (1 2)') AND Big = 2");
  EXPECT_EQ(Shown(filter.Where(1)), "\"Whole\" = {1} AND \"Big\" = {2}");
  EXPECT_TRUE(Translated(L"Whole = 1").Where(0).IsEmpty());
  EXPECT_TRUE(TranslateFilter(nullptr, scope_).Where().IsEmpty());
}

TEST_F(FilterSqlTest, LongChainsBecomeLowTrees) {
  for (FdoBinaryLogicalOperations operation :
       {FdoBinaryLogicalOperations_And, FdoBinaryLogicalOperations_Or}) {
    FdoPtr<FdoFilter> chain = FdoFilter::Parse(L"Whole NULL");
    FdoPtr<FdoFilter> const link = FdoFilter::Parse(L"Big = 1");
    for (int i = 0; i < 4000; ++i) chain = FdoBinaryLogicalOperator::Create(chain, operation, link);
    ExpectPrepares(TranslateFilter(chain, scope_).Where());
    chain = FdoFilter::Parse(L"Whole NULL");
    for (int i = 0; i < 4000; ++i) chain = FdoBinaryLogicalOperator::Create(link, operation, chain);
    ExpectPrepares(TranslateFilter(chain, scope_).Where());
    for (int i = 0; i < 30000; ++i) chain = FdoBinaryLogicalOperator::Create(link, operation, chain);
    EXPECT_EQ(fdo_sdk::MessageThrownBy<FdoCommandException>([&] { TranslateFilter(chain, scope_); }),
              L"The filter or expression has more than 32766 values, which is the most that SQLite takes.");
  }
}

// Either SQLite takes it or it is refused before, at every depth and however it nests.
TEST_F(FilterSqlTest, DeepNestingWorksOrIsRefused) {
  struct Nest {
    wchar_t const* before;
    wchar_t const* core;
    wchar_t const* behind;
    int works;  // this deep at least
  };
  Nest const nests[] = {
      {L"NOT (Whole = 1 AND ", L"Big = 2", L")", 25},
      {L"(Whole = 1 OR Big = 2 AND ", L"Big = 2", L")", 25},
      {L"Name NULL OR (Big = 2 AND ", L"Big = 2", L")", 25},
      {L"NOT ", L"Big = 2", L"", 120},
      {L"(", L"Big = 2", L")", 120},
      {L"(", L"Whole", L" + 1) = Big", 1},
      {L"Whole - (", L"Whole", L")", 20},
      {L"(", L"Whole", L" + 1)", 100},
      {L"Abs(", L"Whole", L")", 20},
      {L"Concat(Name, ", L"Name", L")", 12},
      {L"-(", L"Whole", L")", 30},
      {L"If(Flag, 1, ", L"2", L")", 12},
      {L"Lookup(Whole, 1, 2, ", L"2", L")", 10},
  };
  for (Nest const& nest : nests) {
    int deepest = 0;
    for (int depth = 1; depth <= 126; ++depth) {
      std::wstring text;
      for (int i = 0; i < depth; ++i) text += nest.before;
      text += nest.core;
      for (int i = 0; i < depth; ++i) text += nest.behind;
      FdoPtr<FdoFilter> filter;
      try {
        filter = FdoFilter::Parse(text.c_str());
      } catch (FdoException* notAFilter) {
        notAFilter->Release();
        try {
          filter = FdoFilter::Parse((text + L" = 1").c_str());
        } catch (FdoException* neither) {
          neither->Release();
          continue;
        }
      }
      try {
        ExpectPrepares(TranslateFilter(filter, scope_).Where());
        deepest = depth;
      } catch (FdoException* refused) {
        refused->Release();
      }
    }
    EXPECT_GE(deepest, nest.works) << fdo_sdk::Utf8FromWide(nest.before);
  }
}

TEST_F(FilterSqlTest, TreesOfAnyDepthThatProgramsBuildAreRefused) {
  FdoPtr<FdoFilter> filter = FdoFilter::Parse(L"Whole = 1");
  FdoPtr<FdoFilter> const link = FdoFilter::Parse(L"Big = 1");
  for (int i = 0; i < 100000; ++i) {
    auto const operation = i % 2 == 0 ? FdoBinaryLogicalOperations_And : FdoBinaryLogicalOperations_Or;
    filter = FdoBinaryLogicalOperator::Create(filter, operation, link);
  }
  EXPECT_EQ(fdo_sdk::MessageThrownBy<FdoCommandException>([&] { TranslateFilter(filter, scope_); }),
            L"The filter is nested too deeply.");
}

// The address sanitizer keeps variables apart, which takes several times the room.
constexpr std::size_t kSmallStack = (fdo::port::kHasAddressSanitizer ? 2048 : 256) * 1024;

// What text can nest needs no large stack, SQLite's own needs included.
TEST_F(FilterSqlTest, TheDeepestTextFitsASmallStack) {
  std::wstring sum = L"Whole = Whole";
  for (int i = 0; i < 200; ++i) sum += L" + 1";
  std::wstring nots = L"Whole = 1";
  for (int i = 0; i < 60; ++i) nots = L"NOT (" + nots + L" OR Big = 2)";
  std::vector<FdoPtr<FdoFilter>> filters;
  filters.push_back(FdoPtr<FdoFilter>(FdoFilter::Parse(sum.c_str())));
  filters.push_back(FdoPtr<FdoFilter>(FdoFilter::Parse(nots.c_str())));
  for (FdoPtr<FdoFilter> const& filter : filters) {
    bool ran = false;
    std::function<void()> job = [&] {
      try {
        ExpectPrepares(TranslateFilter(filter, scope_).Where());
      } catch (FdoException* refused) {
        refused->Release();
      }
      ran = true;
    };
    fdo::port::RunOnStack(
        kSmallStack, [](void* context) { (*static_cast<std::function<void()>*>(context))(); }, &job);
    EXPECT_TRUE(ran);
  }
}

TEST_F(FilterSqlTest, LongListsOfWholeNumbersHaveNoLimit) {
  FdoPtr<FdoInCondition> const in = FdoInCondition::Create();
  FdoPtr<FdoIdentifier> const name = FdoIdentifier::Create(L"Id");
  in->SetPropertyName(name);
  FdoPtr<FdoValueExpressionCollection> const values = in->GetValues();
  SqlFragment where = TranslateFilter(in, scope_).Where();
  EXPECT_EQ(where.Text(), "0") << "a list without values selects nothing";
  for (int i = 0; i < 100000; ++i) values->Add(FdoPtr<FdoInt64Value>(FdoInt64Value::Create(-i)));
  where = TranslateFilter(in, scope_).Where();
  EXPECT_TRUE(where.Parameters().empty());
  EXPECT_EQ(where.Text().substr(0, 24), "\"Id\" IN (0, -1, -2, -3, ");
  ExpectPrepares(where);
}

// SQLite's own indexes serve plain comparisons.
TEST_F(FilterSqlTest, PlainComparisonsUseAnIndex) {
  ASSERT_EQ(sqlite3_exec(database_,
                         "CREATE INDEX byWhole ON Parts(\"Whole\"); CREATE INDEX byName ON Parts(\"Name\");"
                         "CREATE INDEX byPrice ON Parts(\"Price\")",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  struct Case {
    FdoString* filter;
    char const* plan;
  };
  Case const cases[] = {
      {L"Id = 5", "SEARCH Parts USING INTEGER PRIMARY KEY (rowid=?)"},
      {L"Id >= 5 AND Id < 9", "SEARCH Parts USING INTEGER PRIMARY KEY (rowid>? AND rowid<?)"},
      {L"Id IN (5, 6)", "SEARCH Parts USING INTEGER PRIMARY KEY (rowid=?)"},
      {L"Whole = 5", "SEARCH Parts USING INDEX byWhole (Whole=?)"},
      {L"Whole > 5.5", "SEARCH Parts USING INDEX byWhole (Whole>?)"},
      {L"Price < 5", "SEARCH Parts USING INDEX byPrice (Price<?)"},
      {L"Name = 'x' AND Real > 1", "SEARCH Parts USING INDEX byName (Name=?)"},
      {L"Name >= 'x'", "SEARCH Parts USING INDEX byName (Name>?)"},
      {L"Name IN ('x', 'y')", "SEARCH Parts USING INDEX byName (Name=?)"},
      {L"Name LIKE 'abc%'", "SEARCH Parts USING INDEX byName (Name>? AND Name<?)"},
      {L"Name LIKE '%abc'", "SCAN Parts"},
  };
  for (Case const& c : cases) {
    EXPECT_EQ(Plan(Translated(c.filter).Where()), c.plan) << fdo_sdk::Utf8FromWide(c.filter);
  }
}

}  // namespace
}  // namespace fdo_sqlite

// SQLite's provider and the evaluator of expressions select the same rows, over a family of random filters;
// QUILLON_AGREEMENT_FILTERS sets how many. Where they differ, and why, is asserted one by one.
#include <Fdo.h>
#include <fdo/database_fdo.h>
#include <fdo/expr_eval.h>
#include <fdo/text_conversion.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <random>
#include <set>
#include <string>

#include "testing/captured_diagnostics.h"
#include "testing/caught_message.h"
#include "testing/filter_family.h"
#include "testing/one_table_store.h"
#include "testing/scratch_directory.h"

namespace fdo {
namespace {

using Ids = std::set<long long>;

constexpr ExprOptions kAsInSql = ExprOptions::AsInSql();
constexpr ExprOptions kWithoutSqlValues{/*allConditions=*/true, /*nullIsUnknown=*/true};
constexpr int kRows = 120;

class FilterAgreement : public testing::Test {
 protected:
  static void SetUpTestSuite() { store_ = new Store(); }
  static void TearDownTestSuite() {
    delete store_;
    store_ = nullptr;
  }

  // A store, and its rows read into memory.
  struct Store {
    Store() {
      CapturedDiagnostics const ignored;  // that no registry names the provider
      MakeOneTableStore(database, scratch.File("agreement.sqlite"), L"rows", kFamilyColumns);
      Fill();
      database[0].Query();
      while (Row const* row = database[0].Next()) {
        for (int i = 0; i < row->Def()->ColumnCount(); ++i) EXPECT_TRUE((*row)[i].IsValid());
        rows.emplace_back(*row);
      }
      EXPECT_EQ(rows.size(), std::size_t{kRows});
    }

    void Fill() {
      std::mt19937 random(20240301);
      Table& table = database[0];
      table.BeginWrite();
      for (int number = 0; number < kRows; ++number) {
        Row row(table.Def());
        FillFamilyRow(row, random);
        EXPECT_TRUE(table.Insert(row, nullptr, /*storeMakesId=*/true));
      }
      table.CommitWrite();
    }

    ScratchDirectory scratch;
    DatabaseFdo database;
    std::deque<Row> rows;
  };

  static Ids BySqlite(FdoFilter* filter) {
    Ids found;
    Table& table = store_->database[0];
    table.Query(filter, nullptr, true);
    while (Row const* row = table.Next()) found.insert(row->ID());
    return found;
  }

  static Ids ByEvaluator(FdoFilter* filter, ExprOptions const& options) {
    Ids found;
    ExprEval eval(filter, store_->database[0].Def(), nullptr, options);
    EXPECT_TRUE(eval.IsComplete());
    for (Row const& row : store_->rows) {
      if (eval.Eval(&row, nullptr)) found.insert(row.ID());
    }
    return found;
  }

  static FdoPtr<FdoFilter> Parsed(wchar_t const* text) { return FdoPtr<FdoFilter>(FdoFilter::Parse(text)); }
  static Ids BySqlite(wchar_t const* text) { return BySqlite(Parsed(text).p); }
  static Ids ByEvaluator(wchar_t const* text, ExprOptions const& options = kAsInSql) {
    return ByEvaluator(Parsed(text).p, options);
  }

  static inline Store* store_ = nullptr;
};

TEST_F(FilterAgreement, EveryFilterOfTheFamily) {
  char const* const asked = std::getenv("QUILLON_AGREEMENT_FILTERS");
  std::uint64_t const count = asked == nullptr ? 5000 : std::strtoull(asked, nullptr, 10);
  std::uint64_t some = 0;
  int failures = 0;
  for (std::uint64_t seed = 0; seed < count && failures < 8; ++seed) {
    std::wstring const text = FilterFamily(seed).Filter(static_cast<int>(seed % 4));
    FdoPtr<FdoFilter> const filter = Parsed(text.c_str());
    Ids const bySqlite = BySqlite(filter.p);
    Ids const byEvaluator = ByEvaluator(filter.p, kAsInSql);
    EXPECT_EQ(bySqlite, byEvaluator) << "seed " << seed << ": " << ToUtf8(text.c_str());
    if (bySqlite != byEvaluator) ++failures;
    some += !byEvaluator.empty() && byEvaluator.size() < std::size_t{kRows} ? 1 : 0;
  }
  // A family that selects everything or nothing would show little.
  EXPECT_GT(some, count / 2);
}

// A part that decides does not spare the others, so that without options they can be refused.
TEST_F(FilterAgreement, NothingIsSparedWithoutOptions) {
  EXPECT_EQ(BySqlite(L"id < 0 AND t LIKE 'a%'"), Ids{});
  EXPECT_EQ(ByEvaluator(L"id < 0 AND t LIKE 'a%'"), Ids{});
  EXPECT_THROW(ByEvaluator(L"id < 0 AND t LIKE 'a%'", {}), std::exception);
}

// Null is less than everything and equal to null without options.
TEST_F(FilterAgreement, NullHasAnOrderWithoutOptions) {
  Ids const nulls = BySqlite(L"i NULL");
  ASSERT_GT(nulls.size(), 5u);
  EXPECT_EQ(BySqlite(L"i < -1000"), Ids{});
  EXPECT_EQ(ByEvaluator(L"i < -1000"), Ids{});
  EXPECT_EQ(ByEvaluator(L"i < -1000", {}), nulls);
  EXPECT_EQ(BySqlite(L"i = NULL"), Ids{});
  EXPECT_EQ(ByEvaluator(L"i = NULL"), Ids{});
  EXPECT_EQ(ByEvaluator(L"i = NULL", {}), nulls);
  EXPECT_EQ(BySqlite(L"NOT i >= -1000"), Ids{});
  EXPECT_EQ(ByEvaluator(L"NOT i >= -1000", {}), nulls);
}

// Without the option for it a number and a text compare as texts, with it and in the store as numbers.
TEST_F(FilterAgreement, NumbersOrderAsTextAgainstText) {
  Ids const asNumbers = BySqlite(L"i < '9'");
  EXPECT_EQ(asNumbers, BySqlite(L"i < 9"));
  EXPECT_EQ(ByEvaluator(L"i < '9'"), asNumbers);
  Ids expected = asNumbers;
  Ids const hundreds = BySqlite(L"i = 100");
  ASSERT_FALSE(hundreds.empty());
  expected.insert(hundreds.begin(), hundreds.end());
  EXPECT_EQ(ByEvaluator(L"i < '9'", kWithoutSqlValues), expected);
}

// For the evaluator no double is a condition that holds; the provider does not take one.
TEST_F(FilterAgreement, ADoubleIsNeverTrue) {
  ASSERT_GT(BySqlite(L"d <> 0").size(), 5u);
  EXPECT_EQ(ByEvaluator(L"If(d, 1, 2) = 1"), Ids{});
  EXPECT_EQ(ByEvaluator(L"If(d, 1, 2) = 2").size(), std::size_t{kRows});
  CapturedDiagnostics diagnostics;
  EXPECT_EQ(BySqlite(L"If(d, 1, 2) = 2"), Ids{});
  EXPECT_EQ(diagnostics.Lines().size(), 1u);
}

// Without the option for it integers beyond 64 bits go round, with it and in the store they become doubles.
TEST_F(FilterAgreement, IntegersGoRound) {
  EXPECT_EQ(BySqlite(L"9223372036854775807 + id > 0").size(), std::size_t{kRows});
  EXPECT_EQ(ByEvaluator(L"9223372036854775807 + id > 0").size(), std::size_t{kRows});
  EXPECT_EQ(ByEvaluator(L"9223372036854775807 + id > 0", kWithoutSqlValues), Ids{});
}

// Without the option for it a double divided by zero is infinite, with it and in the store null.
TEST_F(FilterAgreement, ADoubleDividedByZeroIsInfinite) {
  EXPECT_EQ(BySqlite(L"2.5 / (id - id) > 0"), Ids{});
  EXPECT_EQ(ByEvaluator(L"2.5 / (id - id) > 0"), Ids{});
  EXPECT_EQ(ByEvaluator(L"2.5 / (id - id) > 0", kWithoutSqlValues).size(), std::size_t{kRows});
  EXPECT_EQ(ByEvaluator(L"i / (id - id) > 0"), Ids{});
}

// Of whole numbers that do not fit the evaluator takes the low bits, or of doubles the least integer; in the
// store they are null.
TEST_F(FilterAgreement, WholeNumbersThatDoNotFit) {
  EXPECT_EQ(BySqlite(L"ToInt32(ToDouble(5000000000) + id) > 0"), Ids{});
  EXPECT_EQ(ByEvaluator(L"ToInt32(ToDouble(5000000000) + id) > 0").size(), std::size_t{kRows});
  for (wchar_t const* const text : {L"ToInt64(1e300) < id", L"Trunc(1e300) < id", L"Mod(1e300, 7) < id"}) {
    EXPECT_EQ(BySqlite(text), Ids{}) << ToUtf8(text);
    EXPECT_EQ(ByEvaluator(text).size(), std::size_t{kRows}) << ToUtf8(text);
  }
}

// Each value of a list is compared with as that value alone.
TEST_F(FilterAgreement, ListsOfSeveralKinds) {
  for (wchar_t const* const text : {L"t IN ('abc', 3)", L"t IN (3, NULL, 'abc', 100)", L"NOT t IN (3, 'abc')",
                                    L"NOT t IN ('abc', 3, NULL)", L"NOT (t IN ('a', 1) AND i IN (3, '1'))"}) {
    EXPECT_EQ(ByEvaluator(text), BySqlite(text)) << ToUtf8(text);
  }
  EXPECT_EQ(BySqlite(L"t IN ('abc', 3)"), BySqlite(L"t = 'abc' OR t = 3"));
  EXPECT_GT(BySqlite(L"t IN ('abc', 3)").size(), BySqlite(L"t = 3").size());
  EXPECT_FALSE(BySqlite(L"t = 'abc'").empty());
}

// The ordinates of what is no point are 0 for the evaluator, and null in the store.
TEST_F(FilterAgreement, OrdinatesOfWhatIsNoPoint) {
  Ids const points = BySqlite(L"X(shape) > -1000");
  ASSERT_GT(points.size(), 5u);
  Ids const others = [&] {
    Ids ids = BySqlite(L"NOT shape NULL");
    for (long long const id : points) ids.erase(id);
    return ids;
  }();
  ASSERT_GT(others.size(), 5u);
  EXPECT_EQ(ByEvaluator(L"X(shape) > 0"), BySqlite(L"X(shape) > 0"));
  Ids zero = BySqlite(L"X(shape) = 0");
  zero.insert(others.begin(), others.end());
  EXPECT_EQ(ByEvaluator(L"X(shape) = 0"), zero);
}

// The text of a flag is the evaluator's own; the store has words.
TEST_F(FilterAgreement, TextsOfFlags) {
  EXPECT_EQ(BySqlite(L"ToString(f) = 'true'"), BySqlite(L"f = TRUE"));
  EXPECT_EQ(ByEvaluator(L"ToString(f) = 'true'"), Ids{});
}

// The evaluator looks up a key as a text beside a text, the store as a number beside a number.
TEST_F(FilterAgreement, KeysOfLookupAreTexts) {
  ASSERT_FALSE(BySqlite(L"i = 3").empty());
  EXPECT_EQ(BySqlite(L"Lookup(i, 'no', '3.0', 'yes') = 'yes'"), BySqlite(L"i = 3"));
  EXPECT_EQ(ByEvaluator(L"Lookup(i, 'no', '3.0', 'yes') = 'yes'"), Ids{});
}

// The text of a moment has three decimals for the evaluator; in the store only where it has a fraction.
TEST_F(FilterAgreement, LikeSeesTheTextOfAMoment) {
  EXPECT_GT(BySqlite(L"w LIKE '2024%:05'").size(), 5u);
  EXPECT_EQ(ByEvaluator(L"w LIKE '2024%:05'"), Ids{});
  EXPECT_EQ(ByEvaluator(L"w LIKE '2024%:05.000'"), BySqlite(L"w LIKE '2024%:05'"));
  EXPECT_EQ(ByEvaluator(L"w LIKE '2024%'"), BySqlite(L"w LIKE '2024%'"));
  EXPECT_EQ(ByEvaluator(L"ToString(w) = '2024-03-01T14:30:05.000'"),
            BySqlite(L"ToString(w) = '2024-03-01T14:30:05'"));
  EXPECT_GT(BySqlite(L"ToString(w) = '2024-03-01T14:30:05'").size(), 5u);
}

// A time of day alone comes before all dates in the store; the evaluator compares its text.
TEST_F(FilterAgreement, TimesOfDayBesideDates) {
  EXPECT_EQ(BySqlite(L"w > TIME '23:00:00'"), BySqlite(L"NOT w NULL"));
  EXPECT_EQ(ByEvaluator(L"w > TIME '23:00:00'"), Ids{});
}

// Only the store reads a text column as dates; for the evaluator both are texts.
TEST_F(FilterAgreement, TextColumnsBesideDates) {
  EXPECT_EQ(BySqlite(L"w > t"), Ids{});
  EXPECT_GT(ByEvaluator(L"w > t").size(), 5u);
  EXPECT_EQ(BySqlite(L"w = '2024-03-01 14:30:05'"), ByEvaluator(L"w = '2024-03-01 14:30:05'"));
  EXPECT_GT(BySqlite(L"w = '2024-03-01 14:30:05'").size(), 5u);
}

// Nothing is in an empty list, null neither.
TEST_F(FilterAgreement, NotInAnEmptyList) {
  FdoPtr<FdoIdentifier> const column = FdoIdentifier::Create(L"i");
  FdoPtr<FdoValueExpressionCollection> const nothing = FdoValueExpressionCollection::Create();
  FdoPtr<FdoFilter> const in = FdoInCondition::Create(column, nothing);
  FdoPtr<FdoFilter> const notIn = FdoUnaryLogicalOperator::Create(in, FdoUnaryLogicalOperations_Not);
  EXPECT_EQ(BySqlite(in.p), Ids{});
  EXPECT_EQ(ByEvaluator(in.p, kAsInSql), Ids{});
  EXPECT_EQ(BySqlite(notIn.p).size(), std::size_t{kRows});
  EXPECT_EQ(ByEvaluator(notIn.p, kAsInSql).size(), std::size_t{kRows});
}

}  // namespace
}  // namespace fdo

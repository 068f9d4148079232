// ToString and Parse undo each other, over a family of random trees; QUILLON_TEXT_TREES sets how many.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <random>
#include <string>

#include "Fdo.h"
#include "port/live_allocations.h"
#include "sdk/runtime/text/tree_shape.h"

namespace fdo_sdk {
namespace {

constexpr wchar_t const* kNames[] = {
    L"a",       L"width", L"Address.City",  L"s:c.p",       L"two words", L"AND", L"date",
    L"\"a.b\"", L"a\"b",  L"straße",        L"s:\"x:y\".z", L"_",         L"9a",  L"select",
    L"where",   L"as",    L"\"\"\"q\"\"\"", L"'",           L"x-y",       L"blob"};
constexpr wchar_t const* kTexts[] = {L"",    L"x",      L"it's",      L"''",  L"\"",
                                     L"50%", L"[a-f]_", L"line\nend", L"𐍈 é", L"\\"};
constexpr wchar_t const* kGeometries[] = {
    L"POINT (1 2)",
    L"POINT XYZM (1 2 3 4)",
    L"LINESTRING XYZ (0 0 0, 1 1 1.5)",
    L"POLYGON ((0 0, 1 0, 1 1, 0 0), (0.1 0.1, 0.2 0.1, 0.2 0.2, 0.1 0.1))",
    L"MULTIPOINT XYM (1 2 3, 4 5 6)",
    L"MULTIPOLYGON (((0 0, 1 0, 1 1, 0 0)))",
    L"GEOMETRYCOLLECTION (POINT (0 0), GEOMETRYCOLLECTION (LINESTRING XYM (0 0 1, 1 1 2)))",
    L"CURVESTRING (0 0 (CIRCULARARCSEGMENT (1 1, 2 0), LINESTRINGSEGMENT (3 0, 4 0)))",
    L"MULTICURVEPOLYGON EMPTY"};

class Trees {
 public:
  explicit Trees(std::uint64_t seed) : random_(seed) {}

  FdoPtr<FdoFilter> Filter(int size) {
    if (size > 1) {
      switch (Below(5)) {
        case 0:
        case 1: {
          int const left = 1 + static_cast<int>(Below(static_cast<unsigned>(size - 1)));
          FdoPtr<FdoFilter> first = Filter(left);
          FdoPtr<FdoFilter> second = Filter(size - left);
          return FdoBinaryLogicalOperator::Create(first, static_cast<FdoBinaryLogicalOperations>(Below(2)),
                                                  second);
        }
        case 2: {
          FdoPtr<FdoFilter> operand = Filter(size - 1);
          return FdoUnaryLogicalOperator::Create(operand, FdoUnaryLogicalOperations_Not);
        }
        default:
          break;
      }
    }
    return Condition(size);
  }

  FdoPtr<FdoExpression> Expression(int size) {
    if (size > 1) {
      switch (Below(4)) {
        case 0:
        case 1: {
          int const left = 1 + static_cast<int>(Below(static_cast<unsigned>(size - 1)));
          FdoPtr<FdoExpression> first = Expression(left);
          FdoPtr<FdoExpression> second = Expression(size - left);
          return FdoBinaryExpression::Create(first, static_cast<FdoBinaryOperations>(Below(4)), second);
        }
        case 2: {
          FdoPtr<FdoExpression> operand = Expression(size - 1);
          return FdoUnaryExpression::Create(FdoUnaryOperations_Negate, operand);
        }
        default: {
          FdoPtr<FdoExpressionCollection> arguments = FdoExpressionCollection::Create();
          for (unsigned count = Below(4); count > 0; --count) {
            FdoPtr<FdoExpression> argument = Expression(size / 2);
            arguments->Add(argument);
          }
          return FdoFunction::Create(Below(4) == 0 ? L"my f" : L"Concat", arguments);
        }
      }
    }
    if (Below(3) == 0) return FdoPtr<FdoExpression>(Name());
    return FdoPtr<FdoExpression>(Value(true));
  }

 private:
  unsigned Below(unsigned end) { return static_cast<unsigned>(random_() % end); }

  template <std::size_t count>
  wchar_t const* Any(wchar_t const* const (&texts)[count]) {
    return texts[Below(count)];
  }

  FdoPtr<FdoIdentifier> Name() { return FdoIdentifier::Create(Any(kNames)); }

  FdoPtr<FdoFilter> Condition(int size) {
    FdoPtr<FdoIdentifier> name = Name();
    switch (Below(7)) {
      case 0:
        return FdoNullCondition::Create(name.p);
      case 1: {
        FdoPtr<FdoValueExpressionCollection> values = FdoValueExpressionCollection::Create();
        for (unsigned count = 1 + Below(4); count > 0; --count) {
          FdoPtr<FdoValueExpression> value = Value(false);
          values->Add(value);
        }
        return FdoInCondition::Create(name, values.p);
      }
      case 2: {
        FdoPtr<FdoExpression> geometry = Expression(size);
        return FdoSpatialCondition::Create(name.p, static_cast<FdoSpatialOperations>(Below(11)), geometry);
      }
      case 3: {
        FdoPtr<FdoExpression> geometry = Expression(size);
        double const distance = Below(2) == 0 ? Below(1000) : Real();
        return FdoDistanceCondition::Create(name.p, static_cast<FdoDistanceOperations>(Below(2)), geometry,
                                            distance < 0 ? -distance : distance);
      }
      case 4:
        if (Below(4) == 0) return SubSelect(name, size);
        [[fallthrough]];
      default: {
        FdoPtr<FdoExpression> left = Expression(size);
        FdoPtr<FdoExpression> right = Expression(size);
        return FdoComparisonCondition::Create(left, static_cast<FdoComparisonOperations>(Below(7)), right);
      }
    }
  }

  FdoPtr<FdoFilter> SubSelect(FdoIdentifier* name, int size) {
    FdoPtr<FdoIdentifier> selected = Name();
    FdoPtr<FdoIdentifier> property = Name();
    FdoPtr<FdoFilter> filter = Below(2) == 0 ? FdoPtr<FdoFilter>() : Filter(size / 2);
    FdoPtr<FdoSubSelectExpression> subSelect = FdoSubSelectExpression::Create(selected, property, filter);
    if (Below(2) == 0) {
      constexpr FdoJoinType kTypes[] = {FdoJoinType_None,      FdoJoinType_Inner,     FdoJoinType_RightOuter,
                                        FdoJoinType_LeftOuter, FdoJoinType_FullOuter, FdoJoinType_Cross};
      FdoPtr<FdoFilter> on = Below(2) == 0 ? FdoPtr<FdoFilter>() : Filter(size / 2);
      FdoPtr<FdoJoinCriteria> join =
          FdoJoinCriteria::Create(Below(2) == 0 ? L"" : L"other one", selected, kTypes[Below(6)], on);
      FdoPtr<FdoJoinCriteriaCollection> joins = subSelect->GetJoinCriteria();
      joins->Add(join);
    }
    return FdoInCondition::Create(name, subSelect.p);
  }

  double Real() {
    for (;;) {
      std::uint64_t const bits = random_();
      double real = 0;
      std::memcpy(&real, &bits, sizeof real);
      if (real - real == 0)
        return Below(2) == 0 ? real : static_cast<double>(static_cast<int>(Below(2000)) - 1000) / 8;
    }
  }

  FdoDateTime DateTime() {
    auto const byte = [this](unsigned least, unsigned end) {
      return static_cast<FdoInt8>(least + Below(end - least));
    };
    FdoDateTime value;
    unsigned const form = Below(3);
    if (form != 1) {
      value.year = static_cast<FdoInt16>(Below(32768));
      value.month = byte(1, 13);
      value.day = byte(1, 29);
    }
    if (form != 0) {
      value.hour = byte(0, 24);
      value.minute = byte(0, 60);
      value.seconds = static_cast<float>(Below(60000)) / (Below(2) == 0 ? 1000.0f : 1024.0f);
    }
    return value;
  }

  FdoPtr<FdoValueExpression> Value(bool geometries) {
    switch (Below(geometries ? 11 : 10)) {
      case 0:
        return FdoBooleanValue::Create(Below(2) == 0);
      case 1:
        return FdoStringValue::Create();
      case 2:
      case 3:
        return FdoInt32Value::Create(static_cast<FdoInt32>(static_cast<std::uint32_t>(random_())) >>
                                     Below(32));
      case 4: {
        auto const integer = static_cast<FdoInt64>(random_());
        return integer == static_cast<FdoInt32>(integer)
                   ? FdoPtr<FdoValueExpression>(FdoStringValue::Create())
                   : FdoPtr<FdoValueExpression>(FdoInt64Value::Create(integer));
      }
      case 5:
        return FdoDoubleValue::Create(Real());
      case 6:
        return FdoStringValue::Create(Any(kTexts));
      case 7:
        return FdoDateTimeValue::Create(DateTime());
      case 8:
        return FdoParameter::Create(Any(kNames));
      case 9: {
        FdoByte const bytes[] = {static_cast<FdoByte>(Below(256)), 0, 255};
        FdoPtr<FdoByteArray> array = FdoByteArray::Create(bytes, static_cast<FdoInt32>(Below(4)));
        return static_cast<FdoValueExpression*>(
            FdoDataValue::Create(array.p, Below(2) == 0 ? FdoDataType_BLOB : FdoDataType_CLOB));
      }
      default: {
        FdoStringP const text = FdoStringP(L"GeomFromText('") + Any(kGeometries) + L"')";
        return static_cast<FdoValueExpression*>(FdoExpression::Parse(text));
      }
    }
  }

  std::mt19937_64 random_;
};

std::uint64_t TreeCount() {
  char const* count = std::getenv("QUILLON_TEXT_TREES");
  return count == nullptr ? 30000 : std::strtoull(count, nullptr, 10);
}

template <class Node>
bool RoundTrips(FdoPtr<Node> tree) {
  std::wstring const text = tree->ToString();
  FdoPtr<Node> parsed = Node::Parse(text.c_str());
  return text == parsed->ToString() && ShapeOf(tree.p) == ShapeOf(parsed.p);
}

template <class Node, class Make>
void ExpectRoundTrips(Make make) {
  long long const before = fdo::port::LiveAllocations();
  for (std::uint64_t seed = 0; seed < TreeCount(); ++seed) {
    Trees trees(seed);
    FdoPtr<Node> tree = make(trees, static_cast<int>(seed % 24) + 1);
    try {
      ASSERT_TRUE(RoundTrips<Node>(tree)) << "seed " << seed << ": " << ShapeOf(tree.p) << "\n"
                                          << static_cast<char const*>(FdoStringP(tree->ToString()));
    } catch (FdoException* caught) {
      FdoPtr<FdoException> failure(caught);
      FAIL() << "seed " << seed << ": "
             << static_cast<char const*>(FdoStringP(failure->GetExceptionMessage()));
    }
  }
  EXPECT_EQ(fdo::port::LiveAllocations(), before);
}

TEST(TextRoundTrip, RandomFilters) {
  ExpectRoundTrips<FdoFilter>([](Trees& trees, int size) { return trees.Filter(size); });
}

TEST(TextRoundTrip, RandomExpressions) {
  ExpectRoundTrips<FdoExpression>([](Trees& trees, int size) { return trees.Expression(size); });
}

// Cuts a text at every place, so that the parser fails in every state that it can be in.
TEST(TextRoundTrip, NothingIsLeftBehindWhereverATextEnds) {
  std::wstring const text =
      L"NOT (a + f(b, -c * 2) > 'x' OR \"d e\" IN (1, :p, DATE '2024-01-02')) AND g INTERSECTS "
      L"GeomFromText('GEOMETRYCOLLECTION (POINT (1 2), LINESTRING XYZ (0 0 0, 1 1 1))') AND h WITHINDISTANCE "
      L"i 5 "
      L"AND j IN (SELECT k FROM l:m LEFT OUTER JOIN n AS o ON p = 1 WHERE q NULL) AND BLOB '00' = r";
  { FdoPtr<FdoFilter> whole = FdoFilter::Parse(text.c_str()); }
  for (std::size_t length = 0; length < text.size(); ++length) {
    std::wstring const part = text.substr(0, length);
    long long const before = fdo::port::LiveAllocations();
    bool threw = false;
    try {
      FdoPtr<FdoFilter> tree = FdoFilter::Parse(part.c_str());
    } catch (FdoFilterException* caught) {
      FdoPtr<FdoException> failure(caught);
      threw = true;
    }
    ASSERT_EQ(fdo::port::LiveAllocations(), before) << length << (threw ? " threw" : " parsed");
  }
}

}  // namespace
}  // namespace fdo_sdk

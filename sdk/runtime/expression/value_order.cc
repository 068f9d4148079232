#include "sdk/runtime/expression/value_order.h"

#include <cmath>
#include <cstring>

#include "sdk/runtime/expression/value_content.h"

namespace fdo_sdk {
namespace {

template <class T>
FdoCompareType Order(T const& left, T const& right) {
  if (left < right) return FdoCompareType_Less;
  if (right < left) return FdoCompareType_Greater;
  return left == right ? FdoCompareType_Equal : FdoCompareType_Undefined;  // not a number
}

FdoCompareType Opposite(FdoCompareType order) {
  if (order == FdoCompareType_Less) return FdoCompareType_Greater;
  if (order == FdoCompareType_Greater) return FdoCompareType_Less;
  return order;
}

// Exact: widening the integer would make neighbours equal from 2^53 on.
FdoCompareType OrderIntegerAndReal(FdoInt64 left, double right) {
  constexpr double kTwoTo63 = 9223372036854775808.0;
  if (std::isnan(right)) return FdoCompareType_Undefined;
  if (right >= kTwoTo63) return FdoCompareType_Less;
  if (right < -kTwoTo63) return FdoCompareType_Greater;
  double const whole = std::floor(right);
  FdoCompareType const order = Order(left, static_cast<FdoInt64>(whole));
  return order == FdoCompareType_Equal && right > whole ? FdoCompareType_Less : order;
}

FdoCompareType OrderDateTimes(FdoDateTime left, FdoDateTime right) {
  bool const dates = left.year != -1 && right.year != -1;
  bool const times = left.hour != -1 && right.hour != -1;
  if (!dates && !times) return FdoCompareType_Undefined;
  FdoCompareType order = FdoCompareType_Equal;
  auto const next = [&order](auto a, auto b) {
    if (order == FdoCompareType_Equal) order = Order(a, b);
  };
  if (dates) {
    next(left.year, right.year);
    next(left.month, right.month);
    next(left.day, right.day);
  }
  if (times) {
    next(left.hour, right.hour);
    next(left.minute, right.minute);
    next(left.seconds, right.seconds);
  }
  bool const sameParts = (left.year == -1) == (right.year == -1) && (left.hour == -1) == (right.hour == -1);
  return order == FdoCompareType_Equal && !sameParts ? FdoCompareType_PartlyEqual : order;
}

// Bytes have no order, they are the same or not.
FdoCompareType OrderBytes(FdoByteArray& left, FdoByteArray& right) {
  bool const equal = left.GetCount() == right.GetCount() &&
                     (left.GetCount() == 0 || std::memcmp(left.GetData(), right.GetData(),
                                                          static_cast<std::size_t>(left.GetCount())) == 0);
  return equal ? FdoCompareType_Equal : FdoCompareType_Undefined;
}

struct OrderContents {
  FdoCompareType operator()(FdoInt64 left, FdoInt64 right) const { return Order(left, right); }
  FdoCompareType operator()(double left, double right) const { return Order(left, right); }
  FdoCompareType operator()(FdoInt64 left, double right) const { return OrderIntegerAndReal(left, right); }
  FdoCompareType operator()(double left, FdoInt64 right) const {
    return Opposite(OrderIntegerAndReal(right, left));
  }
  FdoCompareType operator()(std::wstring const& left, std::wstring const& right) const {
    return Order(left, right);
  }
  FdoCompareType operator()(FdoDateTime const& left, FdoDateTime const& right) const {
    return OrderDateTimes(left, right);
  }
  FdoCompareType operator()(FdoPtr<FdoByteArray> const& left, FdoPtr<FdoByteArray> const& right) const {
    return OrderBytes(*left, *right);
  }
  template <class Left, class Right>
  FdoCompareType operator()(Left const&, Right const&) const {
    return FdoCompareType_Undefined;
  }
};

}  // namespace

FdoCompareType CompareValues(FdoDataValue& left, FdoDataValue& right) {
  return std::visit(OrderContents(), ContentOf(left), ContentOf(right));
}

}  // namespace fdo_sdk

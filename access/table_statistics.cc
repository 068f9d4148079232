#include <fdo/geometry_stream.h>
#include <fdo/table.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "access/cell_visitor.h"
#include "access/distinct_values.h"

namespace fdo {
namespace {

// Runs body with fetching restricted to one column and lifts that however body ends.
template <class Body>
void WithOneColumn(Table& table, int column, Body body) {
  constexpr int const* kAllColumns = nullptr;
  table.SetDesiredFields(&column, 1);
  try {
    body();
  } catch (...) {
    table.SetDesiredFields(kAllColumns, 0);
    throw;
  }
  table.SetDesiredFields(kAllColumns, 0);
}

template <class Function>
class CallingVisitor final : public internal::CellVisitor {
 public:
  explicit CallingVisitor(Function& function) : function_(function) {}
  void Visit(Value const& cell) override { function_(cell); }

 private:
  Function& function_;
};

// The value that a full sort would put at that position, numbers first, then those that are none.
// Requires: position < values.size(); rearranges the values.
double SelectNth(std::vector<double>& values, std::size_t position) {
  // A NaN has no place in the order that the selection relies on.
  auto const numbersEnd =
      std::partition(values.begin(), values.end(), [](double value) { return !std::isnan(value); });
  auto const nth = values.begin() + static_cast<std::ptrdiff_t>(position);
  if (nth < numbersEnd) std::nth_element(values.begin(), nth, numbersEnd);
  return *nth;
}

}  // namespace

template <class Visit>
void Table::ScanColumn(wchar_t const* column, FdoFilter* filter, Visit visit) {
  int const position = def_->IndexOf(column);
  if (position < 0) return;
  CallingVisitor<Visit> visitor(visit);
  WithOneColumn(*this, position, [&] {
    QueryColumn(position, filter, visitor);
    while (Row const* row = Next()) visit((*row)[position]);
  });
}

void Table::QueryColumn(int, FdoFilter* filter, internal::CellVisitor&) { Query(filter, nullptr, true); }

void Table::GetExtent(double* const box, FdoFilter* filter) {
  double extent[] = {DBL_MAX, DBL_MAX, -DBL_MAX, -DBL_MAX};
  std::copy_n(extent, 4, box);
  if (!def_->HasGeom()) return;
  int const geometry = def_->IndexOfGeom();
  WithOneColumn(*this, geometry, [&] {
    Query(filter, nullptr, true);
    try {
      while (Row const* row = Next()) {
        Value const& cell = (*row)[geometry];
        unsigned char const* const stream = cell.AsBlob();
        if (stream == nullptr) continue;
        double rowBox[4];
        FgfBox(stream, stream + std::max(cell.BlobLen(), 0), rowBox);
        if (rowBox[0] > rowBox[2] || rowBox[1] > rowBox[3]) continue;
        for (int i = 0; i < 2; ++i) {
          extent[i] = std::min(extent[i], rowBox[i]);
          extent[i + 2] = std::max(extent[i + 2], rowBox[i + 2]);
        }
      }
    } catch (...) {
      EndQuery();
      throw;
    }
    EndQuery();
  });
  std::copy_n(extent, 4, box);
}

void Table::GetMinMax(Value& min, Value& max, wchar_t const* column, FdoFilter* filter) {
  min.Reset();
  max.Reset();
  bool first = true;
  ScanColumn(column, filter, [&](Value const& cell) {
    if (first) {
      max = cell;
      min = cell;
      first = false;
    } else if (cell.IsNull()) {
      return;
    } else if (cell < min) {
      min = cell;
    } else if (max < cell) {
      max = cell;
    }
  });
}

void Table::GetDistinctValues(std::set<Value>& values, wchar_t const* column, bool includeNull,
                              FdoFilter* filter) {
  internal::DistinctValues distinct(values);
  ScanColumn(column, filter, [&](Value const& cell) {
    if (includeNull || !cell.IsNull()) distinct.Add(cell);
  });
}

void Table::GetStats(double& variance, double& mean, wchar_t const* column, FdoFilter* filter) {
  variance = 0.0;
  mean = 0.0;
  // Welford's method: one pass without the cancellation that sums of squares suffer from.
  std::int64_t count = 0;
  double runningMean = 0.0;
  double squares = 0.0;
  ScanColumn(column, filter, [&](Value const& cell) {
    if (cell.IsNull()) return;
    double const number = cell;
    ++count;
    double const delta = number - runningMean;
    runningMean += delta / static_cast<double>(count);
    squares += (number - runningMean) * delta;
  });
  variance = count < 2 ? 0.0 : squares / static_cast<double>(count - 1);
  mean = runningMean;
}

void Table::GetMedian(Value& median, wchar_t const* column, FdoFilter* filter) {
  std::vector<double> numbers;
  bool allIntegers = true;
  ScanColumn(column, filter, [&](Value const& cell) {
    if (cell.IsNull()) return;
    allIntegers = allIntegers && cell.Type() == Value::kInt;
    numbers.push_back(cell);
  });
  if (numbers.empty()) return;

  std::size_t const middle = numbers.size() / 2;
  double result = SelectNth(numbers, middle);
  if (numbers.size() % 2 == 0) {
    result = (SelectNth(numbers, middle - 1) + result) * 0.5;
    allIntegers = allIntegers && result == std::floor(result);
  }
  if (allIntegers) {
    median.Reset(static_cast<__int64>(Value(result)));  // Value truncates, and knows what does not fit
  } else {
    median.Reset(result);
  }
}

}  // namespace fdo

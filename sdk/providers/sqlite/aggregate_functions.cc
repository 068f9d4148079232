// SQL functions of all rows. Nulls are left out; without any value the result is null.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <vector>

#include "sdk/providers/sqlite/extent_polygon.h"
#include "sdk/providers/sqlite/sql_functions.h"
#include "sdk/providers/sqlite/stored_geometry.h"

namespace fdo_sqlite {
namespace {

// Adds doubles with the error of each addition kept (Neumaier), so that neither the order nor the number of
// the rows shows in the sum.
class ExactSum {
 public:
  void Add(double value) {
    double const sum = sum_ + value;
    if (std::isfinite(sum)) {
      error_ += std::fabs(sum_) >= std::fabs(value) ? (sum_ - sum) + value : (value - sum) + sum_;
    }
    sum_ = sum;
  }

  double Value() const { return std::isfinite(sum_) ? sum_ + error_ : sum_; }

 private:
  double sum_ = 0;
  double error_ = 0;
};

class Sum {
 public:
  void Add(double value) {
    sum_.Add(value);
    ++count_;
  }

 protected:
  bool IsEmpty() const { return count_ == 0; }
  double Total() const { return sum_.Value(); }
  double Mean() const { return sum_.Value() / static_cast<double>(count_); }

 private:
  ExactSum sum_;
  std::int64_t count_ = 0;
};

class TotalOfAll : public Sum {
 public:
  void Finish(sqlite3_context* context) {
    if (!IsEmpty()) sqlite3_result_double(context, Total());
  }
};

class MeanOfAll : public Sum {
 public:
  void Finish(sqlite3_context* context) {
    if (!IsEmpty()) sqlite3_result_double(context, Mean());
  }
};

// Of an even number of values the mean of the two in the middle.
class MedianOfAll {
 public:
  void Add(double value) { values_.push_back(value); }
  void Finish(sqlite3_context* context) {
    if (values_.empty()) return;
    auto const middle = values_.begin() + static_cast<std::ptrdiff_t>(values_.size() / 2);
    std::nth_element(values_.begin(), middle, values_.end());
    double result = *middle;
    if (values_.size() % 2 == 0) {
      double const below = *std::max_element(values_.begin(), middle);
      result = below + (result - below) / 2;
    }
    sqlite3_result_double(context, result);
  }

 private:
  std::vector<double> values_;
};

// Of a sample, which divides by one less than the number of values: null for a single one.
class DeviationOfAll {
 public:
  void Add(double value) {
    ++count_;
    double const before = value - mean_;
    mean_ += before / static_cast<double>(count_);
    squares_ += before * (value - mean_);
  }
  void Finish(sqlite3_context* context) {
    if (count_ > 1) sqlite3_result_double(context, std::sqrt(squares_ / static_cast<double>(count_ - 1)));
  }

 private:
  std::int64_t count_ = 0;
  double mean_ = 0;
  double squares_ = 0;
};

// The box around all geometries.
class ExtentOfAll {
 public:
  void Add(sqlite3_value* stored, GeometryFormat format) {
    fdo_sdk::FgfBox box;
    if (!StoredGeometry(format).Box(stored, box) || box.IsEmpty()) return;
    all_.Expand(box.minX, box.minY);
    all_.Expand(box.maxX, box.maxY);
  }
  void Finish(sqlite3_context* context) {
    if (all_.IsEmpty()) return;
    auto const fgf = ExtentPolygon(all_);
    sqlite3_result_blob(context, fgf.data(), static_cast<int>(fgf.size()), SQLITE_TRANSIENT);
  }

 private:
  fdo_sdk::FgfBox all_;
};

// SQLite keeps so many bytes of 0 for each group, here an address; it gives none to a group without rows.
template <class State>
State** Place(sqlite3_context* context, bool make) {
  return static_cast<State**>(sqlite3_aggregate_context(context, make ? sizeof(State*) : 0));
}

template <class State>
State& StateOf(sqlite3_context* context) {
  State** const place = Place<State>(context, true);
  if (place == nullptr) throw std::bad_alloc();
  if (*place == nullptr) *place = new State;
  return **place;
}

template <class State>
void StepNumber(sqlite3_context* context, int, sqlite3_value** arguments) {
  int const type = sqlite3_value_type(arguments[0]);
  if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) return;
  RunSqlFunction(context, [&] { StateOf<State>(context).Add(sqlite3_value_double(arguments[0])); });
}

void StepExtent(sqlite3_context* context, int, sqlite3_value** arguments) {
  RunSqlFunction(context, [&] {
    auto const format = static_cast<GeometryFormat>(sqlite3_value_int(arguments[1]));
    StateOf<ExtentOfAll>(context).Add(arguments[0], format);
  });
}

// SQLite calls this for abandoned groups too.
template <class State>
void Finish(sqlite3_context* context) {
  State** const place = Place<State>(context, false);
  if (place == nullptr || *place == nullptr) return;
  std::unique_ptr<State> const state(*place);
  *place = nullptr;
  RunSqlFunction(context, [&] { state->Finish(context); });
}

template <class State>
SqlFunction OfNumbers(char const* name) {
  return {name, 1, true, nullptr, StepNumber<State>, Finish<State>};
}

}  // namespace

std::vector<SqlFunction> const& AggregateFunctions() {
  static std::vector<SqlFunction> const kFunctions = {
      OfNumbers<TotalOfAll>("fdo_sum"),
      OfNumbers<MeanOfAll>("fdo_avg"),
      OfNumbers<MedianOfAll>("fdo_median"),
      OfNumbers<DeviationOfAll>("fdo_stddev"),
      {"fdo_extents", 2, true, nullptr, StepExtent, Finish<ExtentOfAll>},
  };
  return kFunctions;
}

}  // namespace fdo_sqlite

// The statistics over a table whose rows cost nothing, so that what is measured is their own work.
#include <benchmark/benchmark.h>
#include <fdo/table.h>

#include <cstdint>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace fdo {
namespace {

constexpr std::size_t kRows = 100000;

TableDef const& OneColumn() {
  static TableDef const def = [] {
    ColumnDef column;
    column.Initialize(L"value", ColumnDef::kDouble, 0, Value(), nullptr);
    TableDef made;
    made.Initialize(L"", L"t", &column, 1, -1, -1, 0);
    return made;
  }();
  return def;
}

class ColumnTable : public Table {
 public:
  ColumnTable(ColumnTable const&) = delete;  // the row belongs to this table
  ColumnTable& operator=(ColumnTable const&) = delete;

  template <class Make>
  explicit ColumnTable(Make make) : Table(&OneColumn()), row_(this) {
    std::mt19937 random(1);
    for (std::size_t i = 0; i < kRows; ++i) cells_.push_back(make(random()));
  }

  using Table::SetDesiredFields;
  void SetDesiredFields(int const*, int) override {}
  void Query(FdoFilter*, wchar_t const*, bool) override { next_ = 0; }
  Row const* Next() override {
    row_.Invalidate();
    return next_++ < cells_.size() ? &row_ : nullptr;
  }
  Row const& At() override { return row_; }
  void EndQuery() override {}

  bool Insert(Row const&, __int64*, bool) override { throw std::logic_error("read only"); }
  __int64 Update(Row const&, FdoFilter*) override { throw std::logic_error("read only"); }
  bool Update(Row const&, __int64) override { throw std::logic_error("read only"); }
  __int64 Delete(FdoFilter*) override { throw std::logic_error("read only"); }
  bool Delete(__int64) override { throw std::logic_error("read only"); }
  Row const* Query(__int64) override { throw std::logic_error("whole columns only"); }
  void Query(double const*, FdoFilter*) override { throw std::logic_error("whole columns only"); }
  void Query() override { Query(nullptr, nullptr, true); }
  void QueryRange(__int64, __int64) override { throw std::logic_error("whole columns only"); }
  __int64 GetRowCount(FdoFilter*, bool) override { return static_cast<__int64>(cells_.size()); }

 protected:
  void FetchCurrentValue(Value& cell, int) const override {
    Value const& source = cells_[next_ - 1];
    if (source.Type() == Value::kString) {
      cell.Reset(static_cast<wchar_t const*>(source), false);
    } else {
      cell = source;
    }
  }

 private:
  std::vector<Value> cells_;
  std::size_t next_ = 0;
  Row row_;
};

ColumnTable Doubles() {
  return ColumnTable([](auto r) { return Value(static_cast<double>(r) / 1000.0); });
}

template <class Body>
void Measure(benchmark::State& state, ColumnTable&& table, Body body) {
  for (auto _ : state) body(table);
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kRows));
}

// The control: the scan alone.
void BM_Scan(benchmark::State& state) {
  Measure(state, Doubles(), [](ColumnTable& table) {
    double sum = 0;
    table.Query();
    while (Row const* row = table.Next()) sum += static_cast<double>((*row)[0]);
    benchmark::DoNotOptimize(sum);
  });
}
BENCHMARK(BM_Scan);

void BM_GetStats(benchmark::State& state) {
  Measure(state, Doubles(), [](ColumnTable& table) {
    double variance, mean;
    table.GetStats(variance, mean, L"value", nullptr);
    benchmark::DoNotOptimize(variance);
  });
}
BENCHMARK(BM_GetStats);

void BM_GetMedian(benchmark::State& state) {
  Measure(state, Doubles(), [](ColumnTable& table) {
    Value median;
    table.GetMedian(median, L"value", nullptr);
    benchmark::DoNotOptimize(median);
  });
}
BENCHMARK(BM_GetMedian);

void BM_GetMinMax(benchmark::State& state) {
  Measure(state, Doubles(), [](ColumnTable& table) {
    Value min, max;
    table.GetMinMax(min, max, L"value", nullptr);
    benchmark::DoNotOptimize(min);
  });
}
BENCHMARK(BM_GetMinMax);

// The argument is how many different values there are.
void MeasureDistinct(benchmark::State& state, ColumnTable&& table) {
  Measure(state, std::move(table), [](ColumnTable& measured) {
    std::set<Value> values;
    measured.GetDistinctValues(values, L"value", true, nullptr);
    benchmark::DoNotOptimize(values.size());
  });
}
void BM_GetDistinctIntegers(benchmark::State& state) {
  MeasureDistinct(state,
                  ColumnTable([&](auto r) { return Value(static_cast<long long>(r) % state.range(0)); }));
}
BENCHMARK(BM_GetDistinctIntegers)->Arg(10)->Arg(1000)->Arg(100000);
void BM_GetDistinctTexts(benchmark::State& state) {
  MeasureDistinct(state, ColumnTable([&](auto r) {
                    auto const number = static_cast<long long>(r) % state.range(0);
                    return Value((L"some town " + std::to_wstring(number)).c_str());
                  }));
}
BENCHMARK(BM_GetDistinctTexts)->Arg(10)->Arg(1000)->Arg(100000);

}  // namespace
}  // namespace fdo

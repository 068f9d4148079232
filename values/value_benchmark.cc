#include <benchmark/benchmark.h>
#include <fdo/value.h>

#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <random>
#include <string>
#include <vector>

namespace fdo {
namespace {

constexpr std::size_t kCount = 4096;

template <class Make>
std::vector<Value> Values(Make make) {
  std::mt19937 random(1);
  std::vector<Value> values;
  values.reserve(kCount);
  for (std::size_t i = 0; i < kCount; ++i) values.push_back(make(random()));
  return values;
}

std::vector<Value> Integers() {
  return Values([](auto r) { return Value(static_cast<long long>(r)); });
}
std::vector<Value> Doubles() {
  return Values([](auto r) { return Value(static_cast<double>(r) / 1000.0); });
}
std::vector<Value> Texts(std::size_t length) {
  return Values([length](auto r) {
    std::wstring text = std::to_wstring(r);
    text.resize(length, L'x');
    return Value(text.c_str());
  });
}

template <class Body>
void ForEach(benchmark::State& state, std::vector<Value> const& values, Body body) {
  for (auto _ : state) {
    for (Value const& value : values) body(value);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(values.size()));
}

// The control: what the loop costs.
void BM_ValueType(benchmark::State& state) {
  ForEach(state, Integers(), [](Value const& value) { benchmark::DoNotOptimize(value.Type()); });
}
BENCHMARK(BM_ValueType);

void BM_ValueResetInteger(benchmark::State& state) {
  Value target;
  ForEach(state, Integers(), [&](Value const& value) {
    target.Reset(static_cast<__int64>(value));
    benchmark::DoNotOptimize(target);
  });
}
BENCHMARK(BM_ValueResetInteger);

void BM_ValueCopyInteger(benchmark::State& state) {
  Value target;
  ForEach(state, Integers(), [&](Value const& value) {
    target = value;
    benchmark::DoNotOptimize(target);
  });
}
BENCHMARK(BM_ValueCopyInteger);

void BM_ValueCopyOwnedText(benchmark::State& state) {
  Value target;
  ForEach(state, Texts(static_cast<std::size_t>(state.range(0))), [&](Value const& value) {
    target = value;
    benchmark::DoNotOptimize(target);
  });
}
BENCHMARK(BM_ValueCopyOwnedText)->Arg(8)->Arg(64);

void BM_ValueBorrowText(benchmark::State& state) {
  Value target;
  ForEach(state, Texts(8), [&](Value const& value) {
    target.Reset(static_cast<wchar_t const*>(value), false);
    benchmark::DoNotOptimize(target);
  });
}
BENCHMARK(BM_ValueBorrowText);

void Compare(benchmark::State& state, std::vector<Value> const& values) {
  Value const& pivot = values[kCount / 2];
  ForEach(state, values, [&](Value const& value) { benchmark::DoNotOptimize(value < pivot); });
}
void BM_ValueLessIntegers(benchmark::State& state) { Compare(state, Integers()); }
BENCHMARK(BM_ValueLessIntegers);
void BM_ValueLessDoubles(benchmark::State& state) { Compare(state, Doubles()); }
BENCHMARK(BM_ValueLessDoubles);
void BM_ValueLessTexts(benchmark::State& state) { Compare(state, Texts(16)); }
BENCHMARK(BM_ValueLessTexts);
void BM_ValueLessIntegerAndDouble(benchmark::State& state) {
  Value const pivot(1e9);
  ForEach(state, Integers(), [&](Value const& value) { benchmark::DoNotOptimize(value < pivot); });
}
BENCHMARK(BM_ValueLessIntegerAndDouble);

void BM_ValueAddIntegers(benchmark::State& state) {
  Value sum(0);
  ForEach(state, Integers(), [&](Value const& value) { Value::Add(sum, sum, value); });
  benchmark::DoNotOptimize(sum);
}
BENCHMARK(BM_ValueAddIntegers);

void BM_ValueAddDoubles(benchmark::State& state) {
  Value sum(0.0);
  ForEach(state, Doubles(), [&](Value const& value) { Value::Add(sum, sum, value); });
  benchmark::DoNotOptimize(sum);
}
BENCHMARK(BM_ValueAddDoubles);

void MakeText(benchmark::State& state, std::vector<Value> const& values) {
  Value target;
  ForEach(state, values, [&](Value const& value) {
    target = value;  // without its text
    benchmark::DoNotOptimize(static_cast<wchar_t const*>(target));
  });
}
void BM_ValueTextOfInteger(benchmark::State& state) { MakeText(state, Integers()); }
BENCHMARK(BM_ValueTextOfInteger);
void BM_ValueTextOfDouble(benchmark::State& state) { MakeText(state, Doubles()); }
BENCHMARK(BM_ValueTextOfDouble);
void BM_CLibraryTextOfDouble(benchmark::State& state) {
  wchar_t text[64];
  ForEach(state, Doubles(), [&](Value const& value) {
    benchmark::DoNotOptimize(std::swprintf(text, 64, L"%.16g", static_cast<double>(value)));
  });
}
BENCHMARK(BM_CLibraryTextOfDouble);

std::vector<Value> NumberTexts() {
  return Values(
      [](auto r) { return Value(static_cast<wchar_t const*>(Value(static_cast<double>(r) / 1000.0))); });
}
void BM_ValueDoubleOfText(benchmark::State& state) {
  ForEach(state, NumberTexts(),
          [](Value const& value) { benchmark::DoNotOptimize(static_cast<double>(value)); });
}
BENCHMARK(BM_ValueDoubleOfText);
void BM_CLibraryDoubleOfText(benchmark::State& state) {
  ForEach(state, NumberTexts(), [](Value const& value) {
    benchmark::DoNotOptimize(std::wcstod(static_cast<wchar_t const*>(value), nullptr));
  });
}
BENCHMARK(BM_CLibraryDoubleOfText);
void BM_ValueIntegerOfText(benchmark::State& state) {
  ForEach(state, NumberTexts(),
          [](Value const& value) { benchmark::DoNotOptimize(static_cast<__int64>(value)); });
}
BENCHMARK(BM_ValueIntegerOfText);

}  // namespace
}  // namespace fdo

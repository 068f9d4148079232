#include "values/date_text.h"

#include <benchmark/benchmark.h>

#include <cwchar>

namespace fdo::internal {
namespace {

FdoDateTime Moment(int i) {
  return FdoDateTime(2024, static_cast<FdoInt8>(1 + i % 12), static_cast<FdoInt8>(1 + i % 28),
                     static_cast<FdoInt8>(i % 24), static_cast<FdoInt8>(i % 60),
                     static_cast<float>(i % 60000) / 1000);
}

void BM_FormatDateTime(benchmark::State& state) {
  wchar_t text[kDateTextSize];
  int i = 0;
  for (auto _ : state) benchmark::DoNotOptimize(FormatDateTime(Moment(++i), text));
}
BENCHMARK(BM_FormatDateTime);

void BM_CLibraryFormat(benchmark::State& state) {
  wchar_t text[kDateTextSize];
  int i = 0;
  for (auto _ : state) {
    FdoDateTime const v = Moment(++i);
    benchmark::DoNotOptimize(std::swprintf(text, kDateTextSize, L"%04d-%02d-%02dT%02d:%02d:%06.3f", v.year,
                                           v.month, v.day, v.hour, v.minute, static_cast<double>(v.seconds)));
  }
}
BENCHMARK(BM_CLibraryFormat);

void BM_ParseDateTime(benchmark::State& state) {
  FdoDateTime value;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ParseDateTime(L"2024-03-01T14:30:05.250", value));
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(BM_ParseDateTime);

void BM_ParseDate(benchmark::State& state) {
  FdoDateTime value;
  for (auto _ : state) {
    benchmark::DoNotOptimize(ParseDateTime(L"2024-03-01", value));
    benchmark::DoNotOptimize(value);
  }
}
BENCHMARK(BM_ParseDate);

void BM_CLibraryParse(benchmark::State& state) {
  int year, month, day, hour, minute;
  float seconds;
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::swscanf(L"2024-03-01T14:30:05.250", L"%d-%d-%dT%d:%d:%f", &year, &month,
                                          &day, &hour, &minute, &seconds));
  }
}
BENCHMARK(BM_CLibraryParse);

}  // namespace
}  // namespace fdo::internal

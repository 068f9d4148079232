#include <benchmark/benchmark.h>
#include <fdo/text_conversion.h>

#include <cstdlib>
#include <string>

namespace fdo {
namespace {

std::wstring Text(benchmark::State const& state, wchar_t unit) {
  return std::wstring(static_cast<std::size_t>(state.range(0)), unit);
}

void Encode(benchmark::State& state, std::wstring const& text) {
  std::string bytes(text.size() * 4 + 1, '\0');
  int const size = static_cast<int>(text.size() * sizeof(wchar_t));
  for (auto _ : state) {
    benchmark::DoNotOptimize(WideToUtf8(text.data(), size, bytes.data(), static_cast<int>(bytes.size())));
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Decode(benchmark::State& state, std::string const& bytes) {
  std::wstring text(bytes.size() + 1, L'\0');
  int const size = static_cast<int>(text.size() * sizeof(wchar_t));
  for (auto _ : state) {
    benchmark::DoNotOptimize(Utf8ToWide(bytes.data(), static_cast<int>(bytes.size()), text.data(), size));
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_WideToUtf8Latin(benchmark::State& state) { Encode(state, Text(state, L'a')); }
BENCHMARK(BM_WideToUtf8Latin)->Arg(8)->Arg(16)->Arg(100)->Arg(4096);
void BM_WideToUtf8Han(benchmark::State& state) { Encode(state, Text(state, 0x4E2D)); }
BENCHMARK(BM_WideToUtf8Han)->Arg(16)->Arg(4096);
void BM_Utf8ToWideLatin(benchmark::State& state) { Decode(state, ToUtf8(Text(state, L'a').c_str())); }
BENCHMARK(BM_Utf8ToWideLatin)->Arg(8)->Arg(16)->Arg(100)->Arg(4096);
void BM_Utf8ToWideHan(benchmark::State& state) { Decode(state, ToUtf8(Text(state, 0x4E2D).c_str())); }
BENCHMARK(BM_Utf8ToWideHan)->Arg(16)->Arg(4096);

void BM_CLibraryToWide(benchmark::State& state) {
  std::string const bytes = ToUtf8(Text(state, L'a').c_str());
  std::wstring text(bytes.size() + 1, L'\0');
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::mbstowcs(text.data(), bytes.c_str(), text.size()));
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CLibraryToWide)->Arg(16)->Arg(4096);

void BM_ToUtf8(benchmark::State& state) {
  std::wstring const text = Text(state, L'a');
  for (auto _ : state) benchmark::DoNotOptimize(ToUtf8(text.c_str()));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ToUtf8)->Arg(12)->Arg(4096);
void BM_ToWide(benchmark::State& state) {
  std::string const bytes = ToUtf8(Text(state, L'a').c_str());
  for (auto _ : state) benchmark::DoNotOptimize(ToWide(bytes.c_str()));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ToWide)->Arg(12)->Arg(4096);

}  // namespace
}  // namespace fdo

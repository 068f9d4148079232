#include <benchmark/benchmark.h>
#include <fdo/schema.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace fdo {
namespace {

// Names as tables have them: many begin alike.
std::vector<std::wstring> Names(int count) {
  wchar_t const* const stems[] = {L"attribute_", L"name_", L"population_", L"area_"};
  std::vector<std::wstring> names;
  for (int i = 0; i < count; ++i) names.push_back(stems[i % 4] + std::to_wstring(i));
  return names;
}

TableDef Table(std::vector<std::wstring> const& names) {
  std::vector<ColumnDef> columns(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    columns[i].Initialize(names[i].c_str(), ColumnDef::kInt32, 0, Value(), nullptr);
  }
  TableDef table;
  table.Initialize(L"s", L"t", columns.data(), static_cast<int>(columns.size()), -1, -1, 0);
  return table;
}

void BM_LookUpInOrder(benchmark::State& state) {
  auto const names = Names(static_cast<int>(state.range(0)));
  TableDef const table = Table(names);
  for (auto _ : state) {
    for (std::wstring const& name : names) benchmark::DoNotOptimize(table.IndexOf(name.c_str()));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_LookUpInOrder)->Arg(8)->Arg(32)->Arg(256);

void BM_LookUpInReverse(benchmark::State& state) {
  auto const names = Names(static_cast<int>(state.range(0)));
  TableDef const table = Table(names);
  for (auto _ : state) {
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
      benchmark::DoNotOptimize(table.IndexOf(name->c_str()));
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_LookUpInReverse)->Arg(8)->Arg(32)->Arg(256);

// The control: a hash map of the standard library, asked as an interface of plain pointers must.
void BM_HashMapInReverse(benchmark::State& state) {
  auto const names = Names(static_cast<int>(state.range(0)));
  std::unordered_map<std::wstring, int> map;
  for (auto const& name : names) map.emplace(name, static_cast<int>(map.size()));
  for (auto _ : state) {
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
      benchmark::DoNotOptimize(map.find(std::wstring(name->c_str()))->second);
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_HashMapInReverse)->Arg(8)->Arg(32)->Arg(256);

void BM_CopyTableDef(benchmark::State& state) {
  TableDef const table = Table(Names(static_cast<int>(state.range(0))));
  for (auto _ : state) benchmark::DoNotOptimize(TableDef(table).ColumnCount());
}
BENCHMARK(BM_CopyTableDef)->Arg(8)->Arg(256);

}  // namespace
}  // namespace fdo

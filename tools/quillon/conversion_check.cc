#include "tools/quillon/conversion_check.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "tools/quillon/cell_text.h"
#include "tools/quillon/hash.h"

namespace fdo::tool {

namespace {

// Reads the rows of the source that were written.
class WrittenRows {
 public:
  explicit WrittenRows(Conversion const& conversion) : conversion_(conversion) {
    conversion_.selection.Query(conversion_.source);
  }
  WrittenRows(WrittenRows const&) = delete;
  WrittenRows& operator=(WrittenRows const&) = delete;
  ~WrittenRows() { conversion_.source.EndQuery(); }

  Row const* Next() {
    auto const& refused = conversion_.refusedRows;
    Row const* row = conversion_.source.Next();
    while (row != nullptr && nextRefused_ < refused.size() && refused[nextRefused_] == position_) {
      ++nextRefused_;
      ++position_;
      row = conversion_.source.Next();
    }
    ++position_;
    return row;
  }

 private:
  Conversion const& conversion_;
  std::size_t nextRefused_ = 0;
  std::int64_t position_ = 0;
};

Value const kNothing;

Value const& TargetCell(Row const& row, int match) { return match < 0 ? kNothing : row[match]; }

ConversionChanges CompareInOrder(Conversion const& conversion, std::function<void()> const& step) {
  ConversionChanges changes;
  changes.columns.resize(conversion.columns.size());
  TableDef const& def = *conversion.source.Def();
  WrittenRows sourceRows(conversion);
  conversion.target.Query();
  for (;;) {
    Row const* const source = sourceRows.Next();
    Row const* const target = conversion.target.Next();
    if (source == nullptr && target == nullptr) break;
    if (source == nullptr || target == nullptr) {
      changes.missingRows += source == nullptr ? -1 : 1;
      continue;
    }
    for (std::size_t i = 0; i < conversion.columns.size(); ++i) {
      int const column = conversion.columns[i];
      CellChange const change =
          CompareCells((*source)[column], def[column].Type(), TargetCell(*target, conversion.matches[i]));
      if (change.change == Change::kNone) continue;
      ++changes.columns[i].Count(change.change);
      changes.columns[i].largestDeviation = std::max(changes.columns[i].largestDeviation, change.deviation);
    }
    step();
  }
  conversion.target.EndQuery();
  return changes;
}

using Hashes = std::vector<std::uint64_t>;

// The hashes of each column's values and, last, of the rows, each sorted.
template <class NextRow, class CellAt>
std::vector<Hashes> HashRows(Conversion const& conversion, NextRow nextRow, CellAt cellAt,
                             std::function<void()> const& step) {
  TableDef const& def = *conversion.source.Def();
  std::size_t const count = conversion.columns.size();
  std::vector<Hashes> hashes(count + 1);
  while (Row const* const row = nextRow()) {
    std::uint64_t rowHash = 0;
    for (std::size_t i = 0; i < count; ++i) {
      std::uint64_t const hash = HashCell(cellAt(*row, i), def[conversion.columns[i]].Type());
      hashes[i].push_back(hash);
      rowHash = Mix(rowHash, hash);
    }
    hashes[count].push_back(rowHash);
    step();
  }
  for (Hashes& column : hashes) std::sort(column.begin(), column.end());
  return hashes;
}

// Those of the first that are not among the second, each as often as it is there more often.
Hashes Missing(Hashes const& first, Hashes const& second) {
  Hashes missing;
  std::set_difference(first.begin(), first.end(), second.begin(), second.end(), std::back_inserter(missing));
  return missing;
}

std::int64_t Count(Hashes const& hashes, std::uint64_t hash) {
  return std::count(hashes.begin(), hashes.end(), hash);
}

std::int64_t Length(Hashes const& hashes) { return static_cast<std::int64_t>(hashes.size()); }

Change ChangeOf(ColumnDef::DataType type, bool isWritten) {
  if (!isWritten) return Change::kLost;
  switch (type) {
    case ColumnDef::kGeometry:
      return Change::kGeometryChanged;
    case ColumnDef::kDateTime:
      return Change::kDateTimeChanged;
    case ColumnDef::kString:
      return Change::kTextChanged;
    case ColumnDef::kBlob:
    case ColumnDef::kClob:
      return Change::kBytesChanged;
    default:
      return Change::kNumberChanged;
  }
}

ConversionChanges CompareInAnyOrder(Conversion const& conversion, std::function<void()> const& step) {
  WrittenRows sourceRows(conversion);
  auto const source = HashRows(
      conversion, [&] { return sourceRows.Next(); },
      [&](Row const& row, std::size_t i) -> Value const& { return row[conversion.columns[i]]; }, step);
  conversion.target.Query();
  auto const target = HashRows(
      conversion, [&] { return conversion.target.Next(); },
      [&](Row const& row, std::size_t i) -> Value const& { return TargetCell(row, conversion.matches[i]); },
      step);
  conversion.target.EndQuery();

  std::size_t const count = conversion.columns.size();
  ConversionChanges changes;
  changes.columns.resize(count);
  changes.missingRows = Length(source[count]) - Length(target[count]);
  TableDef const& def = *conversion.source.Def();
  std::int64_t total = 0;
  for (std::size_t i = 0; i < count; ++i) {
    ColumnDef::DataType const type = def[conversion.columns[i]].Type();
    Hashes const missing = Missing(source[i], target[i]);
    Hashes const surplus = Missing(target[i], source[i]);
    std::int64_t const nullsAsZero =
        std::min(Count(missing, HashCell(Value(), type)), Count(surplus, HashCell(Value(0), type)));
    changes.columns[i].Count(Change::kNullAsZero) = nullsAsZero;
    changes.columns[i].Count(ChangeOf(type, conversion.matches[i] >= 0)) += Length(missing) - nullsAsZero;
    total += Length(missing);
  }
  // Every column has all its values, but they stand in other rows than before.
  std::int64_t const torn = Length(Missing(source[count], target[count]));
  if (total == 0 && torn > 0 && count > 0) {
    changes.columns[0].Count(ChangeOf(def[conversion.columns[0]].Type(), true)) = torn;
  }
  return changes;
}

std::int64_t TotalOf(ConversionChanges const& changes) {
  return std::accumulate(changes.columns.begin(), changes.columns.end(), std::int64_t{0},
                         [](std::int64_t sum, ColumnChanges const& column) { return sum + column.Total(); });
}

bool MayBeOutOfStep(ConversionChanges const& changes) {
  if (changes.missingRows != 0) return true;
  return std::any_of(changes.columns.begin(), changes.columns.end(), [](ColumnChanges const& column) {
    return std::any_of(std::begin(kChanges), std::end(kChanges), [&](ChangeInfo const& info) {
      return info.mayBeAnotherRow && column.Count(info.change) > 0;
    });
  });
}

}  // namespace

std::int64_t ColumnChanges::Total() const {
  return std::accumulate(counts.begin(), counts.end(), std::int64_t{0});
}

bool ConversionChanges::Any() const { return missingRows != 0 || TotalOf(*this) > 0; }

ConversionChanges CheckConversion(Conversion const& conversion, std::function<void()> const& step) {
  ConversionChanges inOrder = CompareInOrder(conversion, step);
  if (!MayBeOutOfStep(inOrder)) return inOrder;
  ConversionChanges inAnyOrder = CompareInAnyOrder(conversion, step);
  // Rows in another order differ in nearly everything. A few values less are a coincidence, and the
  // comparison in order knows better what happened to them.
  bool const isReordered = 2 * TotalOf(inAnyOrder) < TotalOf(inOrder);
  return isReordered ? std::move(inAnyOrder) : std::move(inOrder);
}

}  // namespace fdo::tool

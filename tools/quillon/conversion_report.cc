#include "tools/quillon/conversion_report.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "tools/quillon/json_text.h"
#include "tools/quillon/messages.h"

namespace fdo::tool {

namespace {

std::string Counted(std::int64_t count, char const* noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::string Describe(ConversionReport::Column const& column, ChangeInfo const& info) {
  std::string note = fmt::format("column \"{}\": {} {}", column.name,
                                 Counted(column.changes.Count(info.change), "value"), info.text);
  bool const isRounding = info.change == Change::kNumberRounded || info.change == Change::kCoordinatesRounded;
  if (isRounding) note += fmt::format(", by {:.2g} at most", column.changes.largestDeviation);
  return note;
}

}  // namespace

bool ConversionReport::IsComplete() const {
  bool const valuesAreKept = std::all_of(columns.begin(), columns.end(),
                                         [](Column const& column) { return column.changes.Total() == 0; });
  return rows.refused.empty() && surplusRows == 0 && leftColumns.empty() && valuesAreKept;
}

std::vector<std::string> ConversionReport::Notes() const {
  std::vector<std::string> notes;
  for (auto const& [reason, count] : rows.reasons) {
    notes.push_back(fmt::format("{} refused: {}", Counted(count, "row"),
                                reason.empty() ? "no reason given" : OneLine(reason)));
  }
  if (surplusRows > 0) notes.push_back(fmt::format("{} too many in the target", Counted(surplusRows, "row")));
  for (auto const& name : leftColumns) {
    notes.push_back(fmt::format("column \"{}\": left out, its type cannot be written", name));
  }
  for (Column const& column : columns) {
    bool const isRenamed = checked && !column.targetName.empty() && column.targetName != column.name;
    if (isRenamed)
      notes.push_back(fmt::format("column \"{}\": named \"{}\" there", column.name, column.targetName));
    for (ChangeInfo const& info : kChanges) {
      if (column.changes.Count(info.change) > 0) notes.push_back(Describe(column, info));
    }
  }
  return notes;
}

std::string ConversionReport::Summary() const {
  return fmt::format("{} written to {} ({}){}\n", Counted(rows.written, "row"), target, driver,
                     checked ? "" : ", not checked");
}

std::string ConversionReport::Json() const {
  JsonDocument json;
  json.BeginObject();
  json.Text("source", std::string_view(source));
  json.Text("table", std::string_view(table));
  json.Text("target", std::string_view(target));
  json.Text("driver", std::string_view(driver));
  json.Integer("rows_read", rows.read);
  json.Integer("rows_written", rows.written);
  json.Integer("rows_refused", static_cast<std::int64_t>(rows.refused.size()));
  json.BeginArray("reasons");
  for (auto const& [reason, count] : rows.reasons) {
    json.BeginObject();
    json.Text("reason", std::string_view(reason));
    json.Integer("rows", count);
    json.EndObject();
  }
  json.EndArray();
  json.Flag("checked", checked);
  json.Integer("rows_surplus", surplusRows);
  json.Flag("complete", IsComplete());
  json.BeginArray("columns_left_out");
  for (auto const& name : leftColumns) json.Text({}, std::string_view(name));
  json.EndArray();
  json.BeginArray("columns");
  for (Column const& column : columns) {
    json.BeginObject();
    json.Text("name", std::string_view(column.name));
    if (column.targetName.empty()) {
      json.Null("target_name");
    } else {
      json.Text("target_name", std::string_view(column.targetName));
    }
    json.BeginObject("changes");
    for (ChangeInfo const& info : kChanges) {
      if (column.changes.Count(info.change) > 0) json.Integer(info.name, column.changes.Count(info.change));
    }
    json.EndObject();
    if (column.changes.largestDeviation > 0)
      json.Number("largest_deviation", column.changes.largestDeviation);
    json.EndObject();
  }
  json.EndArray();
  json.EndObject();
  return std::move(json).Finish();
}

}  // namespace fdo::tool

#include "tools/quillon/query_plan.h"

#include <fdo/database_ogr.h>

#include <fmt/format.h>

#include "tools/quillon/json_text.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/program_listing.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

enum class Runner { kNobody, kProvider, kGdal, kTool };

struct RunnerInfo {
  Runner runner;
  char const* name;  // in JSON
};

constexpr RunnerInfo kRunners[] = {
    {Runner::kNobody, "none"},
    {Runner::kProvider, "provider"},
    {Runner::kGdal, "gdal"},
    {Runner::kTool, "rows"},
};

char const* NameOf(Runner runner) {
  for (RunnerInfo const& info : kRunners) {
    if (info.runner == runner) return info.name;
  }
  return "";
}

struct Plan {
  Runner runner = Runner::kNobody;
  std::string backEnd;  // the provider, or GDAL's driver
  FilterPlan filter;    // where GDAL reads the source
};

Plan MakePlan(Source const& source, Table const& table, BoundSelection const& bound) {
  Plan plan;
  Database const* const database = source.database;
  plan.backEnd = Utf8(database->ProviderName());
  if (bound.filter == nullptr) return plan;
  plan.runner = Runner::kProvider;
  if (source.throughGdal == nullptr) return plan;
  plan.filter = source.throughGdal->ExplainFilter(table, bound.filter.p);
  if (plan.filter.way == FilterPlan::kRefused) throw FilterRefused(source.name, Utf8(plan.filter.reason));
  plan.runner = plan.filter.way == FilterPlan::kCondition ? Runner::kGdal : Runner::kTool;
  return plan;
}

std::string BoxText(double const* box) { return fmt::format("{},{},{},{}", box[0], box[1], box[2], box[3]); }

std::string AsText(Plan const& plan, BoundSelection const& bound) {
  std::string text = "filter: ";
  switch (plan.runner) {
    case Runner::kNobody:
      text += "none\n";
      break;
    case Runner::kProvider:
      text += "run by the provider " + plan.backEnd + "\n";
      break;
    case Runner::kGdal:
      text += fmt::format("run by GDAL ({}) as {}\n", plan.backEnd, Utf8(plan.filter.condition));
      break;
    case Runner::kTool:
      text += fmt::format("computed row by row, since GDAL cannot run it: {}\n", Utf8(plan.filter.reason));
      if (!plan.filter.condition.empty()) {
        text += fmt::format("rows: those that GDAL ({}) finds by {}\n", plan.backEnd,
                            Utf8(plan.filter.condition));
      }
      break;
  }
  if (bound.box) {
    text += "box: " + BoxText(bound.box->data()) + "\n";
  } else if (plan.filter.narrows) {
    text += "box: " + BoxText(plan.filter.box) + ", of the filter's geometry\n";
  }
  if (plan.runner == Runner::kTool) text += "program:\n" + Utf8(plan.filter.program);
  return text;
}

std::string AsJson(Plan const& plan, BoundSelection const& bound) {
  auto const addBox = [](JsonDocument& json, double const* box) {
    json.BeginArray("box");
    for (int i = 0; i < 4; ++i) json.Number({}, box[i]);
    json.EndArray();
  };
  JsonDocument json;
  json.BeginObject();
  json.Text("filter", std::string_view(NameOf(plan.runner)));
  json.Text("back_end", std::string_view(plan.backEnd));
  if (!plan.filter.condition.empty()) json.Text("condition", std::wstring_view(plan.filter.condition));
  if (plan.runner == Runner::kTool) json.Text("reason", std::wstring_view(plan.filter.reason));
  if (bound.box) {
    addBox(json, bound.box->data());
  } else if (plan.filter.narrows) {
    addBox(json, plan.filter.box);
  }
  if (plan.runner == Runner::kTool) AddProgram(json, plan.filter.program);
  json.EndObject();
  return std::move(json).Finish();
}

}  // namespace

void WriteQueryPlan(Source const& source, Table const& table, BoundSelection const& bound, bool asJson,
                    Output& output) {
  Plan const plan = MakePlan(source, table, bound);
  output.Write(asJson ? AsJson(plan, bound) : AsText(plan, bound));
}

}  // namespace fdo::tool

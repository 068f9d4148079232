#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include <filesystem>
#include <memory>
#include <system_error>

#include "tools/quillon/command.h"
#include "tools/quillon/conversion_check.h"
#include "tools/quillon/conversion_report.h"
#include "tools/quillon/conversion_target.h"
#include "tools/quillon/interruption.h"
#include "tools/quillon/messages.h"
#include "tools/quillon/open_source.h"
#include "tools/quillon/path_text.h"
#include "tools/quillon/row_copier.h"
#include "tools/quillon/selection.h"
#include "tools/quillon/staged_target.h"
#include "tools/quillon/target_definition.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

char const kConvertDetails[] =
    "The target appears under its name complete or not at all. It is read back and compared with the "
    "source;\n"
    "whatever is not the same (text cut, numbers rounded, nulls written as 0, Z or M dropped, rows refused)\n"
    "is listed for each column, and the exit code is then 4. Rings may start elsewhere or run the other "
    "way,\n"
    "and a geometry of one part may gain or lose the collection around it: that is the same. Rows get new\n"
    "ids. Drivers without geometry (CSV) get a text column \"WKT\". A target that an FDO provider writes, "
    "such\n"
    "as .sqlite, is made by that, and by GDAL where there is no such provider.\n"
    "\n"
    "  quillon convert world.shp world.gpkg\n"
    "  quillon convert world.gpkg africa.fgb --where \"continent = 'Africa'\" --select name_long,pop,geom\n"
    "  quillon convert roads.shp roads.sqlite\n"
    "  quillon convert roads.gpkg roads.json --format GeoJSON --overwrite --json";

namespace {

struct ConvertOptions {
  SourceOptions source;
  std::string target;
  Selection selection;
  std::string format;
  bool overwrite = false;
  bool noCheck = false;
  bool json = false;
};

// One run of the command.
class Converter {
 public:
  Converter(ConvertOptions const& options, Session& session) : options_(options), session_(session) {}

  ExitCode Run() {
    Source source = OpenSource(options_.source, session_);
    Table& table = FindTable(source, options_.selection.table);
    TableDef const& def = *table.Def();
    BoundSelection const selection = Bind(options_.selection, def);
    TargetFormat const format = TargetFormat::Choose(options_.target, options_.format);
    RefuseSourceAsTarget(source);

    report_.source = source.name;
    report_.table = Utf8(def.Name());
    report_.target = options_.target;
    columns_ = ColumnsToWrite(def, selection.columns, report_.leftColumns);
    for (int column : columns_) report_.columns.push_back({Utf8(def[column].Name()), "", {}});

    StagedTarget staged(options_.target, options_.overwrite ? Overwrite::kReplace : Overwrite::kRefuse);
    {
      ConversionTarget target(options_.target, staged.Path(), format, def, columns_, session_);
      report_.driver = target.Driver();
      Write(table, selection, target);
      readError_ = ReadError(source);
      if (!options_.noCheck) Check(table, selection, target.Reopen());
    }  // closed, so that it can be moved
    StopIfInterrupted();
    staged.Commit();
    return Report();
  }

 private:
  void RefuseSourceAsTarget(Source const& source) const {
    auto files = FilesOf(source);
    files.push_back(source.name);
    for (std::string const& file : files) {
      std::error_code ignored;
      if (std::filesystem::equivalent(PathOf(file), PathOf(options_.target), ignored))
        throw TargetIsSource(options_.target);
    }
  }

  void Write(Table& table, BoundSelection const& selection, ConversionTarget& target) {
    constexpr bool kAllowScan = true;
    std::int64_t const total = options_.selection.where.empty() && options_.selection.box.empty()
                                   ? table.GetRowCount(nullptr, !kAllowScan)
                                   : -1;
    CopyEvents const events = {[&] { return target.LastError(); },
                               [&] { sourceFailed_ = session_.ShowDiagnostics(); },
                               [&](CopiedRows const& rows) { Step("writing", rows.read, total); }};
    report_.rows = CopyRows(table, selection, columns_, target.Rows(), target.GeometryAsText(), events);
    if (sourceFailed_ && report_.rows.read == 0) throw QueryFailed(options_.source.source);
    std::string const closing = target.Close();
    if (session_.ShowDiagnostics()) throw CannotFinish(options_.target);
    if (report_.rows.read > 0 && report_.rows.written == 0) {
      auto const& reasons = report_.rows.reasons;
      throw NothingWritten(options_.target, report_.rows.read,
                           reasons.empty() ? closing : reasons.begin()->first);
    }
  }

  void Check(Table& table, BoundSelection const& selection, Database& written) {
    Table* const named = written[table.Def()->Name()];
    Table& target = named == nullptr ? written[0] : *named;
    auto const matches = MatchColumns(*table.Def(), columns_, *target.Def());

    std::int64_t compared = 0;
    ConversionChanges const changes =
        CheckConversion({table, selection, columns_, matches, report_.rows.refused, target},
                        [&] { Step("checking", ++compared, report_.rows.written); });
    // The format took them and lost them: what is there is half a target.
    if (changes.missingRows > 0) throw RowsLost(options_.target, changes.missingRows, report_.rows.written);
    report_.checked = true;
    report_.surplusRows = -changes.missingRows;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      report_.columns[i].changes = changes.columns[i];
      bool const isGeometry = columns_[i] == table.Def()->IndexOfGeom();
      // Each format calls its geometry as it likes; that is no news.
      if (isGeometry && matches[i] >= 0) report_.columns[i].targetName = report_.columns[i].name;
      if (!isGeometry && matches[i] >= 0)
        report_.columns[i].targetName = Utf8((*target.Def())[matches[i]].Name());
    }
    if (sourceFailed_) {
      session_.ForgiveDiagnostics();  // the source says the same again
    } else if (session_.ShowDiagnostics()) {
      throw CannotReadBack(options_.target, "see above");
    }
  }

  ExitCode Report() {
    session_.console.ClearProgress();
    for (auto const& note : report_.Notes()) session_.console.Note(note);
    bool const readAll = readError_.empty() && !sourceFailed_;
    if (!readAll) session_.console.Error(RowsMissing(options_.source.source, readError_).message);
    session_.output.Write(options_.json ? report_.Json() : report_.Summary());
    return report_.IsComplete() && readAll ? ExitCode::kDone : ExitCode::kPartlyDone;
  }

  void Step(char const* doing, std::int64_t done, std::int64_t total) {
    StopIfInterrupted();
    if (!session_.console.ProgressIsDue()) return;
    session_.console.Progress(total > 0 ? fmt::format("{}: {} of {} rows, {} %", doing, done, total,
                                                      std::min<std::int64_t>(100, 100 * done / total))
                                        : fmt::format("{}: {} rows", doing, done));
  }

  void StopIfInterrupted() const {
    if (watch_.Happened()) throw Interrupted(options_.target);
  }

  ConvertOptions const& options_;
  Session& session_;
  InterruptionWatch watch_;
  std::string readError_;      // why the source broke off
  bool sourceFailed_ = false;  // with messages that have been shown
  std::vector<int> columns_;   // positions in the source, as they are written
  ConversionReport report_;
};

}  // namespace

Action DefineConvert(CLI::App& app) {
  auto const options = std::make_shared<ConvertOptions>();
  options->source.Define(app, "What to read");
  app.add_option("TARGET", options->target, "The file to make")->required();
  options->selection.DefineTable(app);
  options->selection.DefineWhere(app);
  options->selection.DefineBox(app);
  options->selection.DefineColumns(app);
  app.add_option("--format", options->format,
                 "GDAL's short name of the target's driver, or an FDO provider's name, unless the target's "
                 "name tells")
      ->type_name("DRIVER");
  app.add_flag("--overwrite", options->overwrite,
               "Replace an existing file once the new one is complete; a folder never");
  app.add_flag("--no-check", options->noCheck, "Do not read the target back");
  app.add_flag("--json", options->json, "Print the summary as one JSON document");
  return [options](Session& session) { return Converter(*options, session).Run(); };
}

}  // namespace fdo::tool

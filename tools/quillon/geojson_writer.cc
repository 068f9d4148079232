// Features of GeoJSON (RFC 7946), as one FeatureCollection or as one feature per line. The identity
// column, if it is among the columns, is the feature's id, the main geometry column its geometry, and
// everything else a property. Coordinates are written as they are, in whatever system they have.
#include "tools/quillon/cell_text.h"
#include "tools/quillon/json_text.h"
#include "tools/quillon/row_writer.h"

namespace fdo::tool {

namespace {

enum class Frame { kCollection, kLines };

class GeoJsonWriter : public RowWriter {
 public:
  GeoJsonWriter(Output& output, TableDef const& def, std::vector<int> columns, Frame frame)
      : RowWriter(output, def, std::move(columns)), frame_(frame) {
    for (int column : columns_) {
      if (column == def_.IndexOfID()) {
        hasId_ = true;
      } else if (column == def_.IndexOfGeom()) {
        hasGeometry_ = true;
      } else {
        properties_.push_back(column);
        std::string& key = keys_.emplace_back();
        AppendJsonString(key, std::wstring_view(def_[column].Name()));
        key += ':';
      }
    }
  }

  void Begin() override {
    if (frame_ == Frame::kCollection) output_.Write(R"({"type":"FeatureCollection","features":[)");
  }

  void Write(Row const& row) override {
    line_.clear();
    if (frame_ == Frame::kCollection) line_ = isFirst_ ? "\n" : ",\n";
    isFirst_ = false;
    line_ += R"({"type":"Feature",)";
    if (hasId_ && !IsNothing(row[def_.IndexOfID()])) {
      line_ += R"("id":)";
      AppendCellJson(line_, row[def_.IndexOfID()], def_.ID().Type());
      line_ += ',';
    }
    line_ += R"("properties":{)";
    for (std::size_t i = 0; i < properties_.size(); ++i) {
      if (i > 0) line_ += ',';
      line_ += keys_[i];
      AppendCellJson(line_, row[properties_[i]], def_[properties_[i]].Type());
    }
    line_ += R"(},"geometry":)";
    if (hasGeometry_) {
      AppendCellJson(line_, row[def_.IndexOfGeom()], ColumnDef::kGeometry);
    } else {
      line_ += "null";
    }
    line_ += frame_ == Frame::kCollection ? "}" : "}\n";
    output_.Write(line_);
  }

  void End() override {
    if (frame_ == Frame::kCollection) output_.Write(isFirst_ ? "]}\n" : "\n]}\n");
  }

 private:
  Frame const frame_;
  bool hasId_ = false;
  bool hasGeometry_ = false;
  std::vector<int> properties_;
  std::vector<std::string> keys_;  // of the properties, quoted, with the colon
  std::string line_;
  bool isFirst_ = true;
};

}  // namespace

std::unique_ptr<RowWriter> MakeGeoJsonWriter(Output& output, TableDef const& def, std::vector<int> columns) {
  return std::make_unique<GeoJsonWriter>(output, def, std::move(columns), Frame::kCollection);
}

std::unique_ptr<RowWriter> MakeGeoJsonLinesWriter(Output& output, TableDef const& def,
                                                  std::vector<int> columns) {
  return std::make_unique<GeoJsonWriter>(output, def, std::move(columns), Frame::kLines);
}

}  // namespace fdo::tool

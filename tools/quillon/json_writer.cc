// Rows as an array of JSON objects, one line each, members in the order of the columns.
#include "tools/quillon/cell_text.h"
#include "tools/quillon/json_text.h"
#include "tools/quillon/row_writer.h"

namespace fdo::tool {

namespace {

class JsonWriter : public RowWriter {
 public:
  JsonWriter(Output& output, TableDef const& def, std::vector<int> columns)
      : RowWriter(output, def, std::move(columns)) {
    for (int column : columns_) {
      std::string& key = keys_.emplace_back();
      AppendJsonString(key, std::wstring_view(def_[column].Name()));
      key += ':';
    }
  }

  void Begin() override { output_.Write("["); }

  void Write(Row const& row) override {
    line_ = isFirst_ ? "\n{" : ",\n{";
    isFirst_ = false;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (i > 0) line_ += ',';
      line_ += keys_[i];
      AppendCellJson(line_, row[columns_[i]], def_[columns_[i]].Type());
    }
    line_ += '}';
    output_.Write(line_);
  }

  void End() override { output_.Write(isFirst_ ? "]\n" : "\n]\n"); }

 private:
  std::vector<std::string> keys_;  // quoted, with the colon
  std::string line_;
  bool isFirst_ = true;
};

}  // namespace

std::unique_ptr<RowWriter> MakeJsonWriter(Output& output, TableDef const& def, std::vector<int> columns) {
  return std::make_unique<JsonWriter>(output, def, std::move(columns));
}

}  // namespace fdo::tool

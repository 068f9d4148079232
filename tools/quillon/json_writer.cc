// Rows as an array of JSON objects, one line each, members in the order of the columns.
#include <algorithm>
#include <cwchar>

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
      if (IsShownAgain(column)) continue;
      written_.push_back(column);
      std::string& key = keys_.emplace_back();
      AppendJsonString(key, std::wstring_view(def_[column].Name()));
      key += ':';
    }
  }

  void Begin() override { output_.Write("["); }

  void Write(Row const& row) override {
    line_ = isFirst_ ? "\n{" : ",\n{";
    isFirst_ = false;
    for (std::size_t i = 0; i < written_.size(); ++i) {
      if (i > 0) line_ += ',';
      line_ += keys_[i];
      AppendCellJson(line_, row[written_[i]], def_[written_[i]].Type());
    }
    line_ += '}';
    output_.Write(line_);
  }

  void End() override { output_.Write(isFirst_ ? "]\n" : "\n]\n"); }

 private:
  // A file whose id is one of its fields has two columns of that name; an object has one member.
  bool IsShownAgain(int column) const {
    return column == def_.IndexOfID() && std::any_of(columns_.begin(), columns_.end(), [&](int other) {
             return other != column && std::wcscmp(def_[other].Name(), def_[column].Name()) == 0;
           });
  }

  std::vector<int> written_;
  std::vector<std::string> keys_;  // quoted, with the colon
  std::string line_;
  bool isFirst_ = true;
};

}  // namespace

std::unique_ptr<RowWriter> MakeJsonWriter(Output& output, TableDef const& def, std::vector<int> columns) {
  return std::make_unique<JsonWriter>(output, def, std::move(columns));
}

}  // namespace fdo::tool

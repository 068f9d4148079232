// Comma-separated values as RFC 4180 has them: a line of names, CR LF after every record, and double
// quotes around what needs them. An empty text is quoted and a null is not, so that both can be told
// apart.
#include "tools/quillon/cell_text.h"
#include "tools/quillon/row_writer.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

class CsvWriter : public RowWriter {
 public:
  using RowWriter::RowWriter;

  void Begin() override {
    record_.clear();
    for (int column : columns_) {
      Separate();
      AppendField(Utf8(def_[column].Name()));
    }
    EndRecord();
  }

  void Write(Row const& row) override {
    record_.clear();
    for (int column : columns_) {
      Separate();
      cell_.clear();
      if (AppendCellText(cell_, row[column], def_[column].Type())) AppendField(cell_);
    }
    EndRecord();
  }

  void End() override {}

 private:
  void Separate() {
    if (isFirst_) {
      isFirst_ = false;
    } else {
      record_ += ',';
    }
  }

  void AppendField(std::string const& text) {
    if (!text.empty() && text.find_first_of(",\"\r\n") == std::string::npos) {
      record_ += text;
      return;
    }
    record_ += '"';
    for (char c : text) {
      if (c == '"') record_ += '"';
      record_ += c;
    }
    record_ += '"';
  }

  void EndRecord() {
    record_ += "\r\n";
    output_.Write(record_);
    isFirst_ = true;
  }

  std::string record_;
  std::string cell_;
  bool isFirst_ = true;
};

}  // namespace

std::unique_ptr<RowWriter> MakeCsvWriter(Output& output, TableDef const& def, std::vector<int> columns) {
  return std::make_unique<CsvWriter>(output, def, std::move(columns));
}

}  // namespace fdo::tool

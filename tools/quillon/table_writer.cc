// Rows in aligned columns. The first rows decide how wide the columns are; a later cell that does not
// fit is cut. A last line counts the rows.
#include "tools/quillon/cell_text.h"
#include "tools/quillon/row_writer.h"
#include "tools/quillon/text_table.h"
#include "tools/quillon/utf8.h"

namespace fdo::tool {

namespace {

constexpr std::size_t kMeasuredRows = 100;

class TableWriter : public RowWriter {
 public:
  using RowWriter::RowWriter;

  void Begin() override {
    for (int column : columns_) {
      table_.AddColumn(Utf8(def_[column].Name()),
                       IsNumeric(def_[column].Type()) ? Align::kRight : Align::kLeft);
    }
  }

  void Write(Row const& row) override {
    std::vector<std::string> cells(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      AppendCellText(cells[i], row[columns_[i]], def_[columns_[i]].Type());
    }
    ++rows_;
    if (isMeasured_) {
      output_.Write(table_.Line(cells));
      return;
    }
    first_.push_back(std::move(cells));
    if (first_.size() == kMeasuredRows) WriteFirst();
  }

  void End() override {
    if (!isMeasured_) WriteFirst();
    output_.Write(rows_ == 1 ? std::string("1 row\n") : std::to_string(rows_) + " rows\n");
  }

 private:
  void WriteFirst() {
    for (auto const& cells : first_) table_.Measure(cells);
    output_.Write(table_.Header());
    for (auto const& cells : first_) output_.Write(table_.Line(cells));
    first_.clear();
    isMeasured_ = true;
  }

  TextTable table_;
  std::vector<std::vector<std::string>> first_;
  bool isMeasured_ = false;
  long long rows_ = 0;
};

}  // namespace

std::unique_ptr<RowWriter> MakeTableWriter(Output& output, TableDef const& def, std::vector<int> columns) {
  return std::make_unique<TableWriter>(output, def, std::move(columns));
}

}  // namespace fdo::tool

#include "tools/quillon/row_writer.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "testing/fgf_builder.h"

namespace fdo::tool {
namespace {

// A table with every kind of cell, and rows to write.
class RowWriterTest : public testing::Test {
 protected:
  RowWriterTest() {
    ColumnDef columns[7];
    struct {
      wchar_t const* name;
      ColumnDef::DataType type;
    } const kinds[] = {
        {L"fid", ColumnDef::kInt64},      {L"geom", ColumnDef::kGeometry}, {L"name", ColumnDef::kString},
        {L"pop", ColumnDef::kDouble},     {L"open", ColumnDef::kBoolean},  {L"photo", ColumnDef::kBlob},
        {L"built", ColumnDef::kDateTime},
    };
    for (int i = 0; i < 7; ++i) columns[i].Initialize(kinds[i].name, kinds[i].type, 0, Value(), nullptr);
    def_.Initialize(L"", L"places", columns, 7, 0, 1, 0);
  }

  Row Full() const {
    auto const point = Fgf("POINT (1.5 -2)");
    Row row(&def_);
    row[0].Reset(7);
    row[1].Reset(point.data(), static_cast<int>(point.size()), true);
    row[2].Reset(L"S\u00e3o \"P\", x", true);
    row[3].Reset(0.1);
    row[4].Reset(true);
    row[5].Reset("\x01\xab", 2, true);
    row[6].Reset(L"2024-03-01", true);
    return row;
  }

  Row Empty() const {
    Row row(&def_);
    row[0].Reset(8);
    for (int i = 1; i < 7; ++i) row[i].Reset();
    row[2].Reset(L"", true);
    return row;
  }

  std::string Write(MakeRowWriter make, std::vector<int> columns, std::vector<Row> const& rows) const {
    std::FILE* const file = std::tmpfile();
    Output output(file);
    auto const writer = make(output, def_, std::move(columns));
    writer->Begin();
    for (Row const& row : rows) writer->Write(row);
    writer->End();
    output.Flush();
    std::rewind(file);
    std::string text(1 << 16, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file));
    std::fclose(file);
    return text;
  }

  std::vector<int> const all_ = {0, 1, 2, 3, 4, 5, 6};
  TableDef def_;
};

TEST_F(RowWriterTest, CsvQuotesAsRfc4180Says) {
  EXPECT_EQ(Write(MakeCsvWriter, all_, {Full(), Empty()}),
            "fid,geom,name,pop,open,photo,built\r\n"
            "7,POINT (1.5 -2),\"S\xc3\xa3o \"\"P\"\", x\",0.1,true,01ab,2024-03-01\r\n"
            "8,,\"\",,,,\r\n");
}

TEST_F(RowWriterTest, CsvQuotesLineBreaks) {
  Row row = Empty();
  row[2].Reset(L"a\r\nb", true);
  EXPECT_EQ(Write(MakeCsvWriter, {2}, {row}), "name\r\n\"a\r\nb\"\r\n");
}

TEST_F(RowWriterTest, JsonIsOneObjectPerLine) {
  EXPECT_EQ(Write(MakeJsonWriter, all_, {Full(), Empty()}),
            "[\n"
            R"({"fid":7,"geom":{"type":"Point","coordinates":[1.5,-2]},"name":"São \"P\", x","pop":0.1,)"
            R"("open":true,"photo":"01ab","built":"2024-03-01"},)"
            "\n"
            R"({"fid":8,"geom":null,"name":"","pop":null,"open":null,"photo":null,"built":null})"
            "\n]\n");
}

TEST_F(RowWriterTest, JsonKeepsTheOrderOfTheColumns) {
  EXPECT_EQ(Write(MakeJsonWriter, {3, 0}, {Full()}), "[\n{\"pop\":0.1,\"fid\":7}\n]\n");
}

TEST_F(RowWriterTest, JsonHasNoNumbersThatAreNotFinite) {
  Row row = Empty();
  row[3].Reset(std::numeric_limits<double>::infinity());
  EXPECT_EQ(Write(MakeJsonWriter, {3}, {row}), "[\n{\"pop\":null}\n]\n");
}

TEST_F(RowWriterTest, GeoJsonMakesFeatures) {
  EXPECT_EQ(Write(MakeGeoJsonWriter, {0, 1, 2}, {Full(), Empty()}),
            R"({"type":"FeatureCollection","features":[)"
            "\n"
            R"({"type":"Feature","id":7,"properties":{"name":"São \"P\", x"},)"
            R"("geometry":{"type":"Point","coordinates":[1.5,-2]}},)"
            "\n"
            R"({"type":"Feature","id":8,"properties":{"name":""},"geometry":null})"
            "\n]}\n");
}

TEST_F(RowWriterTest, GeoJsonWithoutIdAndGeometry) {
  EXPECT_EQ(Write(MakeGeoJsonLinesWriter, {3}, {Full(), Empty()}),
            R"({"type":"Feature","properties":{"pop":0.1},"geometry":null})"
            "\n"
            R"({"type":"Feature","properties":{"pop":null},"geometry":null})"
            "\n");
}

TEST_F(RowWriterTest, NoRowsAreACompleteDocument) {
  EXPECT_EQ(Write(MakeCsvWriter, {0, 2}, {}), "fid,name\r\n");
  EXPECT_EQ(Write(MakeJsonWriter, all_, {}), "[]\n");
  EXPECT_EQ(Write(MakeGeoJsonWriter, all_, {}), "{\"type\":\"FeatureCollection\",\"features\":[]}\n");
  EXPECT_EQ(Write(MakeGeoJsonLinesWriter, all_, {}), "");
  EXPECT_EQ(Write(MakeTableWriter, {0, 2}, {}), "fid  name\n---  ----\n0 rows\n");
}

TEST_F(RowWriterTest, TableAlignsNumbersRight) {
  EXPECT_EQ(Write(MakeTableWriter, {0, 2, 3, 1}, {Full(), Empty()}),
            "fid  name        pop  geom\n"
            "---  ----------  ---  --------------\n"
            "  7  S\xc3\xa3o \"P\", x  0.1  POINT (1.5 -2)\n"
            "  8\n"
            "2 rows\n");
}

// Every line of the JSON forms is read by a parser of its own.
TEST_F(RowWriterTest, EveryJsonFormParses) {
  auto const array = nlohmann::json::parse(Write(MakeJsonWriter, all_, {Full(), Empty()}));
  EXPECT_EQ(array.size(), 2u);
  EXPECT_EQ(array[0]["name"], "S\xc3\xa3o \"P\", x");
  auto const collection = nlohmann::json::parse(Write(MakeGeoJsonWriter, all_, {Full(), Empty()}));
  EXPECT_EQ(collection["features"][1]["properties"]["pop"], nullptr);
  EXPECT_EQ(collection["features"][0]["geometry"]["coordinates"][1], -2);
}

}  // namespace
}  // namespace fdo::tool

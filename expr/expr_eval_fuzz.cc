// Text from anywhere as an expression, or as a filter: it is refused, or it is compiled and computed for a
// few rows, in every mode. The first byte says which of the two it is.
#include <Fdo.h>
#include <fdo/expr_eval.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <limits>
#include <string>
#include <vector>

#include "testing/fgf_builder.h"
#include "testing/schema_builder.h"

namespace {

fdo::TableDef const& Def() {
  static fdo::TableDef const def =
      fdo::MakeTableDef(L"s", L"t", L"id:Int64 a:Int32 b:Double name:String flag:Boolean shape:Geometry");
  return def;
}

std::vector<fdo::Row> const& Rows() {
  static std::vector<fdo::Row> const rows = [] {
    std::vector<fdo::Row> made(2, fdo::Row(&Def()));
    std::vector<unsigned char> const point = fdo::Fgf("POINT (1 2)");
    made[0][0].Reset(7);
    made[0][1].Reset(std::numeric_limits<long long>::min());
    made[0][2].Reset(2.5);
    made[0][3].Reset(L"text", true);
    made[0][4].Reset(true);
    made[0][5].Reset(point.data(), static_cast<int>(point.size()), true);
    for (int column = 0; column < Def().ColumnCount(); ++column) made[1][column].Reset();
    return made;
  }();
  return rows;
}

// Whether computing it may end the process, as it is documented.
bool MayTrap(fdo::ExprEval const& eval) {
  std::wstring const listing = eval.Listing();
  return listing.find(L"OpDiv") != std::wstring::npos || listing.find(L" mod\n") != std::wstring::npos;
}

template <class Tree>
void Evaluate(Tree* tree, fdo::ExprOptions const& options, fdo::TableDef const* table) {
  try {
    fdo::ExprEval eval(tree, table, nullptr, options);
    if (!options.allConditions && MayTrap(eval)) return;
    for (fdo::Row const& row : Rows()) {
      try {
        fdo::Value result;
        // Undefined columns aside, which there are none of, a value is defined exactly where there is one.
        if (eval.Eval(&row, &result) != result.IsValid()) std::abort();
      } catch (std::exception const&) {
      } catch (FdoException* raised) {
        FdoPtr<FdoException> const failure(raised);
      }
    }
  } catch (std::exception const& refused) {
    if (refused.what()[0] == 0) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  if (size == 0) return 0;
  std::string const bytes(reinterpret_cast<char const*>(data) + 1, size - 1);
  FdoStringP const text(bytes.c_str());
  bool const isFilter = data[0] == 'f';
  FdoPtr<FdoFilter> filter;
  FdoPtr<FdoExpression> expression;
  try {
    if (isFilter) {
      filter = FdoFilter::Parse(text);
    } else {
      expression = FdoExpression::Parse(text);
    }
  } catch (FdoException* refused) {
    FdoPtr<FdoException> const failure(refused);
    return 0;
  }
  constexpr int kModes = 5;
  for (int mode = 0; mode < kModes; ++mode) {
    fdo::ExprOptions const options =
        mode == kModes - 1 ? fdo::ExprOptions::AsInSql() : fdo::ExprOptions{(mode & 1) != 0, (mode & 2) != 0};
    for (fdo::TableDef const* table : {&Def(), static_cast<fdo::TableDef const*>(nullptr)}) {
      if (isFilter) {
        Evaluate(filter.p, options, table);
      } else {
        Evaluate(expression.p, options, table);
      }
    }
  }
  return 0;
}

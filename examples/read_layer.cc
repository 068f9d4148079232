// Reads the rows of a vector file that match a filter. The first example to look at.
//
//   read_layer world.gpkg "pop > 200000000"
#include <Fdo.h>
#include <fdo/quillon.h>

#include <iostream>

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::cerr << "usage: read_layer FILE FILTER\n";
    return 2;
  }
  fdo::DatabaseOgr source;
  if (!source.Connect(fdo::ToWide(argv[1]).c_str(), nullptr, nullptr, /*readOnly=*/true,
                      /*loadSchema=*/true)) {
    std::cerr << "cannot open " << argv[1] << "\n";
    return 1;
  }
  int const name = source.Count() == 0 ? -1 : source[0].Def()->IndexOf(L"name_long");
  if (name < 0) {
    std::cerr << "there is no table with a column name_long\n";
    return 1;
  }

  fdo::Table& table = source[0];
  FdoPtr<FdoFilter> filter = FdoFilter::Parse(fdo::ToWide(argv[2]).c_str());
  table.Query(filter, nullptr, true);

  int rows = 0;
  while (fdo::Row const* row = table.Next()) {
    double box[4];
    row->GeomBBOX(box, -1);
    std::cout << row->ID() << "  " << fdo::ToUtf8((*row)[name]) << "  [" << box[0] << ", " << box[1] << ", "
              << box[2] << ", " << box[3] << "]\n";
    ++rows;
  }
  std::cout << rows << " rows\n";
  return 0;
} catch (FdoException* failure) {
  FdoPtr<FdoException> owned(failure);
  std::cerr << fdo::ToUtf8(failure->GetExceptionMessage()) << "\n";
  return 1;
}

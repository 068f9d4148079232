// A class with a property of every type, for tests of what filters become.
#ifndef SDK_PROVIDERS_SQLITE_SAMPLE_CLASS_H_
#define SDK_PROVIDERS_SQLITE_SAMPLE_CLASS_H_

#include <string>

#include "sdk/providers/sqlite/store_schema.h"

namespace fdo_sqlite {

// Parts: the identity Id; Flag, Tiny, Short, Whole, Big, Price, Real, Half, Name, Built and Data, one of each
// type; the geometries Shape in FGF and Outline in WKB.
StoreClass SampleClass();

// The statement that makes its table.
std::string SampleTableSql();

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_SAMPLE_CLASS_H_

// The functions of this provider as its capabilities list them.
#ifndef SDK_PROVIDERS_SQLITE_FUNCTION_DEFINITIONS_H_
#define SDK_PROVIDERS_SQLITE_FUNCTION_DEFINITIONS_H_

#include "Fdo.h"

namespace fdo_sqlite {

// The well-known functions that function_table.h has, with those of their signatures that it takes, and its
// own. Each signature is tried on the table, so what is listed can be called.
// Gives: one reference.
FdoFunctionDefinitionCollection* MakeFunctionDefinitions(FdoFunctionDefinitionCollection& wellKnown);

}  // namespace fdo_sqlite

#endif  // SDK_PROVIDERS_SQLITE_FUNCTION_DEFINITIONS_H_

// A library that loads and exports nothing that a provider must.
#include "FdoStd.h"

extern "C" FDO_API int SomethingElse();

int SomethingElse() { return 1; }

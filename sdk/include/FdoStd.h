// What the headers under Fdo/ start from: the export macros and the common classes.
#ifndef FDO_STD_H_
#define FDO_STD_H_

#include "Common/Std.h"
#include "FdoCommon.h"

#endif  // FDO_STD_H_

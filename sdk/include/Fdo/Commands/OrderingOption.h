// The direction in which rows are ordered.
#ifndef FDO_COMMANDS_ORDERING_OPTION_H_
#define FDO_COMMANDS_ORDERING_OPTION_H_

enum FdoOrderingOption { FdoOrderingOption_Ascending = 0, FdoOrderingOption_Descending = 1 };

#endif  // FDO_COMMANDS_ORDERING_OPTION_H_

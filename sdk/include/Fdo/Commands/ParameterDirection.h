// Which way the value of a parameter goes.
#ifndef FDO_COMMANDS_PARAMETER_DIRECTION_H_
#define FDO_COMMANDS_PARAMETER_DIRECTION_H_

enum FdoParameterDirection {
  FdoParameterDirection_Input = 0,
  FdoParameterDirection_Output = 1,
  FdoParameterDirection_InputOutput = 2,
  FdoParameterDirection_Return = 3
};

#endif  // FDO_COMMANDS_PARAMETER_DIRECTION_H_

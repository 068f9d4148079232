// What a connection is doing.
#ifndef FDO_CONNECTIONS_CONNECTION_STATE_H_
#define FDO_CONNECTIONS_CONNECTION_STATE_H_

enum FdoConnectionState {
  FdoConnectionState_Busy = 0,
  FdoConnectionState_Closed = 1,
  FdoConnectionState_Open = 2,
  FdoConnectionState_Pending = 3
};

#endif  // FDO_CONNECTIONS_CONNECTION_STATE_H_

// What a connection allows several threads to do.
#ifndef FDO_CONNECTIONS_CAPABILITIES_THREAD_CAPABILITY_H_
#define FDO_CONNECTIONS_CAPABILITIES_THREAD_CAPABILITY_H_

enum FdoThreadCapability {
  FdoThreadCapability_SingleThreaded = 0,
  FdoThreadCapability_PerConnectionThreaded = 1,
  FdoThreadCapability_PerCommandThreaded = 2,
  FdoThreadCapability_MultiThreaded = 3
};

#endif  // FDO_CONNECTIONS_CAPABILITIES_THREAD_CAPABILITY_H_

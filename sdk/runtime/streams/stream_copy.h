// What every stream does when it is given another one to write.
#ifndef SDK_RUNTIME_STREAMS_STREAM_COPY_H_
#define SDK_RUNTIME_STREAMS_STREAM_COPY_H_

#include "Common/Io/Stream.h"

namespace fdo_sdk {

// As FdoIoStream::Write(FdoIoStream*, FdoSize).
void CopyStream(FdoIoStream& to, FdoIoStream* from, FdoSize count);

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_STREAMS_STREAM_COPY_H_

#include "Common/Io/Stream.h"

FdoIoStream::FdoIoStream() = default;

FdoIoStream::~FdoIoStream() = default;

FdoBoolean FdoIoStream::CanRead() { return true; }

FdoBoolean FdoIoStream::CanWrite() { return true; }

FdoBoolean FdoIoStream::HasContext() { return true; }

// The one-line messages of failures that an operation's result cannot explain.
#ifndef FDO_DIAGNOSTICS_H_
#define FDO_DIAGNOSTICS_H_

#include <fdo/export.h>

namespace fdo {

// Receives one message without the "Quillon error: " in front and the line break behind it.
// Borrowed: message, for the call. The handler must not throw; it may be called from any thread that
// uses the library, and calls may overlap.
using DiagnosticHandler = void (*)(wchar_t const* message, void* context);

// Sends every later message of the process to handler instead of the standard error stream, where it
// is written as "Quillon error: <message>" in UTF-8, or alone when it begins with words of its own, as
// "FDO connection failure"; a null handler restores that.
// Requires: context stays valid until another handler has been set and no message is on its way.
// Threads: any.
QUILLON_EXPORT void SetDiagnosticHandler(DiagnosticHandler handler, void* context);

}  // namespace fdo

#endif  // FDO_DIAGNOSTICS_H_

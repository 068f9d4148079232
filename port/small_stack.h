// Runs code on a stack of a chosen size, to show how deep it may nest. Every platform implements
// exactly this.
#ifndef PORT_SMALL_STACK_H_
#define PORT_SMALL_STACK_H_

#include <cstddef>

namespace fdo::port {

// Runs body(context) on a thread of its own with that much stack, and waits for it. An exception must
// not leave body.
// Errors: throws std::bad_alloc when there is no such thread to have; body has then not run.
void RunOnStack(std::size_t stackBytes, void (*body)(void* context), void* context);

}  // namespace fdo::port

#endif  // PORT_SMALL_STACK_H_

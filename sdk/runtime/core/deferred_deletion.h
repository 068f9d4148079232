// Deletes trees of nodes without going down them: a node that dies while another one is being deleted
// waits until that deletion is over, so the stack that a tree of any depth takes is that of one node.
#ifndef SDK_RUNTIME_CORE_DEFERRED_DELETION_H_
#define SDK_RUNTIME_CORE_DEFERRED_DELETION_H_

namespace fdo_sdk {

// Deletes the node now or, within the deletion of another node on this thread, right after that one.
// Threads: any.
void DeleteInTurn(void* node, void (*deleteNode)(void*));

}  // namespace fdo_sdk

#endif  // SDK_RUNTIME_CORE_DEFERRED_DELETION_H_

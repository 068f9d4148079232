#include "sdk/runtime/core/deferred_deletion.h"

#include <vector>

namespace fdo_sdk {
namespace {

struct Waiting {
  void* node;
  void (*deleteNode)(void*);
};

// Those that wait for the deletion under way on this thread; null when none is. A bare pointer, because
// nodes may be released after the thread's own objects are gone.
thread_local std::vector<Waiting>* waiting = nullptr;

}  // namespace

void DeleteInTurn(void* node, void (*deleteNode)(void*)) {
  if (waiting != nullptr) {
    waiting->push_back({node, deleteNode});
    return;
  }
  std::vector<Waiting> queue;
  waiting = &queue;
  deleteNode(node);
  while (!queue.empty()) {
    Waiting const next = queue.back();
    queue.pop_back();
    next.deleteNode(next.node);
  }
  waiting = nullptr;
}

}  // namespace fdo_sdk

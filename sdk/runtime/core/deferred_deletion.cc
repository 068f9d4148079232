#include "sdk/runtime/core/deferred_deletion.h"

#include <cstddef>
#include <new>
#include <vector>

namespace fdo_sdk {
namespace {

struct Waiting {
  void* node;
  void (*deleteNode)(void*);
};

// The last that came is taken first, so that few wait at a time, however deep a tree is: those need no
// memory.
class Queue {
 public:
  void Push(Waiting next) {
    if (count_ < kFew) {
      few_[count_++] = next;
      return;
    }
    try {
      more_.push_back(next);
    } catch (std::bad_alloc const&) {
      next.deleteNode(next.node);  // on top of the deletion under way
    }
  }
  // False when none waits.
  bool Pop(Waiting& next) {
    if (!more_.empty()) {
      next = more_.back();
      more_.pop_back();
      return true;
    }
    if (count_ == 0) return false;
    next = few_[--count_];
    return true;
  }

 private:
  static constexpr std::size_t kFew = 16;
  Waiting few_[kFew];
  std::size_t count_ = 0;
  std::vector<Waiting> more_;
};

// Those that wait for the deletion under way on this thread; null when none is. A bare pointer, because
// nodes may be released after the thread's own objects are gone.
thread_local Queue* waiting = nullptr;

}  // namespace

void DeleteInTurn(void* node, void (*deleteNode)(void*)) {
  if (waiting != nullptr) {
    waiting->Push({node, deleteNode});
    return;
  }
  Queue queue;
  waiting = &queue;
  deleteNode(node);
  for (Waiting next; queue.Pop(next);) next.deleteNode(next.node);
  waiting = nullptr;
}

}  // namespace fdo_sdk

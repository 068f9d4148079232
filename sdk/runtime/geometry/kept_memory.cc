#include "sdk/runtime/geometry/kept_memory.h"

#include <new>

namespace fdo_sdk {

#ifdef FDO_SDK_KEEPS_NO_MEMORY

void* TakeMemory(std::size_t size) { return ::operator new(size); }

void KeepMemory(void* memory, std::size_t) noexcept { ::operator delete(memory); }

#else

namespace {

constexpr std::size_t kGrain = 32;     // sizes are rounded up to multiples of it
constexpr std::size_t kSizes = 16;     // greater objects are not kept
constexpr unsigned kMostOfASize = 16;  // 68 KiB if there were objects of every size

// A piece of memory while it is kept.
struct Piece {
  Piece* next;
};

struct PiecesOfASize {
  Piece* first = nullptr;
  unsigned room = 0;  // how many more may be kept
};

enum class State { kUnused, kOpen, kClosed };

struct ThreadMemory {
  PiecesOfASize sizes[kSizes];
  State state = State::kUnused;
};

// Never destroyed, because objects may end after the thread's own are gone.
constinit thread_local ThreadMemory threadMemory;

struct ClosesAtThreadEnd {
  ~ClosesAtThreadEnd() {
    threadMemory.state = State::kClosed;
    for (PiecesOfASize& pieces : threadMemory.sizes) {
      pieces.room = 0;
      while (Piece* const piece = pieces.first) {
        pieces.first = piece->next;
        ::operator delete(piece);
      }
    }
  }
};

constexpr std::size_t SizeIndex(std::size_t size) { return (size - 1) / kGrain; }

void KeepFirst(Piece* piece, PiecesOfASize& pieces) noexcept {
  piece->next = pieces.first;
  pieces.first = piece;
  --pieces.room;
}

// The first use on a thread, a list that is full, and what ends after the thread's own objects.
void KeepWithoutRoom(Piece* piece, PiecesOfASize& pieces) noexcept {
  if (threadMemory.state != State::kUnused) {
    ::operator delete(piece);
    return;
  }
  thread_local ClosesAtThreadEnd const closes;
  threadMemory.state = State::kOpen;
  for (PiecesOfASize& each : threadMemory.sizes) each.room = kMostOfASize;
  KeepFirst(piece, pieces);
}

}  // namespace

void* TakeMemory(std::size_t size) {
  std::size_t const index = SizeIndex(size);
  if (index >= kSizes) return ::operator new(size);
  PiecesOfASize& pieces = threadMemory.sizes[index];
  Piece* const piece = pieces.first;
  if (piece == nullptr) return ::operator new((index + 1) * kGrain);
  pieces.first = piece->next;
  ++pieces.room;
  return piece;
}

void KeepMemory(void* memory, std::size_t size) noexcept {
  std::size_t const index = SizeIndex(size);
  if (memory == nullptr || index >= kSizes) {
    ::operator delete(memory);
    return;
  }
  auto* const piece = ::new (memory) Piece{nullptr};
  PiecesOfASize& pieces = threadMemory.sizes[index];
  if (pieces.room == 0) {
    KeepWithoutRoom(piece, pieces);
  } else {
    KeepFirst(piece, pieces);
  }
}

#endif  // FDO_SDK_KEEPS_NO_MEMORY

}  // namespace fdo_sdk

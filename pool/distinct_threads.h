// Thread ids for tests that play several threads on one.
#ifndef POOL_DISTINCT_THREADS_H_
#define POOL_DISTINCT_THREADS_H_

#include <cstddef>
#include <latch>
#include <thread>
#include <vector>

namespace fdo {

// Keeps some threads waiting for as long as it lives, so that their ids are all different.
class DistinctThreads {
 public:
  explicit DistinctThreads(int count) {
    for (int i = 0; i < count; ++i) threads_.emplace_back([this] { end_.wait(); });
  }
  DistinctThreads(DistinctThreads const&) = delete;
  DistinctThreads& operator=(DistinctThreads const&) = delete;
  ~DistinctThreads() {
    end_.count_down();
    for (std::thread& thread : threads_) thread.join();
  }

  std::thread::id operator[](std::size_t i) const { return threads_[i].get_id(); }

 private:
  std::latch end_{1};
  std::vector<std::thread> threads_;
};

}  // namespace fdo

#endif  // POOL_DISTINCT_THREADS_H_

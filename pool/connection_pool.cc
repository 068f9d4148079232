#include "pool/connection_pool.h"

#include <fdo/connection_string.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace fdo {
namespace {

// The end of a key. No source, provider or configuration that opens anything ends so.
constexpr std::wstring_view kForReading = L"\n(for reading)";

void AppendPart(std::wstring& key, wchar_t const* part) {
  if (part == nullptr || *part == 0) return;
  key += L'|';
  key += part;
}

wchar_t const* TextOf(wchar_t const* text) { return text == nullptr ? L"" : text; }

// Whether the connection is open on that path, whatever it was asked for with.
bool IsFileStoreOf(Database const& connection, std::wstring const& path) {
  return connection.ConnectionString() == path ||
         connection.ConnectionString() == MakeConnectionString(connection.ProviderName(), path.c_str());
}

template <class Uses>
auto UseOf(Uses& uses, std::thread::id thread) {
  return std::find_if(uses.begin(), uses.end(), [&](auto const& use) { return use.thread == thread; });
}

}  // namespace

bool IsForReading(Database const& connection) {
  std::wstring_view const key = connection.ConnId();
  return key.size() >= kForReading.size() && key.substr(key.size() - kForReading.size()) == kForReading;
}

// Four lanes of eight bytes each are turned and mixed, which is all that texts need to differ; what keeps
// slots apart, the multiplications, comes once.
std::size_t ConnectionPool::KeyHash::operator()(std::wstring_view key) const {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;  // 2^64 divided by the golden ratio
  constexpr std::size_t kLanes = 4, kWidth = sizeof(std::uint64_t);
  std::uint64_t lanes[kLanes] = {key.size(), 1, 2, 3};
  auto const mix = [&lanes](unsigned char const* block) {
    std::uint64_t words[kLanes];
    std::memcpy(words, block, sizeof words);
    for (std::size_t i = 0; i < kLanes; ++i) {
      lanes[i] = std::rotl(lanes[i], 7) ^ words[i];
    }
  };
  auto const* bytes = reinterpret_cast<unsigned char const*>(key.data());
  std::size_t left = key.size() * sizeof(wchar_t);
  for (; left >= kLanes * kWidth; left -= kLanes * kWidth, bytes += kLanes * kWidth) mix(bytes);
  if (left > 0) {
    unsigned char rest[kLanes * kWidth] = {};
    std::memcpy(rest, bytes, left);
    mix(rest);
  }
  std::uint64_t hash = lanes[0];
  for (std::size_t i = 1; i < kLanes; ++i) hash = ((hash ^ hash >> 32) * kFactor) ^ lanes[i];
  hash = (hash ^ hash >> 32) * kFactor;
  return static_cast<std::size_t>(hash ^ hash >> 32);
}

void ConnectionPool::BuildKey(ConnectionRequest const& request) {
  key_ = TextOf(request.source);
  AppendPart(key_, request.provider);
  AppendPart(key_, request.configuration);
  if (request.forReading) key_ += kForReading;
}

ConnectionPool::Slots::iterator ConnectionPool::FindSlot(std::wstring_view key) {
  if (latest_ == slots_.end() || latest_->first != key) latest_ = slots_.find(key);
  return latest_;
}

ConnectionPool::Slots::iterator ConnectionPool::EraseSlot(Slots::iterator slot) {
  latest_ = slots_.end();
  return slots_.erase(slot);
}

Database* ConnectionPool::Acquire(ConnectionRequest const& request, std::thread::id thread, std::time_t now) {
  std::lock_guard const guard(lock_);
  BuildKey(request);
  auto slot = FindSlot(key_);
  if (slot != slots_.end()) {
    if (auto const use = UseOf(slot->second.uses, thread); use != slot->second.uses.end()) {
      ++use->count;
      return use->connection;
    }
  }
  bool const reused = slot != slots_.end() && !slot->second.idle.empty();
  std::unique_ptr<Database> made;
  if (!reused) {
    made = create_(request);
    if (made == nullptr) return nullptr;
    made->SetConnId(key_.c_str());
    if (slot == slots_.end()) {
      slot = slots_.try_emplace(key_).first;
      latest_ = slots_.end();  // the table may have grown
      slot->second.source = TextOf(request.source);
    }
    ++created_;
  }
  auto& [source, uses, idle] = slot->second;
  uses.push_back({thread, nullptr, 1, now});
  if (reused) {
    made = std::move(idle.back().connection);
    idle.pop_back();
    ++reused_;
  }
  return uses.back().connection = made.release();
}

void ConnectionPool::Release(Database* connection, bool destroy, std::thread::id thread, std::time_t now) {
  std::lock_guard const guard(lock_);
  if (connection == nullptr) return;
  std::unique_ptr<Database> owned;  // deletes under the lock
  auto const slot = FindSlot(connection->ConnId());
  if (slot == slots_.end()) {
    owned.reset(connection);
    return;
  }
  auto& uses = slot->second.uses;
  auto const use = UseOf(uses, thread);
  if (use == uses.end() || use->connection != connection) {
    bool const held = std::any_of(uses.begin(), uses.end(),
                                  [&](Use const& other) { return other.connection == connection; });
    if (held) ++destroyedOnForeignThread_;
    owned.reset(connection);
    return;
  }
  if (--use->count > 0) return;
  if (destroy) {
    owned.reset(connection);
  } else {
    slot->second.idle.push_back({nullptr, now});
    slot->second.idle.back().connection.reset(connection);
  }
  *use = uses.back();
  uses.pop_back();
  if (uses.empty() && slot->second.idle.empty()) EraseSlot(slot);
}

template <class Close>
void ConnectionPool::CloseIdle(Close close) {
  for (auto slot = slots_.begin(); slot != slots_.end();) {
    auto& idle = slot->second.idle;
    // The last released is closed first.
    for (auto i = idle.size(); i-- > 0;) {
      if (close(slot->second, idle[i])) idle.erase(idle.begin() + static_cast<std::ptrdiff_t>(i));
    }
    slot = slot->second.uses.empty() && idle.empty() ? EraseSlot(slot) : std::next(slot);
  }
}

void ConnectionPool::CloseFree() {
  std::lock_guard const guard(lock_);
  CloseIdle([](Slot const&, Idle const&) { return true; });
}

void ConnectionPool::CloseFreeSince(std::time_t latestRelease) {
  std::lock_guard const guard(lock_);
  CloseIdle([&](Slot const&, Idle const& idle) { return idle.released <= latestRelease; });
}

void ConnectionPool::Invalidate(wchar_t const* source) {
  std::wstring const wanted = TextOf(source);
  std::lock_guard const guard(lock_);
  CloseIdle([&](Slot const& slot, Idle const& idle) {
    return slot.source == wanted || IsFileStoreOf(*idle.connection, wanted);
  });
}

PoolCounters ConnectionPool::Counters() const {
  std::lock_guard const guard(lock_);
  PoolCounters counters = {created_, reused_, 0, 0, destroyedOnForeignThread_};
  for (auto const& [key, slot] : slots_) {
    counters.inUse += static_cast<__int64>(slot.uses.size());
    counters.free += static_cast<__int64>(slot.idle.size());
  }
  return counters;
}

std::vector<PoolHolder> ConnectionPool::Holders() const {
  std::lock_guard const guard(lock_);
  std::vector<PoolHolder> holders;
  for (auto const& [key, slot] : slots_) {
    for (Use const& use : slot.uses) holders.push_back({key, use.thread, use.count, use.since});
  }
  return holders;
}

}  // namespace fdo

#include "tools/quillon/interruption.h"

#include <csignal>

#include "port/console.h"

namespace fdo::tool {

namespace {

volatile std::sig_atomic_t happened = 0;

extern "C" void Remember(int signal) {
  happened = 1;
  // Some platforms restore the default action when a handler is called.
  std::signal(signal, Remember);
}

}  // namespace

InterruptionWatch::InterruptionWatch() {
  happened = 0;
  for (int const request : port::RequestsToEnd()) {
    Handler const old = std::signal(request, Remember);
    // Who starts a program in the background with a request ignored wants it ignored.
    if (old == SIG_IGN) std::signal(request, SIG_IGN);
    old_.emplace_back(request, old == SIG_ERR ? SIG_DFL : old);
  }
}

InterruptionWatch::~InterruptionWatch() {
  for (auto const& [request, old] : old_) std::signal(request, old);
}

bool InterruptionWatch::Happened() const { return happened != 0; }

}  // namespace fdo::tool

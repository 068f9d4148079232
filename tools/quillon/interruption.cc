#include "tools/quillon/interruption.h"

#include <csignal>

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
  oldInterrupt_ = std::signal(SIGINT, Remember);
  oldTerminate_ = std::signal(SIGTERM, Remember);
  // Who starts a program in the background with interrupts ignored wants them ignored.
  if (oldInterrupt_ == SIG_IGN) std::signal(SIGINT, SIG_IGN);
}

InterruptionWatch::~InterruptionWatch() {
  std::signal(SIGINT, oldInterrupt_ == SIG_ERR ? SIG_DFL : oldInterrupt_);
  std::signal(SIGTERM, oldTerminate_ == SIG_ERR ? SIG_DFL : oldTerminate_);
}

bool InterruptionWatch::Happened() const { return happened != 0; }

}  // namespace fdo::tool

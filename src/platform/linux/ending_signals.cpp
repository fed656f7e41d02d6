#include "platform/linux/ending_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>

namespace mirvane {
namespace {

struct Watched {
  int number;
  volatile std::sig_atomic_t isTaken;
};

// What the handler uses: it may run on any thread at any moment, and may call little.
std::array<Watched, 3> watched{{{SIGTERM, 0}, {SIGINT, 0}, {SIGHUP, 0}}};
std::array<int, 2> pipeEnds{-1, -1};

void giveBack(Watched& entry) {
  if (entry.isTaken == 0) return;
  entry.isTaken = 0;
  std::signal(entry.number, SIG_DFL);
}

void giveBackInsistent() {
  for (auto& entry : watched) {
    if (entry.number != SIGHUP) giveBack(entry);
  }
}

extern "C" void noteEndingSignal(int number) {
  const int error = errno;
  if (number != SIGHUP) giveBackInsistent();
  const auto byte = static_cast<unsigned char>(number);
  [[maybe_unused]] const auto written = write(pipeEnds[1], &byte, 1);
  errno = error;
}

void take(Watched& entry) {
  struct sigaction before {};
  if (sigaction(entry.number, nullptr, &before) != 0 || before.sa_handler == SIG_IGN) return;
  struct sigaction handling {};
  handling.sa_handler = noteEndingSignal;
  handling.sa_flags = SA_RESTART;
  for (const auto& other : watched) sigaddset(&handling.sa_mask, other.number);
  entry.isTaken = 1;
  sigaction(entry.number, &handling, nullptr);
}

}  // namespace

EndingSignals::EndingSignals() : notifier_(nullptr) {
  if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  notifier_ = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, &EndingSignals::tell);
  for (auto& entry : watched) take(entry);
}

EndingSignals::~EndingSignals() {
  for (auto& entry : watched) giveBack(entry);
  delete notifier_;
  for (auto& end : pipeEnds) {
    if (end != -1) close(end);
    end = -1;
  }
}

void EndingSignals::tell() {
  unsigned char number = 0;
  if (read(pipeEnds[0], &number, 1) != 1) return;
  notifier_->setEnabled(false);
  Q_EMIT arrived(number);
}

}  // namespace mirvane

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "app/EndSignals.h"
#include "tools/files/SystemFiles_posix.h"

namespace app {

namespace {

constexpr std::array kSignals{SIGTERM, SIGHUP};

// A signal handler may touch no more than this, and call little more than write.
volatile std::sig_atomic_t pipeEnd = -1;

void OnSignal(int) {
  const int error = errno;
  const char byte = 0;
  [[maybe_unused]] const ssize_t written = ::write(pipeEnd, &byte, 1);
  errno = error;
}

void Handle(int signal, void (*handler)(int)) {
  struct sigaction old {};
  if (::sigaction(signal, nullptr, &old) != 0 || old.sa_handler == SIG_IGN) return;
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  ::sigaction(signal, &action, nullptr);
}

}  // namespace

struct EndSignals::Pipe {
  explicit Pipe(const std::array<int, 2>& ends)
      : readEnd(ends[0]), writeEnd(ends[1]), notifier(readEnd.Get(), QSocketNotifier::Read) {}

  tools::FileHandle readEnd;
  tools::FileHandle writeEnd;
  QSocketNotifier notifier;
};

EndSignals::EndSignals(std::function<void()> onEnd) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  pipe_ = std::make_unique<Pipe>(ends);
  QObject::connect(&pipe_->notifier, &QSocketNotifier::activated, this,
                   [this, onEnd = std::move(onEnd)] {
                     char byte = 0;
                     while (::read(pipe_->readEnd.Get(), &byte, 1) > 0) continue;
                     onEnd();
                   });
  pipeEnd = pipe_->writeEnd.Get();
  for (const int signal : kSignals) Handle(signal, OnSignal);
}

EndSignals::~EndSignals() {
  if (!pipe_) return;
  for (const int signal : kSignals) Handle(signal, SIG_DFL);
  pipeEnd = -1;
}

}  // namespace app

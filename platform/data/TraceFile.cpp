#include "platform/data/TraceFile.h"

#include <cerrno>

#ifdef _WIN32
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#else
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#endif

namespace quorvane {

#ifdef _WIN32

TraceFile::TraceFile(const char* path)
    : handle_(_open(path, _O_WRONLY | _O_APPEND | _O_CREAT | _O_BINARY, _S_IREAD | _S_IWRITE)) {}

TraceFile::~TraceFile() {
  if (IsOpen()) _close(handle_);
}

bool TraceFile::Append(const std::string& line) const {
  const auto length = static_cast<unsigned>(line.size());
  return _write(handle_, line.data(), length) == static_cast<int>(length);
}

void TraceFile::Tell(const std::string& text) { std::fputs(text.c_str(), stderr); }

#else

namespace {

/// While one lives, a pipe without a reader is an error of the write alone: the signal that comes
/// with it is taken away again. What the host itself has done about that signal stays.
class PipeSignalHeld {
 public:
  PipeSignalHeld() {
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    sigset_t pending;
    sigpending(&pending);
    before_ = sigismember(&pending, SIGPIPE) == 1;
    pthread_sigmask(SIG_BLOCK, &pipe_, &mask_);
  }
  ~PipeSignalHeld() {
    constexpr timespec kAtOnce{0, 0};
    if (!before_) sigtimedwait(&pipe_, nullptr, &kAtOnce);
    pthread_sigmask(SIG_SETMASK, &mask_, nullptr);
  }
  PipeSignalHeld(const PipeSignalHeld&) = delete;
  PipeSignalHeld& operator=(const PipeSignalHeld&) = delete;
  PipeSignalHeld(PipeSignalHeld&&) = delete;
  PipeSignalHeld& operator=(PipeSignalHeld&&) = delete;

 private:
  sigset_t pipe_;
  sigset_t mask_;
  bool before_;
};

constexpr mode_t kOwnerAlone = 0600;

}  // namespace

TraceFile::TraceFile(const char* path)
    : handle_(open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                   kOwnerAlone)) {}

TraceFile::~TraceFile() {
  if (IsOpen()) close(handle_);
}

bool TraceFile::Append(const std::string& line) const {
  const PipeSignalHeld held;
  ssize_t written = -1;
  do written = write(handle_, line.data(), line.size());
  while (written < 0 && errno == EINTR);
  return written == static_cast<ssize_t>(line.size());
}

void TraceFile::Tell(const std::string& text) {
  const PipeSignalHeld held;
  pollfd error{STDERR_FILENO, POLLOUT, 0};
  if (poll(&error, 1, 0) == 1 && (error.revents & POLLOUT) != 0)
    static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
}

#endif

bool TraceFile::IsOpen() const noexcept { return handle_ >= 0; }

}  // namespace quorvane

#include "platform/data/TraceFile.h"

#include <cerrno>
#include <string_view>

#ifdef _WIN32
#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#else
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace quorvane {

#ifdef _WIN32

namespace {

bool IsDevice(int handle) { return _isatty(handle) != 0; }

}  // namespace

TraceFile::TraceFile(const char* path)
    : handle_(_open(path, _O_WRONLY | _O_APPEND | _O_CREAT | _O_BINARY, _S_IREAD | _S_IWRITE)),
      error_(IsOpen() ? 0 : errno) {}

TraceFile::~TraceFile() {
  if (IsOpen()) _close(handle_);
}

bool TraceFile::Append(const std::string& line) {
  const auto length = static_cast<unsigned>(line.size());
  if (_write(handle_, line.data(), length) == static_cast<int>(length)) return true;
  error_ = errno;
  return false;
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

bool IsDevice(int handle) {
  struct stat status {};
  return fstat(handle, &status) == 0 && S_ISCHR(status.st_mode);
}

/// Waits until that can be written, or has failed. False when the time is over.
bool AwaitRoom(int handle, std::chrono::steady_clock::time_point end) {
  for (;;) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    if (left.count() <= 0) return false;
    pollfd room{handle, POLLOUT, 0};
    const auto ready = poll(&room, 1, static_cast<int>(left.count()));
    if (ready >= 0 || errno != EINTR) return ready == 1;
  }
}

/// The whole text, to a handle whose writes don't wait. 0, or the system's number of what failed:
/// EAGAIN when there was no room for it for so long.
int WriteWhole(int handle, std::string_view text) {
  const PipeSignalHeld held;
  const auto end = std::chrono::steady_clock::now() + TraceFile::kPatience;
  while (!text.empty()) {
    const auto written = write(handle, text.data(), text.size());
    if (written > 0)
      text.remove_prefix(static_cast<std::size_t>(written));
    else if (written == 0)
      return EIO;
    else if (errno != EAGAIN && errno != EINTR)
      return errno;
    else if (errno == EAGAIN && !AwaitRoom(handle, end))
      return EAGAIN;
  }
  return 0;
}

/// Standard error once more, with writes of its own that don't wait, where it is a pipe or a
/// terminal; -1 where it is a file, which takes all at once, or can't be opened.
int ErrorsWithoutWaiting() {
  struct stat status {};
  if (fstat(STDERR_FILENO, &status) != 0) return -1;
  if (!S_ISFIFO(status.st_mode) && !S_ISCHR(status.st_mode)) return -1;
  return open("/dev/stderr", O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
}

}  // namespace

TraceFile::TraceFile(const char* path)
    : handle_(open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                   kOwnerAlone)),
      error_(IsOpen() ? 0 : errno) {}

TraceFile::~TraceFile() {
  if (IsOpen()) close(handle_);
}

bool TraceFile::Append(const std::string& line) {
  error_ = WriteWhole(handle_, line);
  return error_ == 0;
}

void TraceFile::Tell(const std::string& text) {
  if (const auto handle = ErrorsWithoutWaiting(); handle >= 0) {
    static_cast<void>(WriteWhole(handle, text));
    close(handle);
  } else if (AwaitRoom(STDERR_FILENO, std::chrono::steady_clock::now() + kPatience)) {
    const PipeSignalHeld held;
    static_cast<void>(!write(STDERR_FILENO, text.data(), text.size()));
  }
}

#endif

bool TraceFile::IsOpen() const noexcept { return handle_ >= 0; }

bool TraceFile::Unread() const noexcept {
  // A terminal that has gone answers as a disk does that fails.
  return error_ == ENXIO || error_ == EPIPE || error_ == EAGAIN ||
         (error_ == EIO && IsDevice(handle_));
}

}  // namespace quorvane

#include "tests/kills/Report.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace quorvane::test {

Report::Report() {
  // No program that is started meanwhile may hold the pipe open.
  if (pipe2(ends_, O_CLOEXEC) != 0) throw std::runtime_error("No se puede crear una tubería");
}

Report::~Report() {
  close(ends_[0]);
  OnlyRead();
}

void Report::OnlyRead() {
  if (ends_[1] >= 0) close(ends_[1]);
  ends_[1] = -1;
}

bool Report::Fill() {
  std::array<char, 65536> buffer{};
  ssize_t size = 0;
  do {
    size = read(ends_[0], buffer.data(), buffer.size());
  } while (size < 0 && errno == EINTR);
  if (size <= 0) return false;
  unread_.append(buffer.data(), static_cast<std::size_t>(size));
  return true;
}

bool Report::Next() {
  auto end = unread_.find('\n');
  while (end == std::string::npos) {
    // A line that was cut off tells nothing: the statement had begun or come back unheard.
    if (!Fill()) return false;
    end = unread_.find('\n');
  }
  const auto line = unread_.substr(0, end);
  unread_.erase(0, end + 1);
  switch (line.front()) {
    case kBeginsToRead:
      ++begun_;
      break;
    case kBeginsToWrite:
      ++begun_;
      inFlight_ = line.substr(1);
      if (inFlight_->starts_with("DELETE FROM PublicacionPte")) publishes_ = false;
      break;
    case kReturned:
      ++returned_;
      if (inFlight_) {
        written_.push_back(*inFlight_);
        if (inFlight_->starts_with("INSERT INTO Publicacionpte")) publishes_ = true;
      }
      inFlight_.reset();
      break;
    default:
      inFlight_.reset();
  }
  return true;
}

}  // namespace quorvane::test

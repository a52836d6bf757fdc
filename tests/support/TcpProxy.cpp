#include "tests/support/TcpProxy.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <string_view>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "tests/support/ProxiedLink.h"

namespace quorvane::test {
namespace {

constexpr std::size_t kPiece = 65536;
/// With it a client of PostgreSQL leaves; there is no answer to it.
constexpr std::string_view kFarewell{"X\0\0\0\4", 5};

sockaddr_in Loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

sockaddr_un Named(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  return address;
}

int Socket(int family, int kind = 0) {
  return socket(family, SOCK_STREAM | SOCK_CLOEXEC | kind, 0);
}

// The system's calls take all kinds of addresses as one.
template <class Address>
sockaddr* Any(Address& address) {
  return reinterpret_cast<sockaddr*>(&address);
}

template <class Address>
int Connected(int socket, Address address) {
  if (connect(socket, Any(address), sizeof address) == 0) return socket;
  close(socket);
  return -1;
}

}  // namespace

TcpProxy::TcpProxy(std::uint16_t serverPort, std::chrono::microseconds delay)
    : TcpProxy(serverPort, {}, delay, 0, 0) {}

TcpProxy::TcpProxy(std::uint16_t serverPort, std::string serverFile,
                   std::chrono::microseconds delay, std::uint32_t next, std::uint16_t port)
    : serverPort_(serverPort),
      serverFile_(std::move(serverFile)),
      delay_(delay),
      listener_(Socket(AF_INET, SOCK_NONBLOCK)),
      bell_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  auto address = Loopback(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK + next);
  socklen_t size = sizeof address;
  if (bind(listener_, Any(address), size) != 0 || listen(listener_, SOMAXCONN) != 0 ||
      getsockname(listener_, Any(address), &size) != 0)
    throw std::runtime_error("No se puede escuchar en un puerto");
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Work(); });
}

TcpProxy::~TcpProxy() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  Wake();
  thread_.join();
  close(listener_);
  close(bell_);
}

void TcpProxy::Wake() const { eventfd_write(bell_, 1); }

void TcpProxy::Fail(Fault fault, Moment moment, std::size_t passed) {
  std::unique_lock lock(mutex_);
  due_ = passed == 0 ? 0 : bursts_ + passed + 1;
  fault_ = fault;
  moment_ = moment;
  armed_ = true;
  failed_ = false;
  Wake();
  if (moment == Moment::Now) struck_.wait(lock, [this] { return failed_; });
}

void TcpProxy::Resume() {
  const std::lock_guard lock(mutex_);
  silent_ = false;
  armed_ = false;
  Wake();
}

bool TcpProxy::HasFailed() const {
  const std::lock_guard lock(mutex_);
  return failed_;
}

void TcpProxy::Strike() {
  armed_ = false;
  failed_ = true;
  silent_ = fault_ == Fault::Silence;
  if (fault_ == Fault::Reset)
    for (const auto& link : links_) link->Break();
}

void TcpProxy::Work() {
  std::unique_lock lock(mutex_);
  while (!ending_) {
    if (armed_ && moment_ == Moment::Now) Strike();
    if (!silent_)
      std::erase_if(links_, [](const auto& link) { return !link->Deliver(Clock::now()); });
    struck_.notify_all();
    const auto rest = Rest();
    auto ends = Ends();
    lock.unlock();
    ppoll(ends.data(), ends.size(), rest ? &*rest : nullptr, nullptr);
    lock.lock();
    eventfd_t rings = 0;
    eventfd_read(bell_, &rings);
    for (std::size_t i = 2; i < ends.size(); ++i)
      if (ends[i].revents != 0) Hear(*links_[(i - 2) / 2], i % 2 == 0);
    if (ends.size() > 1 && ends[1].revents != 0) Accept();
  }
}

std::optional<timespec> TcpProxy::Rest() const {
  using std::chrono::nanoseconds;
  auto next = Clock::time_point::max();
  for (const auto& link : links_) next = std::min(next, link->NextDue());
  if (silent_ || next == Clock::time_point::max()) return {};
  const auto rest = std::max(nanoseconds(next - Clock::now()), nanoseconds(0));
  const auto seconds = std::chrono::floor<std::chrono::seconds>(rest);
  return timespec{seconds.count(), nanoseconds(rest - seconds).count()};
}

std::vector<pollfd> TcpProxy::Ends() const {
  std::vector<pollfd> ends{{bell_, POLLIN, 0}};
  if (silent_) return ends;
  ends.push_back({listener_, POLLIN, 0});
  // The system doesn't look at a negative one.
  for (const auto& link : links_)
    for (const auto fromClient : {true, false})
      ends.push_back({link->Listens(fromClient) ? link->Speaker(fromClient) : -1, POLLIN, 0});
  return ends;
}

int TcpProxy::ReachServer() const {
  return serverFile_.empty() ? Connected(Socket(AF_INET), Loopback(serverPort_))
                             : Connected(Socket(AF_UNIX), Named(serverFile_));
}

void TcpProxy::Accept() {
  const auto client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
  if (client < 0) return;
  const auto server = ReachServer();
  auto link = std::make_unique<ProxiedLink>(client, server);
  ++connections_;
  if (server < 0)
    link->Break();
  else
    links_.push_back(std::move(link));
}

void TcpProxy::Hear(ProxiedLink& link, bool fromClient) {
  std::array<char, kPiece> piece{};
  const auto read = recv(link.Speaker(fromClient), piece.data(), piece.size(), MSG_DONTWAIT);
  if (read < 0 && (errno == EAGAIN || errno == EINTR)) return;
  if (read < 0) {
    link.Break();
    return;
  }
  const std::string_view said(piece.data(), static_cast<std::size_t>(read));
  if (read > 0 && link.BeginsBurst(fromClient) && said != kFarewell) ++bursts_;
  const auto moment = fromClient ? Moment::NextRequest : Moment::NextAnswer;
  if (read > 0 && armed_ && moment_ == moment && bursts_ >= due_) Strike();
  link.Take(fromClient, {piece.data(), static_cast<std::size_t>(read)}, Clock::now() + delay_);
}

}  // namespace quorvane::test

#include "adapters/odbc/ServerSockets.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <map>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <system_error>

namespace quorvane::odbc {
namespace {

/// By their inodes, which are never given twice, as descriptors are.
std::map<ino_t, int> OpenSockets() {
  std::map<ino_t, int> sockets;
  std::error_code failure;
  std::filesystem::directory_iterator entry("/proc/self/fd", failure);
  for (; !failure && entry != std::filesystem::directory_iterator(); entry.increment(failure)) {
    const auto name = entry->path().filename().string();
    auto descriptor = -1;
    std::from_chars(name.data(), name.data() + name.size(), descriptor);
    struct stat status {};
    if (fstat(descriptor, &status) == 0 && S_ISSOCK(status.st_mode))
      sockets[status.st_ino] = descriptor;
  }
  return sockets;
}

std::set<ino_t> Inodes() {
  std::set<ino_t> inodes;
  for (const auto& [inode, descriptor] : OpenSockets()) inodes.insert(inode);
  return inodes;
}

int PortOf(const std::string& text) {
  auto port = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
  return error == std::errc() && end == text.data() + text.size() ? port : 0;
}

/// The other end; port 0 where there is none.
ServerSockets::Peer PeerOf(int descriptor) {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  auto* const any = reinterpret_cast<sockaddr*>(&address);
  std::array<char, NI_MAXHOST> host{};
  std::array<char, NI_MAXSERV> port{};
  if (getpeername(descriptor, any, &size) != 0 ||
      (address.ss_family != AF_INET && address.ss_family != AF_INET6) ||
      getnameinfo(any, size, host.data(), host.size(), port.data(), port.size(),
                  NI_NUMERICHOST | NI_NUMERICSERV) != 0)
    return {};
  return {host.data(), PortOf(port.data())};
}

}  // namespace

ServerSockets::ServerSockets(const std::string& port) : port_(PortOf(port)), before_(Inodes()) {}

bool ServerSockets::Settle() {
  for (const auto& [inode, descriptor] : OpenSockets()) {
    const auto port = PeerOf(descriptor).port;
    if (!before_.contains(inode) && (port_ == 0 ? port != 0 : port == port_)) own_.insert(inode);
  }
  settled_ = true;
  return !own_.empty();
}

std::vector<int> ServerSockets::Descriptors() const {
  if (!settled_) {
    auto now = *this;
    now.Settle();
    return now.Descriptors();
  }
  std::vector<int> descriptors;
  if (own_.empty()) return descriptors;
  for (const auto& [inode, descriptor] : OpenSockets())
    if (own_.contains(inode)) descriptors.push_back(descriptor);
  return descriptors;
}

void ServerSockets::ShutDown() const {
  for (const auto descriptor : Descriptors()) shutdown(descriptor, SHUT_RDWR);
}

std::optional<ServerSockets::Peer> ServerSockets::Reached() const {
  for (const auto descriptor : Descriptors())
    if (auto peer = PeerOf(descriptor); peer.port != 0) return peer;
  return std::nullopt;
}

bool ServerSockets::HungUp() const {
  for (const auto descriptor : Descriptors()) {
    pollfd end{descriptor, POLLRDHUP, 0};
    if (poll(&end, 1, 0) > 0) return true;
  }
  return false;
}

}  // namespace quorvane::odbc

#include "tests/support/ProxiedLink.h"

#include <algorithm>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace quorvane::test {
namespace {

/// How long to leave one alone who doesn't take what he is sent.
constexpr std::chrono::milliseconds kFullFor{1};

}  // namespace

ProxiedLink::ProxiedLink(int client, int server) : client_(client), server_(server) {
  const auto on = 1;
  for (const auto side : {client_, server_})
    setsockopt(side, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

ProxiedLink::~ProxiedLink() {
  close(client_);
  close(server_);
}

void ProxiedLink::Take(bool fromClient, std::string text, Time due) {
  auto& way = fromClient ? up_ : down_;
  way.ended = text.empty();
  way.pieces.push_back({std::move(text), due});
}

bool ProxiedLink::Deliver(Time now) {
  Deliver(up_, server_, now);
  Deliver(down_, client_, now);
  const auto over = up_.ended && down_.ended && up_.pieces.empty() && down_.pieces.empty();
  return !broken_ && !over;
}

void ProxiedLink::Deliver(OneWay& way, int to, Time now) {
  while (!broken_ && !way.pieces.empty() && way.pieces.front().due <= now) {
    auto& [text, due] = way.pieces.front();
    const auto sent = text.empty()
                          ? shutdown(to, SHUT_WR)
                          : send(to, text.data(), text.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0 && errno == EAGAIN) {
      due = now + kFullFor;
    } else if (sent < 0) {
      Break();
    } else {
      text.erase(0, static_cast<std::size_t>(sent));
      if (text.empty()) way.pieces.pop_front();
    }
  }
}

ProxiedLink::Time ProxiedLink::NextDue() const {
  auto next = Time::max();
  for (const auto* const way : {&up_, &down_})
    if (!way->pieces.empty()) next = std::min(next, way->pieces.front().due);
  return next;
}

bool ProxiedLink::BeginsBurst(bool fromClient) {
  const auto begins = fromClient && !clientSpokeLast_;
  clientSpokeLast_ = fromClient;
  return begins;
}

void ProxiedLink::Break() {
  broken_ = true;
  const linger atOnce{1, 0};
  for (const auto side : {client_, server_})
    setsockopt(side, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
}

}  // namespace quorvane::test

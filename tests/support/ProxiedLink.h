#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <string>

namespace quorvane::test {

/// One connection through a `TcpProxy`: both its ends, and what is on its way between them.
class ProxiedLink {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// Takes both sockets over.
  ProxiedLink(int client, int server);
  ~ProxiedLink();
  ProxiedLink(ProxiedLink&&) = delete;

  /// The socket of the one who speaks that way.
  [[nodiscard]] int Speaker(bool fromClient) const noexcept {
    return fromClient ? client_ : server_;
  }
  /// Whether that side may still say something.
  [[nodiscard]] bool Listens(bool fromClient) const { return !Way(fromClient).ended; }

  /// What that side has said, to be handed over at `due`; an empty text is its last.
  void Take(bool fromClient, std::string text, Time due);
  /// Hands over what is due; false once both sides have said their last, or it is broken.
  bool Deliver(Time now);
  /// When the next is to be handed over; the end of all time when nothing is on its way.
  [[nodiscard]] Time NextDue() const;

  /// Whether this is a client's first word since the server's last.
  bool BeginsBurst(bool fromClient);
  /// Nothing is handed over any more, and both sides see an error when the link goes.
  void Break();

 private:
  struct Piece {
    std::string text;
    Time due;
  };
  struct OneWay {
    std::deque<Piece> pieces;
    bool ended = false;
  };

  [[nodiscard]] const OneWay& Way(bool fromClient) const { return fromClient ? up_ : down_; }
  void Deliver(OneWay& way, int to, Time now);

  int client_;
  int server_;
  OneWay up_;
  OneWay down_;
  bool clientSpokeLast_ = false;
  bool broken_ = false;
};

}  // namespace quorvane::test

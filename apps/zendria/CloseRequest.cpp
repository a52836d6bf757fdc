#include "apps/zendria/CloseRequest.h"

#include <QGuiApplication>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace quorvane::zendria {
namespace {

struct Freer {
  void operator()(void* reply) const { std::free(reply); }
};

xcb_atom_t Atom(xcb_connection_t* display, std::string_view name) {
  const auto asked =
      xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const std::unique_ptr<xcb_intern_atom_reply_t, Freer> reply(
      xcb_intern_atom_reply(display, asked, nullptr));
  return reply == nullptr ? xcb_atom_t{XCB_ATOM_NONE} : reply->atom;
}

}  // namespace

bool IsCloseRequest(const QByteArray& eventType, const void* message) {
  constexpr unsigned kSentByAnother = 0x80U;
  constexpr auto kFormat = 32;
  if (eventType != "xcb_generic_event_t") return false;
  const auto& event = *static_cast<const xcb_client_message_event_t*>(message);
  if ((event.response_type & ~kSentByAnother) != XCB_CLIENT_MESSAGE || event.format != kFormat)
    return false;
  auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  if (x11 == nullptr) return false;
  static const auto protocols = Atom(x11->connection(), "WM_PROTOCOLS");
  static const auto close = Atom(x11->connection(), "WM_DELETE_WINDOW");
  return event.type == protocols && event.data.data32[0] == close;
}

}  // namespace quorvane::zendria

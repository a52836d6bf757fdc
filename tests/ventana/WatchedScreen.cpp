#include "tests/ventana/WatchedScreen.h"

#include <optional>

#include "adapters/qt/window/FormWindow.h"
#include "platform/host/Application.h"

namespace quorvane::test {
WatchedScreen::WatchedScreen(History& history) : history_(history) {
  Application::Instance().UseScreen(this);
  // Asked when the form's own loading is over, before the user's turn.
  RecallSize = [this](const qt::FormWindow& window) -> std::optional<QSize> {
    ready_ = &window;
    return std::nullopt;
  };
}

WatchedScreen::~WatchedScreen() { Application::Instance().UseScreen(nullptr); }

void WatchedScreen::RunModal(Form& form) {
  const Shows::Running running(shows_, form.Name());
  ready_ = nullptr;
  history_.Add("muestra " + form.Name());
  onlooker_->Opened(form);
  QtFrontEnd::RunModal(form);
  ready_ = nullptr;
  onlooker_->Settle();
}

void WatchedScreen::Loading(Form& form) {
  shows_.Touch(form.Name());
  onlooker_->Loading(form);
}

void WatchedScreen::Message(MessageIcon icon, const std::string& title, const std::string& text) {
  history_.Add("mensaje " + text);
  onlooker_->Told(text);
  QtFrontEnd::Message(icon, title, text);
}

}  // namespace quorvane::test

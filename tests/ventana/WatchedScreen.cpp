#include "tests/ventana/WatchedScreen.h"

#include <algorithm>
#include <optional>

#include "adapters/qt/window/FormWindow.h"
#include "platform/host/Application.h"

namespace quorvane::test {
namespace {

/// Counts the shows that run, also when one ends by an error.
class Deeper {
 public:
  explicit Deeper(std::size_t& depth) : depth_(depth) { ++depth_; }
  ~Deeper() { --depth_; }
  Deeper(const Deeper&) = delete;
  Deeper& operator=(const Deeper&) = delete;
  Deeper(Deeper&&) = delete;
  Deeper& operator=(Deeper&&) = delete;

 private:
  std::size_t& depth_;
};

}  // namespace

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
  const Deeper deeper(depth_);
  deepest_ = std::max(deepest_, depth_);
  ++shown_[form.Name()];
  lastForm_ = form.Name();
  ready_ = nullptr;
  history_.Add("muestra " + form.Name());
  onlooker_->Opened(form);
  QtFrontEnd::RunModal(form);
  ready_ = nullptr;
  onlooker_->Settle();
}

void WatchedScreen::Loading(Form& form) {
  lastForm_ = form.Name();
  onlooker_->Loading(form);
}

void WatchedScreen::Message(MessageIcon icon, const std::string& title, const std::string& text) {
  history_.Add("mensaje " + text);
  onlooker_->Told(text);
  QtFrontEnd::Message(icon, title, text);
}

}  // namespace quorvane::test

#include "bench/BenchScreen.h"

#include <utility>

#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"

namespace quorvane::bench {

void BenchScreen::On(const std::string& form, Gesture gesture) {
  gestures_[form].push(std::move(gesture));
}

void BenchScreen::RunModal(Form& form) {
  form.Shown();
  while (form.Visible()) {
    auto& waiting = gestures_[form.Name()];
    if (waiting.empty())
      throw RuntimeError(ErrorNumber::InvalidCall, form.Name() + " espera un gesto de nadie");
    const auto gesture = std::move(waiting.front());
    waiting.pop();
    gesture(form);
  }
}

void BenchScreen::Message(MessageIcon /*icon*/, const std::string& /*title*/,
                          const std::string& text) {
  throw RuntimeError(ErrorNumber::InvalidCall, "Mensaje inesperado: " + text);
}

std::int32_t BenchScreen::TextWidth(const Form& /*form*/, const std::string& text) {
  return 120 * static_cast<std::int32_t>(text.size());
}

}  // namespace quorvane::bench

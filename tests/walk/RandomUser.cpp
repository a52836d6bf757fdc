#include "tests/walk/RandomUser.h"

#include "platform/host/Application.h"
#include "platform/text/Utf8.h"

namespace quorvane::test {
RandomUser::RandomUser(Prng& random, History& history) : random_(random), history_(history) {
  Application::Instance().UseScreen(this);
}

RandomUser::~RandomUser() { Application::Instance().UseScreen(nullptr); }

Gesture RandomUser::Choose(Form& form) {
  if (onlyCloses_ || shows_.Depth() > kDeepest || gestures_ >= limit_) return CloseWindow(form);
  auto gestures = GesturesOn(form, random_);
  int total = 0;
  for (const auto& gesture : gestures) total += gesture.weight;
  auto left = static_cast<int>(random_.Below(static_cast<std::size_t>(total)));
  for (auto& gesture : gestures) {
    left -= gesture.weight;
    if (left < 0) return std::move(gesture);
  }
  return CloseWindow(form);
}

void RandomUser::RunModal(Form& form) {
  const Shows::Running running(shows_, form.Name());
  onlooker_->Opened(form);
  form.Shown();
  onlooker_->Settle();
  while (form.Visible()) {
    const auto gesture = Choose(form);
    ++gestures_;
    shows_.Touch(form.Name());
    history_.Add(form.Name() + ": " + gesture.text);
    if (gesture.accepts) onlooker_->Accepting(form);
    gesture.act();
    onlooker_->Settle();
  }
}

void RandomUser::Loading(Form& form) {
  shows_.Touch(form.Name());
  history_.Add("carga " + form.Name());
  onlooker_->Loading(form);
}

void RandomUser::Message(MessageIcon /*icon*/, const std::string& /*title*/,
                         const std::string& text) {
  history_.Add("mensaje " + text);
  onlooker_->Told(text);
}

std::int32_t RandomUser::TextWidth(const Form& /*form*/, const std::string& text) {
  return static_cast<std::int32_t>(Utf8Length(text)) * kCharacterWidth;
}

}  // namespace quorvane::test

#include "platform/controls/Form.h"

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Control.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

FrontEnd& Screen() { return Application::Instance().Screen(); }

/// Counts a show for as long as it runs.
class Running {
 public:
  explicit Running(int& shows) : shows_(shows) { ++shows_; }
  ~Running() { --shows_; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  Running(Running&&) = delete;
  Running& operator=(Running&&) = delete;

 private:
  int& shows_;
};

std::int32_t WindowLength(std::int32_t length) {
  if (length < 0) throw RuntimeError(ErrorNumber::InvalidProperty);
  return length;
}

}  // namespace

Form::Form(std::string name) : name_(std::move(name)) {}

template <class T>
bool Form::Assign(T& field, T value) {
  if (field == value) return false;
  field = std::move(value);
  ++revision_;
  return true;
}

void Form::Caption(std::string caption) { Assign(caption_, std::move(caption)); }
void Form::Icon(std::string file) { Assign(icon_, std::move(file)); }
void Form::Enabled(bool enabled) { Assign(enabled_, enabled); }
void Form::Left(std::int32_t left) { Assign(left_, left); }
void Form::Top(std::int32_t top) { Assign(top_, top); }
void Form::Width(std::int32_t width) { ChangeSize(WindowLength(width), height_); }
void Form::Height(std::int32_t height) { ChangeSize(width_, WindowLength(height)); }

void Form::ChangeSize(std::int32_t width, std::int32_t height) {
  const auto wider = Assign(width_, width);
  const auto higher = Assign(height_, height);
  if ((wider || higher) && visible_) Form_Resize();
}

std::int32_t Form::ScaleWidth() const noexcept { return std::max(0, width_ - kBorderWidth); }

std::int32_t Form::ScaleHeight() const noexcept { return std::max(0, height_ - kBorderHeight); }

std::int32_t Form::TextWidth(const std::string& text) const {
  return Screen().TextWidth(*this, text);
}

Control* Form::Find(std::string_view name) const {
  const auto found =
      std::find_if(controls_.begin(), controls_.end(),
                   [name](const Control* control) { return EqualNoCase(control->Name(), name); });
  return found == controls_.end() ? nullptr : *found;
}

void Form::Focus(Control* control) {
  focus_ = control;
  ++revision_;
}

int Form::FrontLayer() const {
  int layer = 0;
  for (const auto* control : controls_) layer = std::max(layer, control->Layer());
  return layer;
}

int Form::BackLayer() const {
  int layer = 0;
  for (const auto* control : controls_) layer = std::min(layer, control->Layer());
  return layer;
}

void Form::ShowModal() {
  const auto self = shared_from_this();
  const Running running(shows_);
  const auto held = Screen().HoldProgram();
  do {
    again_ = false;
    Load();
    visible_ = true;
    Screen().RunModal(*this);
  } while (again_);
}

void Form::ShowInTurn() {
  if (shows_ > 0 && !visible_)
    again_ = true;
  else
    ShowModal();
}

void Form::Load() {
  if (loaded_) return;
  loaded_ = true;
  Screen().Loading(*this);
  Form_Load();
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  ++revision_;
  Screen().Hidden(*this);
}

void Form::Unload() {
  if (!loaded_) return;
  const auto self = shared_from_this();
  Screen().Unloading(*this);
  // Also where `Form_Unload` fails: the show that goes on then would unload the form once more.
  again_ = false;
  Form_Unload();
  visible_ = false;
  again_ = false;
  loaded_ = false;
  ++revision_;
}

void Form::Refresh() { Screen().DoEvents(); }

void Form::Shown() {
  const auto self = shared_from_this();
  Form_Resize();
  Form_Activate();
}

void Form::ResizeByUser(std::int32_t width, std::int32_t height) {
  const auto self = shared_from_this();
  ChangeSize(WindowLength(width), WindowLength(height));
}

void Form::CloseByUser() {
  if (exit_ == nullptr)
    Unload();
  else if (exit_->Usable())
    exit_->Press();
}

int Form::KeyDown(int keyCode) {
  const auto self = shared_from_this();
  Form_KeyDown(keyCode);
  return keyCode;
}

}  // namespace quorvane

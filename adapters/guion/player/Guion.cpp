#include "adapters/guion/player/Guion.h"

#include <algorithm>
#include <utility>

#include "adapters/guion/language/CommandKind.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/HostCommands.h"
#include "adapters/guion/player/JsonText.h"
#include "adapters/guion/player/Refusal.h"
#include "platform/RuntimeError.h"
#include "platform/controls/CurrentRows.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormInstances.h"
#include "platform/host/Application.h"
#include "platform/text/Utf8.h"

namespace quorvane::guion {
namespace {

/// Makes the form the active one for as long as it lives.
class ActiveWhile {
 public:
  ActiveWhile(std::vector<Form*>& shown, Form& form) : shown_(shown) { shown_.push_back(&form); }
  ~ActiveWhile() { shown_.pop_back(); }
  ActiveWhile(const ActiveWhile&) = delete;
  ActiveWhile& operator=(const ActiveWhile&) = delete;
  ActiveWhile(ActiveWhile&&) = delete;
  ActiveWhile& operator=(ActiveWhile&&) = delete;

 private:
  std::vector<Form*>& shown_;
};

const char* IconName(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::Exclamation:
      return "exclamacion";
    case MessageIcon::Information:
      return "informacion";
    case MessageIcon::Critical:
      return "critico";
  }
  return "";
}

}  // namespace

Guion::Guion(std::vector<Command> script, Host& host, EventPrinter& events)
    : Guion(
          [commands = std::move(script),
           next = std::size_t{0}]() mutable -> std::optional<Command> {
            if (next == commands.size()) return std::nullopt;
            return commands[next++];
          },
          host, events) {}

Guion::Guion(CommandSource script, Host& host, EventPrinter& events)
    : script_(std::move(script)), host_(host), events_(events) {
  Application::Instance().UseScreen(this);
}

Guion::~Guion() { Application::Instance().UseScreen(nullptr); }

int Guion::Play() {
  /// However the script ends, its forms go without their `Form_Unload`.
  struct DropForms {
    DropForms() = default;
    ~DropForms() { FormInstances::DropAll(); }
    DropForms(const DropForms&) = delete;
    DropForms& operator=(const DropForms&) = delete;
    DropForms(DropForms&&) = delete;
    DropForms& operator=(DropForms&&) = delete;
  };
  const DropForms dropForms;
  try {
    HandSessionIn(*this);
    while (PlayNext()) {
    }
  } catch (const EndOfScript&) {
    // Thrown past all shows; nothing is left to do but to drop their forms.
  }
  return failed_ ? 1 : 0;
}

bool Guion::PlayNext() {
  const auto command = script_();
  if (!command) return false;
  events_.Print(EventPrinter::kCommand, command->text);
  const auto* const form = Active();
  if (form == nullptr) {
    Run(*command);
    return true;
  }
  const CurrentRows rows(*form);
  const auto shows = shows_;
  Run(*command);
  if (shows_ != shows) rows.ChooseAgain();
  return true;
}

void Guion::Run(const Command& command) {
  try {
    command.kind->run(*this, command);
  } catch (const Refusal& refusal) {
    events_.Print(EventPrinter::kRefusal, command.text + ": " + refusal.what());
  }
}

void Guion::Failed(const RuntimeError& error) {
  failed_ = true;
  events_.Print("error", std::to_string(error.Number()) + " " + error.Description());
}

void Guion::RunModal(Form& form) {
  const ActiveWhile active(shown_, form);
  ++shows_;
  events_.Print("muestra", form.Name());
  form.Shown();
  while (form.Visible())
    if (!PlayNext()) throw EndOfScript();
}

void Guion::Loading(Form& form) { events_.Print("carga", form.Name()); }

void Guion::Hidden(Form& form) { events_.Print("oculta", form.Name()); }

void Guion::Unloading(Form& form) { events_.Print("descarga", form.Name()); }

void Guion::Message(MessageIcon icon, const std::string& title, const std::string& text) {
  events_.Print("mensaje",
                std::string(IconName(icon)) + " " + JsonText(title) + " " + JsonText(text));
}

void Guion::Beep() { events_.Print("pitido"); }

std::int32_t Guion::TextWidth(const Form& /*form*/, const std::string& text) {
  constexpr std::size_t kMostCharacters = kWidestText / kCharacterWidth;
  return static_cast<std::int32_t>(std::min(Utf8Length(text), kMostCharacters)) * kCharacterWidth;
}

}  // namespace quorvane::guion

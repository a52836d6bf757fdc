#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "adapters/guion/language/Command.h"
#include "platform/host/FrontEnd.h"

namespace quorvane {
class RuntimeError;
}

namespace quorvane::guion {

class EventPrinter;
class Host;

/// The dialogs without a screen: a script takes the user's place. Each show reads on in the same
/// script until its form is gone. It is the application's front end from its making to its end.
class Guion : public FrontEnd {
 public:
  /// Gives the next command, none at the end of the script.
  using CommandSource = std::function<std::optional<Command>()>;

  /// `host` and `events` outlive it.
  Guion(std::vector<Command> script, Host& host, EventPrinter& events);
  /// The same with commands that are asked for one by one, as they are played. What the source
  /// throws comes out of `Play`, past the forms that are open, as at the end of the script.
  Guion(CommandSource script, Host& host, EventPrinter& events);
  ~Guion() override;
  Guion(const Guion&) = delete;
  Guion& operator=(const Guion&) = delete;
  Guion(Guion&&) = delete;
  Guion& operator=(Guion&&) = delete;

  /// Hands the session in and plays the script. A form that is still open at the end goes without
  /// its `Form_Unload`, as those of a killed program do. 0, or 1 after a runtime error.
  int Play();

  void RunModal(Form& form) override;
  void Loading(Form& form) override;
  void Hidden(Form& form) override;
  void Unloading(Form& form) override;
  void Message(MessageIcon icon, const std::string& title, const std::string& text) override;
  void Beep() override;
  void MousePointer(Pointer /*pointer*/) override {}
  std::int32_t TextWidth(const Form& form, const std::string& text) override;
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return kScreenWidth; }
  std::int32_t ScreenHeight() override { return kScreenHeight; }

  static constexpr std::int32_t kCharacterWidth = 120;  ///< of all characters, in twips
  /// A longer one counts as this wide, so that measures which are made of it fit their numbers.
  static constexpr std::int32_t kWidestText = 12'000'000;
  /// 1024 by 768 points, of 15 twips.
  static constexpr std::int32_t kScreenWidth = 15360;
  static constexpr std::int32_t kScreenHeight = 11520;

  // For the commands.

  /// The innermost modal form; null when none is open.
  [[nodiscard]] Form* Active() const { return shown_.empty() ? nullptr : shown_.back(); }
  [[nodiscard]] Host& TheHost() const noexcept { return host_; }
  [[nodiscard]] EventPrinter& Events() const noexcept { return events_; }
  /// A runtime error has come out to the host.
  void Failed(const RuntimeError& error);

 private:
  struct EndOfScript {};

  /// False at the end of the script.
  bool PlayNext();
  void Run(const Command& command);

  CommandSource script_;
  Host& host_;
  EventPrinter& events_;
  std::vector<Form*> shown_;  ///< each held by its running show
  unsigned shows_ = 0;        ///< begun so far
  bool failed_ = false;
};

}  // namespace quorvane::guion

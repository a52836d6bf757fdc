#pragma once

#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace quorvane::guion {

/// What happens can't be told any more: a script that went on would do what nobody sees.
class OutputFailed : public std::runtime_error {
 public:
  OutputFailed()
      : std::runtime_error(
            "No se puede escribir la salida: compruebe que queda espacio en el disco") {}
};

/// Prints what happens, a line an event, each as soon as it happens. The stream outlives it.
class EventPrinter {
 public:
  /// The word for a command of the script, of which tabs are told as they are.
  static constexpr std::string_view kCommand = ">";
  static constexpr std::string_view kRefusal = "rechazo";

  explicit EventPrinter(std::ostream& out) : out_(out) {}

  /// "WORD REST", or the word alone; with what would act on a terminal written out.
  /// OutputFailed when it doesn't arrive.
  void Print(std::string_view word, const std::string& rest = {});

 private:
  std::ostream& out_;
};

}  // namespace quorvane::guion

#pragma once

#include <CLI/CLI.hpp>
#include <concepts>
#include <limits>
#include <optional>
#include <string>

#include "platform/text/PlainNumber.h"

namespace quorvane {

/// An option that takes a number between `least` and `most`, told to `take`. `PlainNumber` reads it
/// rather than the library, which takes a leading zero for octal and folds what is too large. What
/// it refuses is a CLI::ValidationError with the option's name.
template <std::integral T, class Take>
CLI::Option* AddNumber(CLI::App& app, const std::string& name, const std::string& description,
                       T least, T most, const Take& take) {
  const auto read = [name, least, most, take](const std::string& text) {
    const auto number = PlainNumber<T>(text);
    if (!number || *number < least || *number > most)
      throw CLI::ValidationError(name, "ha de ser un número entero entre " + std::to_string(least) +
                                           " y " + std::to_string(most) +
                                           ", sin ceros por delante");
    take(*number);
  };
  return app.add_option_function<std::string>(name, read, description)->type_name("N");
}

/// The same of any number that fits `target`, which is one or an optional one.
template <std::integral T>
CLI::Option* AddNumber(CLI::App& app, const std::string& name, T& target,
                       const std::string& description, T least = std::numeric_limits<T>::min(),
                       T most = std::numeric_limits<T>::max()) {
  return AddNumber(app, name, description, least, most, [&target](T number) { target = number; });
}
template <std::integral T>
CLI::Option* AddNumber(CLI::App& app, const std::string& name, std::optional<T>& target,
                       const std::string& description) {
  return AddNumber(app, name, description, std::numeric_limits<T>::min(),
                   std::numeric_limits<T>::max(), [&target](T number) { target = number; });
}

}  // namespace quorvane

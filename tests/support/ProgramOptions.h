#pragma once

#include <concepts>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "platform/text/PlainNumber.h"

namespace quorvane::test {

/// How a test program that somebody runs by hand is called: its options, and where their values go.
/// What is wrong with a call is told with the usage.
class ProgramOptions {
 public:
  ProgramOptions(std::string program, std::string usage)
      : program_(std::move(program)), usage_(std::move(usage)) {}

  /// A whole number that is greater than zero.
  template <std::integral Number>
  ProgramOptions& Positive(const std::string& option, Number& number) {
    return Add(option, "un número entero mayor que cero", [&number](std::string_view text) {
      const auto read = PlainNumber<Number>(text);
      if (read) number = *read;
      return read && number > 0;
    });
  }

  ProgramOptions& Text(const std::string& option, std::string& text) {
    return Add(option, "un texto", [&text](std::string_view value) {
      text = value;
      return true;
    });
  }

  /// One of those words, each of which stands for a value.
  template <class T>
  ProgramOptions& OneOf(const std::string& option, T& value,
                        const std::map<std::string, T, std::less<>>& words) {
    std::string known;
    for (const auto& [word, meaning] : words) known += (known.empty() ? "" : ", ") + word;
    return Add(option, "uno de " + known, [&value, words](std::string_view text) {
      const auto found = words.find(text);
      if (found != words.end()) value = found->second;
      return found != words.end();
    });
  }

  /// Without a value: its presence says it.
  ProgramOptions& Flag(const std::string& option, bool& flag) {
    flags_[option] = &flag;
    return *this;
  }

  /// Reads the arguments, then runs the program. The exit status: what `run` gives, 0 for
  /// `--ayuda`, 1 for what `run` throws, which is told, and 2 for arguments that can't be read.
  int Run(int argc, char** argv, const std::function<int()>& run) const {
    const std::string_view first = argc == 2 ? argv[1] : "";
    if (first == "--ayuda" || first == "--help") {
      std::cout << usage_;
      return 0;
    }
    try {
      for (int i = 1; i < argc; ++i) Read(argv[i], i + 1 < argc ? argv[i + 1] : nullptr, i);
    } catch (const std::invalid_argument& mistake) {
      std::cerr << program_ << ": " << mistake.what() << "\n\n" << usage_;
      return 2;
    }
    try {
      return run();
    } catch (const std::exception& failure) {
      std::cerr << program_ << ": " << failure.what() << '\n';
      return 1;
    }
  }

 private:
  struct Option {
    std::string wants;
    std::function<bool(std::string_view)> take;
  };

  ProgramOptions& Add(const std::string& option, const std::string& wants,
                      std::function<bool(std::string_view)> take) {
    options_[option] = {wants, std::move(take)};
    return *this;
  }

  /// Takes the option, and its value where it has one: then `index` stands on that.
  void Read(const std::string& name, const char* value, int& index) const {
    const auto flag = flags_.find(name);
    if (flag != flags_.end()) {
      *flag->second = true;
      return;
    }
    const auto option = options_.find(name);
    if (option == options_.end()) throw std::invalid_argument("no hay opción «" + name + "»");
    const auto& [wants, take] = option->second;
    if (value == nullptr) throw std::invalid_argument("a " + name + " le falta " + wants);
    if (!take(value))
      throw std::invalid_argument(name + " pide " + wants + ", y no «" + value + "»");
    ++index;
  }

  std::string program_;
  std::string usage_;
  std::map<std::string, bool*> flags_;
  std::map<std::string, Option> options_;
};

}  // namespace quorvane::test

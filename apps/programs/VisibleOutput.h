#pragma once

#include <ostream>
#include <string>

namespace quorvane {

/// While one lives, what is written to a stream arrives line by line as `VisibleText` has it: the
/// net under all that a program prints of a school. A name's own line end is for who prints the
/// name to write out; tabs, and the returns before a line's end, pass. A stream without a buffer,
/// as the errors' is, has none through this either.
class VisibleOutput : public std::streambuf {
 public:
  explicit VisibleOutput(std::ostream& stream) : stream_(stream), to_(stream.rdbuf(this)) {}
  ~VisibleOutput() override;
  VisibleOutput(const VisibleOutput&) = delete;
  VisibleOutput& operator=(const VisibleOutput&) = delete;
  VisibleOutput(VisibleOutput&&) = delete;
  VisibleOutput& operator=(VisibleOutput&&) = delete;

 protected:
  int_type overflow(int_type letter) override;
  int sync() override;

 private:
  [[nodiscard]] bool WriteLine();

  std::ostream& stream_;
  std::streambuf* to_;
  std::string line_;
};

}  // namespace quorvane

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quorvane {

/// One gesture of a user's, as a line of a script has it, but that a row of a grid may be told by
/// its number instead of its place.
struct RegisterGesture {
  std::string command;
  std::string control;
  std::string argument;
  std::int32_t row = 0;  ///< of `fila`: the number that the row bears
};

/// The gestures that put subjects on the register, in their order.
class RegisterGestures {
 public:
  void Press(const std::string& button) { Add({"pulsar", button, {}, 0}); }
  void Choose(const std::string& list, std::int32_t data) {
    Add({"elegir", list, "=" + std::to_string(data), 0});
  }
  void Row(const std::string& grid, std::int32_t data) { Add({"fila", grid, {}, data}); }
  void Tab(const std::string& strip, int number) {
    Add({"pestana", strip, std::to_string(number), 0});
  }
  void Find(std::int32_t teacher) { Add({"docente", std::to_string(teacher), {}, 0}); }
  void Open(int node) { Add({"nodo", std::to_string(node), {}, 0}); }

  [[nodiscard]] const std::vector<RegisterGesture>& All() const noexcept { return gestures_; }

 private:
  void Add(RegisterGesture gesture) { gestures_.push_back(std::move(gesture)); }

  std::vector<RegisterGesture> gestures_;
};

}  // namespace quorvane

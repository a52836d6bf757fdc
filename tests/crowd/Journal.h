#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace quorvane::test {

/// What one process says that it has done, in its own order, in a file of its own.
class Journal {
 public:
  enum class Kind : char {
    Form = 'F',        ///< a form that reads or writes grades is about to be loaded
    Load = 'L',        ///< it is about to read which subjects nobody has locked
    Written = 'W',     ///< a statement has written `number` rows
    Differs = 'D',     ///< the grade of a statement isn't in the database while its form is open
    Technician = 'T',  ///< what follows is done from outside the forms
    Figure = 'C',      ///< `text` has been counted `number` times
  };

  struct Line {
    Kind kind = Kind::Form;
    std::int64_t number = 0;  ///< but for what is counted, the last entry of the diary by then
    std::string text;
  };

  /// Begins the file. Lines are there for others once the journal is gone.
  explicit Journal(const std::string& path) : file_(path) {}

  void Write(Kind kind, std::int64_t number, const std::string& text) {
    file_ << static_cast<char>(kind) << ' ' << number << ' ' << text << '\n';
  }

  static std::vector<Line> Read(const std::string& path) {
    std::vector<Line> lines;
    std::ifstream file(path);
    char kind = 0;
    std::int64_t number = 0;
    while (file >> kind >> number) {
      std::string text;
      file.get();
      std::getline(file, text);
      lines.push_back({static_cast<Kind>(kind), number, text});
    }
    return lines;
  }

 private:
  std::ofstream file_;
};

}  // namespace quorvane::test

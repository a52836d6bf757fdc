#pragma once

#include <map>
#include <memory>
#include <string>

struct sqlite3;

namespace quorvane::test {

/// A copy of a school in memory, on the engine alone, to which statements are applied that are
/// known to be in the school.
class Replica {
 public:
  /// All rows of all tables, by table.
  using Rows = std::map<std::string, std::string>;

  /// Of the school in that file, which is closed again.
  explicit Replica(const std::string& school);

  /// Fails with a runtime error of the language where the engine refuses it.
  void Apply(const std::string& statement);
  [[nodiscard]] Rows All() const;
  /// Writes it to a file of its own, as a school like any other.
  void Save(const std::string& path) const;

  /// The same of a file; throws unless the engine finds the file whole.
  static Rows AllOf(const std::string& school);
  /// The first column of what a SELECT finds in a file.
  static std::string First(const std::string& school, const std::string& select);

 private:
  struct Closer {
    void operator()(sqlite3* handle) const;
  };
  using Handle = std::unique_ptr<sqlite3, Closer>;

  static Handle Open(const std::string& path);
  static Rows All(sqlite3* handle);

  Handle handle_;
};

}  // namespace quorvane::test

#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/data/Recordset.h"

namespace quorvane {

/// A connection to a database, reached by SQL text. It belongs to the host and outlives the
/// module's use of it. Every failure of the engine is error 0x80004005 with the engine's text.
class Connection {
 public:
  /// Told each statement before it reaches the engine; what it throws takes the statement's place.
  using Observer = std::function<void(const Connection& connection, const std::string& statement)>;

  /// `name` is what traces call it: "centro", "borrado" or "entrada". One without a name, as the
  /// project's own tools and tests use it beside the module, is not traced.
  explicit Connection(std::string name);
  virtual ~Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  Connection(Connection&&) = delete;
  Connection& operator=(Connection&&) = delete;

  [[nodiscard]] const std::string& Name() const noexcept { return name_; }

  /// Executes one statement, with effect at once and for good: there are no transactions.
  /// Error 3704 on a closed connection; 0x80004005, before anything else sees it, for one with a
  /// NUL.
  Recordset Execute(const std::string& statement);

  void Observe(Observer observer) { observer_ = std::move(observer); }

  virtual void Open() = 0;   ///< no effect on an open one, but an error if its database has gone
  virtual void Close() = 0;  ///< no effect on a closed one
  [[nodiscard]] virtual bool IsOpen() const = 0;
  /// The property "Data Source": what the host finds the database's machine by.
  [[nodiscard]] virtual std::string DataSource() const = 0;

 protected:
  virtual Recordset Run(const std::string& statement) = 0;  ///< when open; all rows, read whole
  /// Error 0x80004005 for a text with a NUL.
  static void RequireWhole(std::string_view statements);

 private:
  std::string name_;
  Observer observer_;
};

}  // namespace quorvane

#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "apps/zendria/Centre.h"
#include "apps/zendria/User.h"
#include "platform/Connection.h"

namespace quorvane::zendria {

/// An open school: a SQLite file with the three connections that the module works on. The
/// connections live as long as the school; the module opens and closes `Entrada` itself.
class School {
 public:
  /// Throws SchoolError for a file that is missing, unreadable, empty, no database or no school.
  explicit School(const QString& file);

  [[nodiscard]] const QString& File() const noexcept { return file_; }
  /// The file's name without its ending, as a heading shows it.
  [[nodiscard]] QString Name() const;
  /// By their ids; a session is in one of them.
  [[nodiscard]] const std::vector<Centre>& Centres() const noexcept { return centres_; }

  /// In Spanish order of their names.
  [[nodiscard]] const std::vector<User>& Users() const noexcept { return users_; }
  [[nodiscard]] std::optional<User> FindUser(std::int32_t id) const;

  [[nodiscard]] Connection& Centro() noexcept { return *centro_; }
  [[nodiscard]] Connection& Borrado() noexcept { return *borrado_; }
  [[nodiscard]] Connection& Entrada() noexcept { return *entrada_; }

  /// For what the host asks for itself: not traced and not observed.
  [[nodiscard]] Connection& Own() noexcept { return *own_; }

  /// Told of each statement on any of the module's three.
  void Observe(const Connection::Observer& observer);

 private:
  void CheckTables();
  void ReadUsers();

  QString file_;
  std::unique_ptr<Connection> centro_;
  std::unique_ptr<Connection> borrado_;
  std::unique_ptr<Connection> entrada_;
  std::unique_ptr<Connection> own_;
  std::vector<User> users_;
  std::vector<Centre> centres_;
};

}  // namespace quorvane::zendria

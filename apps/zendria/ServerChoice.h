#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "apps/zendria/ServerAnswer.h"

namespace quorvane::zendria {

/// How to reach a school on a server, but for the password, as the user tells it field by field.
struct ServerChoice {
  enum class Kind { PostgreSql, SqlServer };

  Kind kind = Kind::PostgreSql;
  QString server;
  QString port;  ///< the usual one when empty
  QString database;
  QString user;
  QString sslmode = "prefer";  ///< of PostgreSQL alone

  [[nodiscard]] static QString UsualPort(Kind kind);
  /// Those that the user may choose from.
  struct SslMode {
    QString name;
    QString title;  ///< as the user reads it
  };
  [[nodiscard]] static const std::vector<SslMode>& SslModes();

  /// The connection string. What `Mistake` names can't be put into one.
  [[nodiscard]] QString Text() const;
  /// The first field whose value no connection string can hold, and what to tell of it.
  [[nodiscard]] std::optional<ServerAnswer> Mistake() const;

  /// What makes that string; none when the fields can't.
  [[nodiscard]] static std::optional<ServerChoice> Of(const QString& text);
};

}  // namespace quorvane::zendria

#pragma once

#include <QDialog>
#include <QLineEdit>

#include "apps/escuela/SchoolAddress.h"

namespace quorvane::zendria {

/// Asks how to reach a school on a server: the connection string, and apart from it the password,
/// which is neither shown nor kept.
class ConnectDialog : public QDialog {
 public:
  /// Begins with that connection string; with one, at the password.
  explicit ConnectDialog(const QString& connectionString, QWidget* parent = nullptr);

  /// The whole address, password included.
  [[nodiscard]] SchoolAddress Address() const;

  [[nodiscard]] QLineEdit& String() { return string_; }
  [[nodiscard]] QLineEdit& Password() { return password_; }

 private:
  QLineEdit string_;
  QLineEdit password_;
};

}  // namespace quorvane::zendria

#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <optional>

#include "apps/escuela/SchoolAddress.h"
#include "apps/zendria/ServerAnswer.h"
#include "apps/zendria/ServerChoice.h"

class QPushButton;

namespace quorvane::zendria {

/// Asks how to reach a school on a server, field by field or by a connection string, and apart from
/// that the password, which is neither shown nor kept. It stays, with all that was typed, until the
/// school opens.
class ConnectDialog : public QDialog {
 public:
  /// Opens the school there; none when that went well, else what to tell.
  using Trial = std::function<std::optional<ServerAnswer>(const SchoolAddress& address)>;

  /// Begins with that connection string; with one, at the password.
  ConnectDialog(const QString& connectionString, Trial trial, QWidget* parent = nullptr);

  /// The whole address, password included.
  [[nodiscard]] SchoolAddress Address() const;

  [[nodiscard]] QLineEdit& String() { return string_; }
  [[nodiscard]] QLineEdit& Password() { return password_; }

  void accept() override;

 private:
  void LayOut();
  void NameForReaders();
  void Begin(const QString& connectionString);
  [[nodiscard]] ServerChoice Choice() const;
  [[nodiscard]] bool IsComplete() const;
  void FollowKind();
  void FollowByHand();
  void Show(const ServerAnswer& answer);

  Trial trial_;
  QComboBox kind_;
  QLineEdit server_;
  QLineEdit port_;
  QLineEdit database_;
  QLineEdit user_;
  QLineEdit password_;
  QComboBox tls_;
  QCheckBox byHand_;
  QLineEdit string_;
  QLabel answer_;
  QFormLayout* fields_ = nullptr;
  QPushButton* connect_ = nullptr;
};

}  // namespace quorvane::zendria

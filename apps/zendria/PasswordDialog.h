#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

#include "apps/zendria/CentreChoice.h"
#include "apps/zendria/User.h"

namespace quorvane::zendria {

class SignInDelay;

/// Asks for a user's name and password, in a school that has passwords. Whether it was the name or
/// the password that was wrong is nobody's business.
class PasswordDialog : public QDialog {
 public:
  /// Whose name and password that is; none for nobody's. What it throws is told to the user, and
  /// counts as no try.
  using Trial = std::function<std::optional<User>(const QString& name, const QString& password)>;

  /// `delay` outlives the dialog.
  PasswordDialog(const QString& school, Trial trial, SignInDelay& delay, QWidget* parent = nullptr);

  /// Begins with that name; without one the user types it.
  void Begin(const QString& name);
  void OfferCentres(const std::vector<Centre>& centres, std::optional<std::int32_t> id) {
    centre_.Offer(centres, id);
  }

  /// Who has signed in; none unless the dialog was accepted.
  [[nodiscard]] std::optional<User> Chosen() const { return chosen_; }
  [[nodiscard]] std::optional<Centre> ChosenCentre() const { return centre_.Chosen(); }

  [[nodiscard]] QLineEdit& Name() { return name_; }
  [[nodiscard]] QLineEdit& Password() { return password_; }
  [[nodiscard]] const QLabel& Answer() const { return answer_; }
  [[nodiscard]] QPushButton& EnterButton() { return *enter_; }

  void accept() override;

 private:
  void LayOut(const QString& school);
  /// As it stands now: whether a try may be made, and what is told of the last one.
  void Follow();

  Trial trial_;
  SignInDelay& delay_;
  std::optional<User> chosen_;
  bool failed_ = false;
  QLineEdit name_;
  QLineEdit password_;
  QLabel answer_;
  CentreChoice centre_;
  QPushButton* enter_ = nullptr;  // Qt's
  QTimer second_;
};

}  // namespace quorvane::zendria

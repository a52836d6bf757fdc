#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <optional>
#include <vector>

#include "apps/zendria/Centre.h"
#include "apps/zendria/FilteredList.h"
#include "apps/zendria/User.h"

namespace quorvane::zendria {

/// Asks who works, and in which centre of a school that has more than one: the school's users with
/// their profiles, narrowed as one types.
class SignInDialog : public QDialog {
 public:
  SignInDialog(const QString& school, std::vector<User> users, QWidget* parent = nullptr);

  /// Lets the user choose the centre, beginning with the one of that id or else the first. One
  /// centre leaves no choice and isn't shown.
  void OfferCentres(const std::vector<Centre>& centres, std::optional<std::int32_t> id);

  /// None unless the dialog was accepted.
  [[nodiscard]] std::optional<User> Chosen() const;

  /// None in a school without centres.
  [[nodiscard]] std::optional<Centre> ChosenCentre() const;

  [[nodiscard]] FilteredList& List() { return list_; }
  [[nodiscard]] QComboBox& CentreBox() { return centreBox_; }

 private:
  std::vector<User> users_;
  std::vector<Centre> centres_;
  FilteredList list_;
  QLabel centreLabel_;
  QComboBox centreBox_;
};

}  // namespace quorvane::zendria

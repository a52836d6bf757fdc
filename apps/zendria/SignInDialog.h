#pragma once

#include <QDialog>
#include <cstdint>
#include <optional>
#include <vector>

#include "apps/zendria/CentreChoice.h"
#include "apps/zendria/FilteredList.h"
#include "apps/zendria/User.h"

namespace quorvane::zendria {

/// Asks who works, and in which centre of a school that has more than one: the school's users with
/// their profiles, narrowed as one types.
class SignInDialog : public QDialog {
 public:
  SignInDialog(const QString& school, std::vector<User> users, QWidget* parent = nullptr);

  /// Marks that user beforehand; no effect for one who isn't listed.
  void Begin(std::optional<std::int32_t> user);
  /// Lets the user choose the centre, beginning with the one of that id or else the first.
  void OfferCentres(const std::vector<Centre>& centres, std::optional<std::int32_t> id) {
    centre_.Offer(centres, id);
  }

  /// None unless the dialog was accepted.
  [[nodiscard]] std::optional<User> Chosen() const;

  /// None in a school without centres.
  [[nodiscard]] std::optional<Centre> ChosenCentre() const { return centre_.Chosen(); }

  [[nodiscard]] FilteredList& List() { return list_; }
  [[nodiscard]] QComboBox& CentreBox() { return centre_.Box(); }

 private:
  std::vector<User> users_;
  FilteredList list_;
  CentreChoice centre_;
};

}  // namespace quorvane::zendria

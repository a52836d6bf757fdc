#pragma once

#include <QDialog>
#include <optional>
#include <vector>

#include "apps/zendria/FilteredList.h"
#include "apps/zendria/User.h"

namespace quorvane::zendria {

/// Asks who works: the school's users with their profiles, narrowed as one types.
class SignInDialog : public QDialog {
 public:
  SignInDialog(const QString& school, std::vector<User> users, QWidget* parent = nullptr);

  /// None unless the dialog was accepted.
  [[nodiscard]] std::optional<User> Chosen() const;

  [[nodiscard]] FilteredList& List() { return list_; }

 private:
  std::vector<User> users_;
  FilteredList list_;
};

}  // namespace quorvane::zendria

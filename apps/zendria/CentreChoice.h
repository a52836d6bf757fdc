#pragma once

#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>
#include <cstdint>
#include <optional>
#include <vector>

#include "apps/zendria/Centre.h"

namespace quorvane::zendria {

/// The question for the centre that somebody works in, of a school that has more than one. One
/// centre leaves no choice and isn't shown.
class CentreChoice {
 public:
  CentreChoice();

  void AddTo(QVBoxLayout& column);
  /// Begins with the centre of that id or else the first.
  void Offer(const std::vector<Centre>& centres, std::optional<std::int32_t> id);
  /// None in a school without centres.
  [[nodiscard]] std::optional<Centre> Chosen() const;

  [[nodiscard]] QComboBox& Box() { return box_; }

 private:
  std::vector<Centre> centres_;
  QLabel label_;
  QComboBox box_;
};

}  // namespace quorvane::zendria

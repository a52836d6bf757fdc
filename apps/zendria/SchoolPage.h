#pragma once

#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

#include "apps/zendria/ScreenCatalogue.h"

namespace quorvane::zendria {

class School;
struct User;
struct Centre;

/// What the main window shows of an open school: the tree of screens, and beside it the session
/// and what the selected screen is for.
class SchoolPage : public QWidget {
 public:
  explicit SchoolPage(ScreenCatalogue screens, QWidget* parent = nullptr);

  /// The centre is shown in a school with more than one.
  void ShowSession(const School& school, const User& user, const std::optional<Centre>& centre,
                   bool active);

  /// What stands open in the user's name, in lines; empty for nothing.
  void ShowLeftovers(const QString& text);

  /// The node of the selected screen; none on a branch or a disabled screen.
  [[nodiscard]] std::optional<std::uint8_t> SelectedNode() const;
  void SelectNode(std::uint8_t node);
  [[nodiscard]] const ScreenEntry* Find(std::uint8_t node) const;

  [[nodiscard]] QTreeWidget& Tree() { return tree_; }
  [[nodiscard]] QPushButton& OpenButton() { return open_; }

  std::function<void(std::uint8_t node)> OpenNode;

 private:
  void FillTree();
  void ShowSelected();
  void OpenSelected();

  ScreenCatalogue screens_;
  QTreeWidget tree_;
  QLabel school_;
  QFormLayout* session_;
  QLabel file_;
  QLabel centre_;
  QLabel user_;
  QLabel profile_;
  QLabel year_;
  QLabel leftovers_;
  QLabel title_;
  QLabel description_;
  QPushButton open_;
};

}  // namespace quorvane::zendria

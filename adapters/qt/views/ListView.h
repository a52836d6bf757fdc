#pragma once

#include <QObject>

#include "adapters/qt/views/ControlView.h"
#include "platform/controls/ListBox.h"

class QListWidget;

namespace quorvane::qt {

/// A list that is always open. Where a double click does something, Enter does the same with the
/// entry that is selected, and never reaches the default button while the list has the keyboard.
class ListView : public QObject, public ControlView {
 public:
  ListView(FormWindow& window, ListBox& list);

 protected:
  void Show() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] bool HasSameEntries() const;
  void Choose();
  bool TakesEnter();

  ListBox& list_;
  QListWidget* rows_;
};

}  // namespace quorvane::qt

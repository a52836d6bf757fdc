#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace quorvane::zendria {

/// A list with a field above it that narrows it as the user types, case and accents ignored. The
/// arrow keys move through the list while the field keeps the keyboard.
class FilteredList : public QWidget {
 public:
  struct Entry {
    std::int32_t id = 0;
    QString text;
    QString detail;  ///< shown behind the text, searched too; may be empty
  };

  FilteredList(std::vector<Entry> entries, const QString& hint, QWidget* parent = nullptr);

  /// The current entry; none when nothing passes the filter.
  [[nodiscard]] std::optional<std::int32_t> Chosen() const;
  void Choose(std::int32_t id);

  [[nodiscard]] QLineEdit& Field() { return field_; }
  [[nodiscard]] QListWidget& List() { return list_; }

  std::function<void()> Changed;   ///< another entry is current, or none
  std::function<void()> Accepted;  ///< the user double-clicks an entry or presses Enter on it

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Fill();

  std::vector<Entry> entries_;
  std::vector<QString> folded_;
  QLineEdit field_;
  QListWidget list_;
  QLabel count_;
};

}  // namespace quorvane::zendria

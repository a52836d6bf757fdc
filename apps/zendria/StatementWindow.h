#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "apps/zendria/StatementLog.h"

namespace quorvane::zendria {

/// The module's statements as they run, for support: live, narrowed by a word, to be copied.
class StatementWindow : public QDialog {
 public:
  static constexpr QSize kFirstSize{900, 480};

  /// `log` outlives the window.
  explicit StatementWindow(StatementLog& log, QWidget* parent = nullptr);
  ~StatementWindow() override;
  StatementWindow(const StatementWindow&) = delete;
  StatementWindow& operator=(const StatementWindow&) = delete;
  StatementWindow(StatementWindow&&) = delete;
  StatementWindow& operator=(StatementWindow&&) = delete;

  [[nodiscard]] QString Text() const { return text_.toPlainText(); }
  [[nodiscard]] QLineEdit& Filter() { return filter_; }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void GoToLast();
  [[nodiscard]] bool Passes(const StatementLog::Line& line) const;
  void ShowAll();
  void CopyAll() const;

  StatementLog& log_;
  QLineEdit filter_;
  QPlainTextEdit text_;
};

}  // namespace quorvane::zendria

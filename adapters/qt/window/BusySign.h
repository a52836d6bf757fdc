#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

namespace quorvane::qt {

/// A ring of dots that goes round while it runs.
class BusySign : public QWidget {
 public:
  explicit BusySign(QWidget* parent);

  void Run(bool running);
  /// Which of the dots leads, counted from the top.
  [[nodiscard]] int Leader() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QTimer repaint_;
  QElapsedTimer since_;
  bool running_ = false;
};

}  // namespace quorvane::qt

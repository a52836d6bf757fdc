#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace quorvane::zendria {

/// The pointer tells that the program is at work for as long as this lives.
class BusyCursor {
 public:
  BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
  BusyCursor(const BusyCursor&) = delete;
  BusyCursor& operator=(const BusyCursor&) = delete;
  BusyCursor(BusyCursor&&) = delete;
  BusyCursor& operator=(BusyCursor&&) = delete;
};

}  // namespace quorvane::zendria

#include "apps/zendria/StoppableWork.h"

#include <QCoreApplication>
#include <QProgressDialog>

#include "apps/zendria/Attempt.h"

namespace quorvane::zendria {
namespace {

constexpr auto kWhole = 1000;

/// The user doesn't want the rest.
struct Stopped {};

}  // namespace

WorkEnd StoppableWork::Do(const Bar& bar,
                          const std::function<void(const Progress& progress)>& work) {
  QProgressDialog shown(bar.doing, "&Cancelar", 0, kWhole, bar.parent);
  shown.setWindowTitle(bar.title);
  shown.setWindowModality(Qt::WindowModal);
  shown.setAutoClose(false);
  shown.setAutoReset(false);
  shown.setMinimumDuration(static_cast<int>(bar.patience.count()));
  const auto from = std::chrono::steady_clock::now();
  try {
    const auto progress = [&](std::size_t done, std::size_t all) {
      if (!shown.isVisible() && std::chrono::steady_clock::now() - from >= bar.patience)
        shown.show();
      shown.setValue(all == 0 ? 0 : static_cast<int>(done * kWhole / all));
      // A bar that doesn't move lets nobody press its button by itself.
      if (shown.isVisible()) QCoreApplication::processEvents();
      if (shown.wasCanceled()) throw Stopped();
    };
    return Attempt(bar.parent, [&] { work(progress); }) ? WorkEnd::Done : WorkEnd::Failed;
  } catch (const Stopped&) {
    return WorkEnd::Stopped;
  }
}

}  // namespace quorvane::zendria

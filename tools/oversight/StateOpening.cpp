// How long the desktop's view of an evaluation's state takes to stand on the screen, painted:
// medida-estado FILE. Ends with 1 beyond the limit.

#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>

#include "apps/escuela/SchoolAddress.h"
#include "apps/zendria/StateDialog.h"

namespace quorvane {
namespace {

constexpr auto kLimit = 1000;  // milliseconds
constexpr auto kByTeachers = 1;

bool Measure(const std::string& file) {
  const auto school = SchoolAddress::File(file).Open("", SchoolAddress::Access::ReadOnly);
  QElapsedTimer clock;
  clock.start();
  zendria::StateDialog dialog(*school, {0, true, 0});
  const auto painted = [&] {
    dialog.show();
    QCoreApplication::processEvents();
    static_cast<void>(dialog.grab());
    return clock.restart();
  };
  const auto opened = painted();
  dialog.Refresh();
  const auto again = painted();
  dialog.Grouping().setCurrentIndex(kByTeachers);
  const auto byTeachers = painted();
  std::printf(
      "Estado en el escritorio: se abre en %lld ms (límite %d), se lee de nuevo en %lld, por "
      "profesores en %lld\n",
      static_cast<long long>(opened), kLimit, static_cast<long long>(again),
      static_cast<long long>(byTeachers));
  return opened <= kLimit;
}

}  // namespace
}  // namespace quorvane

int main(int argc, char** argv) {
  if (!qgetenv("QT_QPA_PLATFORM").startsWith("offscreen")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "Uso: medida-estado FICHERO\n");
    return 2;
  }
  try {
    return quorvane::Measure(argv[1]) ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "medida-estado: %s\n", error.what());
    return 1;
  }
}

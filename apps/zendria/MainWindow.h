#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QStackedWidget>
#include <QUrl>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "apps/zendria/CellHistory.h"
#include "apps/zendria/Centre.h"
#include "apps/zendria/FormLines.h"
#include "apps/zendria/GradeDrafts.h"
#include "apps/zendria/GradeRescue.h"
#include "apps/zendria/ModalKeys.h"
#include "apps/zendria/OversightMenu.h"
#include "apps/zendria/OwnPublications.h"
#include "apps/zendria/PaperMenu.h"
#include "apps/zendria/SchoolDoor.h"
#include "apps/zendria/SchoolPage.h"
#include "apps/zendria/StatementLog.h"
#include "apps/zendria/User.h"
#include "apps/zendria/WelcomePage.h"

namespace quorvane::qt {
class QtFrontEnd;
}

namespace quorvane::zendria {

class Preferences;
class StatementWindow;
struct Failure;

/// The host's window: one school, one user, the tree of screens. It hands the module its session
/// and goes on living after whatever ends a screen.
class MainWindow : public QMainWindow {
 public:
  /// `screen` and `preferences` outlive the window, and `preferences` every form that `screen`
  /// shows: it keeps their sizes.
  MainWindow(qt::QtFrontEnd& screen, Preferences& preferences, ScreenCatalogue screens);
  ~MainWindow() override;
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  MainWindow(MainWindow&&) = delete;
  MainWindow& operator=(MainWindow&&) = delete;

  /// Opens the school at that place, see `AddressOf`, and signs in: as that user, or as the one who
  /// is chosen in the dialog. A password that the place lacks is asked for. The school that was
  /// open stays when this comes to nothing. False then; what is no school and a user who isn't in
  /// it are told to the user first.
  bool OpenSchool(const QString& place, std::optional<std::int32_t> user = std::nullopt);

  /// Opens a screen of the module and returns when it has gone. No effect while one is open,
  /// without a school, or for a screen that isn't available.
  void OpenNode(std::uint8_t node);
  /// The same for the screen that the route leads to, with what it names chosen.
  void OpenRoute(const GradeRoute& route);

  /// Publications and locks; a school has to be open.
  void ShowLocks();
  /// The module's statements, in a window that stays.
  StatementWindow& ShowStatements();

  /// Asked to end the program while a screen or a dialog stands before the window, as the task bar
  /// does; without it the window stays.
  std::function<void()> Leave;
  /// Told of grades that couldn't be saved any more while the program leaves.
  std::function<void(const RescuedGrades&)> Rescued;
  /// Shows a page outside this program; the desktop's browser unless told otherwise.
  std::function<void(const QUrl&)> Browse;

  [[nodiscard]] bool HasSchool() const noexcept { return school_ != nullptr; }
  [[nodiscard]] SchoolPage& Page() noexcept { return page_; }
  [[nodiscard]] QAction& YearAction() noexcept { return active_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool nativeEvent(const QByteArray& eventType, void* message, qintptr* result) override;

 private:
  void BuildMenus();
  /// The menus' keys that make sense while a screen or a dialog is open.
  void AddModalKeys();
  /// At that heading, or at its beginning.
  void ShowManual(const QString& heading = {});
  void ChooseFile();
  /// False, and told, for a file that would be ruined by what another has left beside it.
  bool MayOpen(const QString& place);
  void Connect();
  /// From now on no statement of a server's keeps this program's windows from being painted.
  void PaintWhileWaiting();
  /// The school that was open goes; false when nobody has entered another.
  bool Enter(std::optional<Entrance> entrance);
  void ChangeUser();
  void ShowLocks(QWidget& before);
  /// Tells what stands open in the name of who has signed in, and offers to remove what a program
  /// that is gone has left.
  void LookForLeftovers();
  void ShowLeftovers(bool offer);
  void ShowSession();
  void OnSchool(const OversightMenu::Work& work);
  void ShowRecent();
  void ForgetSizes();
  void Working(const QString& screenTitle);
  std::optional<RescuedGrades> Rescue(const Failure& failure, const QString& screenTitle);
  void ShowFailed(const Failure& failure, const QString& screenTitle);

  qt::QtFrontEnd& screen_;
  Preferences& preferences_;
  SchoolDoor door_;
  StatementLog log_;
  GradeRescue rescue_;
  GradeDrafts drafts_;
  FormLines lines_;
  PaperMenu paper_;
  std::unique_ptr<School> school_;
  std::optional<OwnPublications> publications_;
  User user_;
  std::optional<Centre> centre_;
  bool nodeOpen_ = false;

  ModalKeys modalKeys_;
  QString manual_;  // empty for none
  QStackedWidget pages_;
  WelcomePage welcome_;
  SchoolPage page_;
  QMenu recent_;
  QAction changeUser_;
  QAction active_;
  QAction locks_;
  OversightMenu oversight_{*this};
  CellHistory cellHistory_;
  std::unique_ptr<StatementWindow> statements_;
};

}  // namespace quorvane::zendria

#include "apps/zendria/MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDateTime>
#include <QDesktopServices>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <utility>

#include "adapters/odbc/Waiting.h"
#include "adapters/qt/views/IconStore.h"
#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "apps/zendria/AboutBox.h"
#include "apps/zendria/Attempt.h"
#include "apps/zendria/CloseRequest.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/FirstSize.h"
#include "apps/zendria/GradeCell.h"
#include "apps/zendria/LeftoversBox.h"
#include "apps/zendria/LocksDialog.h"
#include "apps/zendria/ManualPage.h"
#include "apps/zendria/NodeRunner.h"
#include "apps/zendria/Preferences.h"
#include "apps/zendria/School.h"
#include "apps/zendria/SchoolError.h"
#include "apps/zendria/SchoolPlace.h"
#include "apps/zendria/Session.h"
#include "apps/zendria/StatementWindow.h"
#include "apps/zendria/StepOneChoice.h"
#include "apps/zendria/StrangeMark.h"
#include "apps/zendria/SupportDetails.h"
#include "platform/RuntimeError.h"

namespace quorvane::zendria {
namespace {

constexpr auto kTitle = "Zendria Escuela";
constexpr auto kGeometry = "principal";
constexpr auto kStatementsGeometry = "sentencias";
constexpr auto kRescueFolder = "/notas-sin-guardar";
constexpr auto kDraftFolder = "/borradores";
constexpr auto kManualKey = "F1";
constexpr auto kLocksKey = "Ctrl+B";
constexpr auto kStatementsKey = "Ctrl+T";
constexpr QSize kMainSize(860, 560);

QString RecentTitle(const QString& place) {
  return QString::fromStdString(AddressOf(place).Shown());
}

/// Where the connection was lost, it is made anew.
std::optional<Failure> Reconnect(School& school) {
  try {
    school.Reopen();
    return std::nullopt;
  } catch (const RuntimeError& error) {
    return Failure{error.Number(), QString::fromStdString(error.Description())};
  }
}

}  // namespace

MainWindow::MainWindow(qt::QtFrontEnd& screen, Preferences& preferences, ScreenCatalogue screens)
    : screen_(screen),
      preferences_(preferences),
      door_(*this, preferences),
      rescue_(screen, preferences.DataFolder() + kRescueFolder),
      drafts_(screen, preferences.DataFolder() + kDraftFolder),
      lines_(screen, drafts_.Problem()),
      paper_(screen, screen.Heading),
      manual_(FindManual(QCoreApplication::applicationDirPath())),
      page_(std::move(screens)),
      recent_("Escuelas &recientes"),
      changeUser_("Cambiar de &usuario…", this),
      active_("Año escolar &activo", this),
      locks_("&Publicaciones y bloqueos…", this),
      cellHistory_(screen, [this] { return school_ == nullptr ? nullptr : &school_->Own(); }) {
  setWindowTitle(kTitle);
  setWindowIcon(qt::IconStore::Load("zendria.ico"));
  pages_.addWidget(&welcome_);
  pages_.addWidget(&page_);
  setCentralWidget(&pages_);
  Browse = [](const QUrl& page) { QDesktopServices::openUrl(page); };
  BuildMenus();
  AddModalKeys();
  welcome_.Open = [this] { ChooseFile(); };
  welcome_.Connect = [this] { Connect(); };
  welcome_.OpenRecent = [this](const QString& file) { OpenSchool(file); };
  page_.OpenNode = [this](std::uint8_t node) { OpenNode(node); };
  screen_.StoredData = StoredGrade;
  screen_.RecallSize = [&preferences](const qt::FormWindow& form) {
    return preferences.FormSize(form.objectName(), *form.screen());
  };
  screen_.KeepSize = [&preferences](const qt::FormWindow& form, QSize twips) {
    preferences.KeepFormSize(form.objectName(), *form.screen(), twips);
  };
  if (!preferences_.Restore(kGeometry, *this)) TakeFirstSize(*this, kMainSize);
  ShowSession();
  welcome_.setFocus();
}

MainWindow::~MainWindow() { odbc::WhileWaiting({}); }

void MainWindow::BuildMenus() {
  auto* const school = menuBar()->addMenu("&Escuela");
  school->addAction("&Abrir…", QKeySequence::Open, this, [this] { ChooseFile(); });
  auto* const server = school->addAction("&Conectar con un servidor…", this, [this] { Connect(); });
  server->setObjectName("conectarServidor");
  school->addMenu(&recent_);
  school->addSeparator();
  school->addAction(&changeUser_);
  school->addSeparator();
  school->addAction("&Salir", QKeySequence("Ctrl+Q"), this, [this] { close(); });

  auto* const session = menuBar()->addMenu("&Sesión");
  changeUser_.setObjectName("cambiarUsuario");
  active_.setObjectName("añoActivo");
  active_.setCheckable(true);
  active_.setChecked(true);
  session->addAction(&active_);

  auto* const view = menuBar()->addMenu("&Ver");
  locks_.setShortcut(QKeySequence(kLocksKey));
  oversight_.AddTo(*view);
  view->addAction(&locks_);
  view->addAction("&Sentencias", QKeySequence(kStatementsKey), this, [this] { ShowStatements(); });
  view->addSeparator();
  auto* const forget = view->addAction("&Restablecer tamaños", this, [this] { ForgetSizes(); });
  forget->setObjectName("restablecer");

  auto* const help = menuBar()->addMenu("A&yuda");
  auto* const manual =
      help->addAction("&Manual", QKeySequence(kManualKey), this, [this] { ShowManual(); });
  manual->setObjectName("manual");
  manual->setEnabled(!manual_.isEmpty());
  help->addAction("&Acerca de Zendria…", this, [this] { ShowAbout(*this); });

  connect(&changeUser_, &QAction::triggered, this, [this] { ChangeUser(); });
  connect(&active_, &QAction::toggled, this, [this] { ShowSession(); });
  connect(&locks_, &QAction::triggered, this, [this] { ShowLocks(); });
  oversight_.OnSchool = [this](const auto& work) { OnSchool(work); };
  oversight_.OpenRoute = [this](const GradeRoute& route) { OpenRoute(route); };
}

void MainWindow::AddModalKeys() {
  const auto isScreen = [this](QWidget& modal) {
    return dynamic_cast<qt::FormWindow*>(&modal) != nullptr && !screen_.Busy();
  };
  modalKeys_.Add(QKeySequence(kManualKey), [this](QWidget& modal) {
    const auto* const form = dynamic_cast<const qt::FormWindow*>(&modal);
    // Each form has its heading there.
    ShowManual(form == nullptr ? QString() : form->objectName());
    return true;
  });
  modalKeys_.Add(QKeySequence(kStatementsKey), [this, isScreen](QWidget& modal) {
    if (isScreen(modal)) ShowStatements();
    return isScreen(modal);
  });
  modalKeys_.Add(QKeySequence(kLocksKey), [this, isScreen](QWidget& modal) {
    if (!isScreen(modal)) return false;
    ShowLocks(modal);
    // What stands over the form may tell of what has been removed.
    screen_.DoEvents();
    return true;
  });
}

void MainWindow::ShowManual(const QString& heading) {
  if (manual_.isEmpty()) return;
  auto page = QUrl::fromLocalFile(manual_);
  if (!heading.isEmpty()) page.setFragment(heading);
  Browse(page);
}

bool MainWindow::OpenSchool(const QString& place, std::optional<std::int32_t> user) {
  PaintWhileWaiting();
  return !nodeOpen_ && MayOpen(place) && Enter(door_.Open(place, user));
}

bool MainWindow::MayOpen(const QString& place) {
  if (school_ == nullptr || PlaceOf(AddressOf(place)) != school_->Place()) return true;
  const auto log = school_->LogOfAnother();
  if (log.isEmpty()) return true;
  ShowSchoolError(
      this, SchoolError(QStringLiteral(
                            "Junto a «%1» está todavía «%2», el diario del fichero que había "
                            "antes, que estropearía este al abrirlo. Salga de Zendria en todos los "
                            "ordenadores, quite «%2» y «%1-shm» y ábralo de nuevo.")
                            .arg(school_->File(), log)));
  return false;
}

void MainWindow::ChooseFile() {
  if (const auto file = door_.AskForFile(); !file.isEmpty()) OpenSchool(file);
}

void MainWindow::Connect() {
  PaintWhileWaiting();
  Enter(door_.Connect({}, std::nullopt));
}

void MainWindow::PaintWhileWaiting() {
  odbc::WhileWaiting([&screen = screen_] { return screen.Await(); });
}

bool MainWindow::Enter(std::optional<Entrance> entrance) {
  if (!entrance) return false;
  school_ = std::move(entrance->school);
  user_ = std::move(entrance->user);
  centre_ = std::move(entrance->centre);
  publications_.emplace(school_->Notes(preferences_.DataFolder()));
  log_.Clear();
  school_->Observe([this](const Connection& connection, const std::string& statement) {
    log_.Add(connection, statement);
    rescue_.Told(statement);
    drafts_.Told(statement);
    publications_->Told(statement);
    screen_.Pulse();
  });
  preferences_.AddRecentSchool(school_->Place());
  ShowSession();
  LookForLeftovers();
  page_.setFocus();
  return true;
}

void MainWindow::LookForLeftovers() {
  publications_->User(user_.id);
  ShowLeftovers(true);
}

void MainWindow::ShowLeftovers(bool offer) {
  page_.ShowLeftovers({});
  try {
    Leftovers leftovers(school_->Own(), school_->Notes(preferences_.DataFolder()));
    leftovers.Tidy();
    auto left = leftovers.Of(user_.id);
    if (offer && OffersToRemove(this, left)) {
      leftovers.RemoveGone(user_.id, left);
      left = leftovers.Of(user_.id);
    }
    page_.ShowLeftovers(LeftoversText(left));
    school_->Rest();
  } catch (const RuntimeError& error) {
    ShowProblem(this, {error.Number(), QString::fromStdString(error.Description())});
  }
}

void MainWindow::ChangeUser() {
  if (const auto chosen = door_.SignIn(*school_, centre_)) {
    user_ = *chosen;
    ShowSession();
    LookForLeftovers();
  }
}

void MainWindow::OpenNode(std::uint8_t node) {
  const auto* const entry = page_.Find(node);
  if (nodeOpen_ || school_ == nullptr || entry == nullptr || !entry->available) return;
  std::optional<Failure> failure;
  {
    const QScopedValueRollback open(nodeOpen_, true);
    const QScopedValueRollback<decltype(screen_.FailedWhileLeaving)> rescue(
        screen_.FailedWhileLeaving, [this, entry](const std::exception_ptr& thrown) {
          const auto rescued = Rescue(FailureOf(thrown), entry->title);
          if (rescued && Rescued) Rescued(*rescued);
        });
    Working(entry->title);
    rescue_.Begin();
    drafts_.Begin(*school_, user_);
    lines_.Begin(*school_, user_);
    failure = Reconnect(*school_);
    if (!failure)
      failure = zendria::OpenNode(node, MakeSession(*school_, user_, centre_, active_.isChecked()));
    publications_->Ended(failure.has_value() || !screen_.LeavingFailures().empty());
  }
  lines_.End();
  drafts_.End();
  school_->Rest();
  Working({});
  if (screen_.Leaving()) return;
  if (failure) ShowFailed(*failure, entry->title);
  page_.setFocus();
}

std::optional<RescuedGrades> MainWindow::Rescue(const Failure& failure,
                                                const QString& screenTitle) {
  return rescue_.Rescue(*school_, {school_->File(), screenTitle, user_.name,
                                   QDateTime::currentDateTime(), FailureHeading(failure)});
}

void MainWindow::ShowFailed(const Failure& failure, const QString& screenTitle) {
  const auto rescued = Rescue(failure, screenTitle);
  const auto* const grades = rescued ? &*rescued : nullptr;
  ShowFailure(this, failure, grades, SupportDetails(failure, screenTitle, grades, log_));
  // Told to leave, the box has gone before anybody could copy what only stood in it.
  if (rescued && rescued->file.isEmpty() && screen_.Leaving() && Rescued) Rescued(*rescued);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // The screen that is open works on the connections of this window's school, and so does a
  // statement that is waited for.
  if (nodeOpen_ || screen_.Awaiting() || QApplication::activeModalWidget() != nullptr) {
    event->ignore();
    if (Leave) Leave();
    return;
  }
  preferences_.Remember(kGeometry, *this);
  if (statements_ != nullptr) {
    preferences_.Remember(kStatementsGeometry, *statements_);
    statements_->close();
  }
  QMainWindow::closeEvent(event);
}

bool MainWindow::nativeEvent(const QByteArray& eventType, void* message, qintptr* result) {
  // Qt drops the request while a modal window stands before this one.
  if (!IsCloseRequest(eventType, message))
    return QMainWindow::nativeEvent(eventType, message, result);
  close();
  return true;
}

void MainWindow::ShowSession() {
  const auto open = school_ != nullptr;
  pages_.setCurrentWidget(open ? static_cast<QWidget*>(&page_) : &welcome_);
  for (auto* const action : {&changeUser_, &active_, &locks_}) action->setEnabled(open);
  oversight_.Enable(open, user_);
  if (open) {
    page_.ShowSession(*school_, user_, centre_, active_.isChecked());
    const auto openToAll =
        school_->IsOpenToAll() ? QStringLiteral(" (sin contraseñas)") : QString();
    setWindowTitle(school_->Name() + StrangeMark(*school_) + openToAll + QStringLiteral(" — ") +
                   user_.name + QStringLiteral(" — ") + kTitle);
  }
  ShowRecent();
  Working({});
}

void MainWindow::ShowRecent() {
  const auto files = preferences_.RecentSchools();
  welcome_.ShowRecent(files);
  recent_.clear();
  recent_.setEnabled(!files.isEmpty());
  for (const auto& file : files)
    recent_.addAction(RecentTitle(file).replace(u'&', "&&"), this,
                      [this, file] { OpenSchool(file); });
}

void MainWindow::ShowLocks() {
  if (const auto failure = Reconnect(*school_)) return ShowProblem(this, *failure);
  ShowLocks(*this);
}

void MainWindow::ShowLocks(QWidget& before) {
  LocksDialog dialog(school_->Own(), &before);
  dialog.IsOpenHere = [this](int publication) { return publications_->IsOpen(publication); };
  dialog.Removed = [this](int publication) {
    publications_->Removed(publication);
    school_->Notes(preferences_.DataFolder()).StrikeOut(publication);
  };
  dialog.exec();
  lines_.ReadAgain();
  ShowLeftovers(false);
}

void MainWindow::OnSchool(const OversightMenu::Work& work) {
  if (school_ == nullptr || nodeOpen_) return;
  if (const auto failure = Reconnect(*school_)) return ShowProblem(this, *failure);
  work(*school_, user_, centre_ ? centre_->id : 0);
  if (school_ != nullptr) school_->Rest();
}

void MainWindow::OpenRoute(const GradeRoute& route) {
  std::optional<StepOneChoice> choice;
  if (Attempt(this, [&] { choice.emplace(screen_, school_->Own(), route); })) OpenNode(route.node);
}

StatementWindow& MainWindow::ShowStatements() {
  if (statements_ == nullptr) {
    statements_ = std::make_unique<StatementWindow>(log_);
    if (!preferences_.Restore(kStatementsGeometry, *statements_)) {
      // Over this window, and on its screen.
      auto place = statements_->frameGeometry();
      place.moveCenter(frameGeometry().center());
      statements_->move(place.topLeft());
    }
  }
  statements_->show();
  statements_->raise();
  statements_->activateWindow();
  return *statements_;
}

void MainWindow::ForgetSizes() {
  preferences_.ForgetSizes();
  showNormal();
  TakeFirstSize(*this, kMainSize);
  if (statements_ != nullptr) TakeFirstSize(*statements_, StatementWindow::kFirstSize);
  statusBar()->showMessage("Las ventanas vuelven a tener su tamaño de origen.");
}

void MainWindow::Working(const QString& screenTitle) {
  const auto working = !screenTitle.isEmpty();
  menuBar()->setEnabled(!working);
  pages_.setEnabled(!working);
  statusBar()->showMessage(working              ? QStringLiteral("Abierta: ") + screenTitle
                           : school_ == nullptr ? QStringLiteral("Ninguna escuela abierta")
                                                : QStringLiteral("Listo"));
}

}  // namespace quorvane::zendria

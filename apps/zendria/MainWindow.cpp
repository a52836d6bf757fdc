#include "apps/zendria/MainWindow.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QStatusBar>
#include <utility>

#include "adapters/qt/FormWindow.h"
#include "adapters/qt/IconStore.h"
#include "adapters/qt/QtFrontEnd.h"
#include "apps/zendria/BusyCursor.h"
#include "apps/zendria/ConnectDialog.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/FirstSize.h"
#include "apps/zendria/LocksDialog.h"
#include "apps/zendria/ManualPage.h"
#include "apps/zendria/NodeRunner.h"
#include "apps/zendria/Preferences.h"
#include "apps/zendria/School.h"
#include "apps/zendria/SchoolError.h"
#include "apps/zendria/SchoolPlace.h"
#include "apps/zendria/Session.h"
#include "apps/zendria/SignInDialog.h"
#include "apps/zendria/StatementWindow.h"
#include "apps/zendria/SupportDetails.h"
#include "platform/Application.h"
#include "platform/RuntimeError.h"

namespace quorvane::zendria {
namespace {

constexpr auto kTitle = "Zendria Escuela";
constexpr auto kGeometry = "principal";
constexpr auto kStatementsGeometry = "sentencias";
constexpr QSize kFirstSize(860, 560);

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
      page_(std::move(screens)),
      recent_("Escuelas &recientes"),
      changeUser_("Cambiar de &usuario…", this),
      active_("Año escolar &activo", this),
      locks_("&Publicaciones y bloqueos…", this) {
  setWindowTitle(kTitle);
  setWindowIcon(qt::IconStore::Load("zendria.ico"));
  pages_.addWidget(&welcome_);
  pages_.addWidget(&page_);
  setCentralWidget(&pages_);
  Browse = [](const QUrl& page) { QDesktopServices::openUrl(page); };
  BuildMenus();
  welcome_.Open = [this] { ChooseFile(); };
  welcome_.Connect = [this] { ConnectTo({}, std::nullopt); };
  welcome_.OpenRecent = [this](const QString& file) { OpenSchool(file); };
  page_.OpenNode = [this](std::uint8_t node) { OpenNode(node); };
  screen_.RecallSize = [&preferences](const qt::FormWindow& form) {
    return preferences.FormSize(form.objectName(), *form.screen());
  };
  screen_.KeepSize = [&preferences](const qt::FormWindow& form, QSize twips) {
    preferences.KeepFormSize(form.objectName(), *form.screen(), twips);
  };
  if (!preferences_.Restore(kGeometry, *this)) TakeFirstSize(*this, kFirstSize);
  ShowSession();
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildMenus() {
  auto* const school = menuBar()->addMenu("&Escuela");
  school->addAction("&Abrir…", QKeySequence::Open, this, [this] { ChooseFile(); });
  auto* const server = school->addAction("&Conectar con un servidor…", this,
                                         [this] { ConnectTo({}, std::nullopt); });
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
  locks_.setShortcut(QKeySequence("Ctrl+B"));
  view->addAction(&locks_);
  view->addAction("&Sentencias", QKeySequence("Ctrl+T"), this, [this] { ShowStatements(); });
  view->addSeparator();
  auto* const forget = view->addAction("&Restablecer tamaños", this, [this] { ForgetSizes(); });
  forget->setObjectName("restablecer");

  auto* const help = menuBar()->addMenu("A&yuda");
  const auto page = FindManual(QCoreApplication::applicationDirPath());
  auto* const manual = help->addAction("&Manual", QKeySequence("F1"), this,
                                       [this, page] { Browse(QUrl::fromLocalFile(page)); });
  manual->setObjectName("manual");
  manual->setEnabled(!page.isEmpty());
  help->addAction("&Acerca de Zendria…", this, [this] { ShowAbout(); });

  connect(&changeUser_, &QAction::triggered, this, [this] { ChangeUser(); });
  connect(&active_, &QAction::toggled, this, [this] { ShowSession(); });
  connect(&locks_, &QAction::triggered, this, [this] { ShowLocks(); });
}

bool MainWindow::OpenSchool(const QString& place, std::optional<std::int32_t> user) {
  if (nodeOpen_) return false;
  const auto address = AddressOf(place);
  if (NeedsPassword(address)) return ConnectTo(QString::fromStdString(address.Text()), user);
  return Open(address, user);
}

bool MainWindow::ConnectTo(const QString& connectionString, std::optional<std::int32_t> user) {
  ConnectDialog dialog(connectionString, this);
  return dialog.exec() == QDialog::Accepted && Open(dialog.Address(), user);
}

bool MainWindow::Open(const SchoolAddress& address, std::optional<std::int32_t> user) {
  std::unique_ptr<School> school;
  try {
    const BusyCursor busy;
    school = std::make_unique<School>(address);
  } catch (const SchoolError& error) {
    ShowSchoolError(this, error);
    return false;
  }
  auto centre = CentreOrFirst(school->Centres(), preferences_.Centre(school->File()));
  std::optional<User> who;
  if (user) {
    who = school->FindUser(*user);
    if (!who)
      ShowSchoolError(
          this,
          SchoolError(
              QStringLiteral("En «%1» no hay ningún usuario %2.").arg(school->File()).arg(*user)));
  } else {
    who = SignIn(*school, centre);
  }
  if (!who) return false;

  school_ = std::move(school);
  user_ = *who;
  centre_ = std::move(centre);
  log_.Clear();
  school_->Observe([this](const Connection& connection, const std::string& statement) {
    log_.Add(connection, statement);
    screen_.Pulse();
  });
  preferences_.AddRecentSchool(school_->Place());
  ShowSession();
  page_.setFocus();
  return true;
}

void MainWindow::OpenNode(std::uint8_t node) {
  const auto* const entry = page_.Find(node);
  if (nodeOpen_ || school_ == nullptr || entry == nullptr || !entry->available) return;
  std::optional<Failure> failure;
  {
    const QScopedValueRollback open(nodeOpen_, true);
    Working(entry->title);
    failure = Reconnect(*school_);
    if (!failure)
      failure = zendria::OpenNode(node, MakeSession(*school_, user_, centre_, active_.isChecked()));
  }
  Working({});
  if (failure) ShowFailure(this, *failure, SupportDetails(*failure, entry->title, log_));
  page_.setFocus();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // The screen that is open works on the connections of this window's school.
  if (nodeOpen_) {
    event->ignore();
    return;
  }
  preferences_.Remember(kGeometry, *this);
  if (statements_ != nullptr) {
    preferences_.Remember(kStatementsGeometry, *statements_);
    statements_->close();
  }
  QMainWindow::closeEvent(event);
}

void MainWindow::ChooseFile() {
  QFileDialog dialog(this, "Abrir escuela", {}, "Escuelas (*.sqlite *.db);;Todos los ficheros (*)");
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setLabelText(QFileDialog::Accept, "&Abrir");
  dialog.setLabelText(QFileDialog::Reject, "&Cancelar");
  dialog.setLabelText(QFileDialog::LookIn, "Buscar en:");
  dialog.setLabelText(QFileDialog::FileName, "&Nombre:");
  dialog.setLabelText(QFileDialog::FileType, "&Tipo:");
  if (dialog.exec() == QDialog::Accepted) OpenSchool(dialog.selectedFiles().value(0));
}

void MainWindow::ChangeUser() {
  if (const auto chosen = SignIn(*school_, centre_)) {
    user_ = *chosen;
    ShowSession();
  }
}

std::optional<User> MainWindow::SignIn(const School& school, std::optional<Centre>& centre) {
  SignInDialog dialog(school.Name(), school.Users(), this);
  dialog.OfferCentres(school.Centres(), centre ? std::optional(centre->id) : std::nullopt);
  dialog.exec();
  auto chosen = dialog.Chosen();
  if (!chosen) return std::nullopt;
  centre = dialog.ChosenCentre();
  if (centre && school.Centres().size() > 1) preferences_.KeepCentre(school.File(), centre->id);
  return chosen;
}

void MainWindow::ShowSession() {
  const auto open = school_ != nullptr;
  pages_.setCurrentWidget(open ? static_cast<QWidget*>(&page_) : &welcome_);
  for (auto* const action : {&changeUser_, &active_, &locks_}) action->setEnabled(open);
  if (open) {
    page_.ShowSession(*school_, user_, centre_, active_.isChecked());
    setWindowTitle(school_->Name() + QStringLiteral(" — ") + user_.name + QStringLiteral(" — ") +
                   kTitle);
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
  LocksDialog dialog(school_->Own(), this);
  dialog.exec();
}

StatementWindow& MainWindow::ShowStatements() {
  if (statements_ == nullptr) {
    statements_ = std::make_unique<StatementWindow>(log_);
    preferences_.Restore(kStatementsGeometry, *statements_);
  }
  statements_->show();
  statements_->raise();
  statements_->activateWindow();
  return *statements_;
}

void MainWindow::ForgetSizes() {
  preferences_.ForgetSizes();
  showNormal();
  TakeFirstSize(*this, kFirstSize);
  if (statements_ != nullptr) TakeFirstSize(*statements_, StatementWindow::kFirstSize);
  statusBar()->showMessage("Las ventanas vuelven a tener su tamaño de origen.");
}

void MainWindow::ShowAbout() {
  const auto version = Application::Instance().Version();
  QMessageBox::about(this, kTitle,
                     QStringLiteral("<h3>Zendria Escuela</h3><p>Materias pendientes, versión "
                                    "%1.%2.%3</p>")
                         .arg(version.major)
                         .arg(version.minor, 2, 10, QLatin1Char('0'))
                         .arg(version.revision, 4, 10, QLatin1Char('0')));
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

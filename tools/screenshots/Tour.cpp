#include "tools/screenshots/Tour.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QTableView>
#include <algorithm>
#include <stdexcept>

#include "adapters/qt/grid/CellEdits.h"
#include "adapters/qt/grid/RetivoEditor.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/ProcessMark.h"
#include "apps/escuela/SchoolFile.h"
#include "apps/escuela/UserPasswords.h"
#include "apps/zendria/LocksDialog.h"
#include "apps/zendria/PasswordDialog.h"
#include "apps/zendria/PersonSearchDialog.h"
#include "apps/zendria/StatementWindow.h"

namespace quorvane::screenshots {
namespace {

using qt::FormWindow;

constexpr std::int32_t kDirector = 1;
constexpr std::int32_t kUserOfDeadForm = 2;
constexpr auto kKind = "Educación";
constexpr auto kCourse = "3º";
constexpr int kAllColumns = 1220;  // pixels that a grid of all kinds of grade needs
constexpr int kFinalColumns = 860;
constexpr int kGradeColumn = 1;
constexpr int kMeasuresColumn = 6;

QString MakeSchool(const QString& folder) {
  auto file = QDir(folder).filePath("IES Ejemplo.sqlite");
  MakeSchoolFile(file.toStdString(), [](Connection& school) { DemoSchool(school).Build(); });
  return file;
}

void PressKey(QWidget& widget, Qt::Key key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(&widget, &press);
}

void PickClass(FormWindow& window, const char* kind, const char* course, const char* section) {
  Guide::Pick(window, kind, kKind);
  Guide::Pick(window, course, kCourse);
  Guide::Pick(window, section, 0);
}

void Close(FormWindow& window) { window.close(); }

/// As wide as that, or as the screen has room for.
void Widen(FormWindow& window, int width, int height) {
  window.resize(
      QSize(std::max(width, window.width()), height).boundedTo(window.screen()->availableSize()));
}

/// The list that a cell of the window has opened; null when none is open.
qt::RetivoEditor* OpenedIn(const QWidget& window) {
  for (auto* const child : window.findChildren<QFrame*>())
    if (auto* const editor = dynamic_cast<qt::RetivoEditor*>(child);
        editor != nullptr && editor->IsOpen())
      return editor;
  return nullptr;
}

/// Opens the list of the column's first cell that has one. Null when none has.
qt::RetivoEditor* OpenList(QTableView& table, int column) {
  const auto* const cells = table.model();
  for (int row = 0; row < cells->rowCount(); ++row) {
    table.setCurrentIndex(cells->index(row, column));
    PressKey(table, Qt::Key_F2);
    if (auto* const editor = OpenedIn(*table.window())) return editor;
  }
  return nullptr;
}

}  // namespace

Tour::Tour(qt::QtFrontEnd& screen, Camera& camera, const QString& folder)
    : screen_(screen),
      camera_(camera),
      guide_(screen, camera),
      school_(MakeSchool(folder)),
      preferences_(QDir(folder).filePath("zendria.ini")),
      window_(screen, preferences_, zendria::PendingScreens()) {
  screen.HostWindow(&window_);
  window_.show();
}

void Tour::Run() {
  Host();
  Register();
  Grades();
  Messages();
  Oversight();
  TerminalOrders();
  guide_.Finish();
}

void Tour::Host() {
  QApplication::processEvents();
  camera_.Take("inicio", window_);
  guide_.OnDialog("aviso", [this](QWidget& box) {
    camera_.Take("fichero-no-valido", box);
    box.close();
  });
  QFile letter(QFileInfo(school_).dir().filePath("carta.sqlite"));
  if (letter.open(QIODevice::WriteOnly)) letter.write("Esto no es una base de datos.\n");
  letter.close();
  window_.OpenSchool(letter.fileName());

  guide_.OnDialog("conectar", [this](QWidget& dialog) {
    const auto type = [&dialog](const char* field, const char* text) {
      dialog.findChild<QLineEdit*>(field)->setText(text);
    };
    type("servidor", "escuela");
    type("baseDeDatos", "centro");
    type("usuarioServidor", "zendria");
    camera_.Take("conectar", dialog);
    PressKey(dialog, Qt::Key_Escape);
  });
  window_.findChild<QAction*>("conectarServidor")->trigger();

  guide_.OnDialog("entrada", [this](QWidget& dialog) {
    camera_.Take("entrar", dialog);
    PressKey(dialog, Qt::Key_Escape);
  });
  window_.OpenSchool(school_);
  Password();
  AfterACrash();
  window_.OpenSchool(school_, kDirector);
  QApplication::processEvents();
  camera_.Take("principal", window_);
  Menu("&Escuela", "menu-escuela");
  Menu("&Ver", "menu-ver");

  guide_.OnDialog("bloqueos", [this](QWidget& dialog) {
    camera_.Take("bloqueos", dialog);
    guide_.OnDialog("pregunta", [this](QWidget& box) {
      camera_.Take("bloqueos-quitar", box);
      PressKey(box, Qt::Key_Escape);
    });
    dynamic_cast<zendria::LocksDialog&>(dialog).RemoveButton().click();
    dialog.close();
  });
  window_.ShowLocks();
}

void Tour::Password() {
  sqlite::SqliteConnection other(school_.toStdString(), "");
  other.Open();
  UserPasswords passwords(other);
  passwords.Set(kDirector, "la que sea");
  guide_.OnDialog("contraseña", [this](QWidget& dialog) {
    auto& asked = dynamic_cast<zendria::PasswordDialog&>(dialog);
    asked.Begin("direccion");
    asked.Password().setText("no es esta");
    PressKey(asked.Password(), Qt::Key_Return);
    camera_.Take("entrar-clave", dialog);
    PressKey(dialog, Qt::Key_Escape);
  });
  window_.OpenSchool(school_);
  passwords.Remove(kDirector);
}

void Tour::AfterACrash() {
  // As a computer that was switched off has left it.
  auto mark = ProcessMark::Own();
  const QDateTime then(QDate(2025, 3, 3), QTime(17, 40));
  QFile note(school_ + "-pc_aula3-4711-1.abierta");
  if (note.open(QIODevice::WriteOnly))
    note.write(QStringLiteral("zendria 1\nequipo %1\nnombre pc-aula3\narranque antes\nespacio uno\n"
                              "proceso 4711 1\npublicacion 1 %2 %3\n")
                   .arg(QString::fromStdString(mark.machine))
                   .arg(kUserOfDeadForm)
                   .arg(then.toSecsSinceEpoch())
                   .toUtf8());
  note.close();
  guide_.OnDialog("restos", [this](QWidget& box) {
    camera_.Take("quedaron-abiertas", box);
    PressKey(box, Qt::Key_Escape);
  });
  window_.OpenSchool(school_, kUserOfDeadForm);
  QApplication::processEvents();
  camera_.Take("principal-abiertas", window_);
  note.remove();
}

void Tour::Menu(const QString& title, const QString& picture) {
  for (auto* const action : window_.menuBar()->actions()) {
    if (action->text() != title) continue;
    const auto place = window_.menuBar()->actionGeometry(action).bottomLeft();
    action->menu()->popup(window_.menuBar()->mapToGlobal(place));
    camera_.Take(picture, window_, action->menu());
    action->menu()->close();
  }
}

void Tour::Register() {
  guide_.On("frmPendientes", [this](FormWindow& window) {
    PickClass(window, "cboTEnsenanza", "cboCurso", "cboSeccion");
    camera_.Take("frmPendientes", window);
    Guide::Press(window, "cmdAceptar");
  });
  guide_.On("frmAlumnoPendiente", [this](FormWindow& window) {
    camera_.Take("frmAlumnoPendiente-alumnos", window);
    Guide::Press(window, "cmdListar");
    Guide::Row(window, "msgAlumnos", 1);
    Guide::Press(window, "cmdPropiedades");
    Guide::Tab(window, "TabDatos", 2);
    Guide::Row(window, "msgMaterias", 1);
    camera_.Take("frmAlumnoPendiente-materias", window);
    Guide::Press(window, "cmdPropMat");
    Close(window);
  });
  guide_.On("frmAlumnos", [this](FormWindow& window) {
    Guide::Pick(window, "lstDisponibles", 0);
    camera_.Take("frmAlumnos", window);
    Close(window);
  });
  guide_.On("frmAlumnoMateria", [this](FormWindow& window) {
    Guide::Row(window, "msgMaterias", 1);
    Widen(window, kAllColumns, window.height() * 3 / 4);
    camera_.Take("frmAlumnoMateria", window);
    Guide::Press(window, "cmdAgregar");
    Guide::Row(window, "msgMaterias", 1);
    Guide::Press(window, "cmdPropiedades");
    Close(window);
  });
  guide_.On("frmMateriaPend", [this](FormWindow& window) {
    guide_.NameMessage("mensaje-exclamacion");
    Guide::Press(window, "cmdAceptar");
    Guide::Pick(window, "cboCurso", "1º");
    Guide::Pick(window, "cboSeccion", 0);
    Guide::Pick(window, "cboMateria", 0);
    camera_.Take("frmMateriaPend", window);
    Close(window);
  });
  guide_.On("frmMateriaEv", [this](FormWindow& window) {
    camera_.Take("frmMateriaEv", window);
    Close(window);
  });
  guide_.On("frmPropMatProf", [this](FormWindow& window) {
    Guide::Press(window, "cmdNProfesor");
    camera_.Take("frmPropMatProf", window);
    Close(window);
  });
  guide_.OnDialog("buscarPersona", [this](QWidget& dialog) {
    auto& people = dynamic_cast<zendria::PersonSearchDialog&>(dialog).People();
    people.Field().setText("ar");
    camera_.Take("buscar-docente", dialog);
    PressKey(people.Field(), Qt::Key_Return);
  });
  window_.OpenNode(123);
}

void Tour::Grades() {
  guide_.NameBusy("cargando-notas");
  struct Flow {
    std::uint8_t node;
    std::string stepOne;
    std::string stepTwo;
  };
  const Flow flows[] = {{124, "frmNotaManual1", "frmNotaManual"},
                        {125, "frmNotaMateria1", "frmNotaMateria"},
                        {126, "frmNotaSeccionMateria1", "frmNotaSeccionMateria"},
                        {127, "frmNotaSeccionAlumno1", "frmNotaSeccionAlumno"}};
  for (const auto& flow : flows) {
    StepOne(flow.stepOne, QString::fromStdString(flow.stepOne), "2ª");
    StepTwo(flow.stepTwo, QString::fromStdString(flow.stepTwo));
    // Step one comes up again when step two closes, and goes on to a final evaluation.
    StepOne(flow.stepOne, {}, "Final Ord");
    StepTwo(flow.stepTwo + "Final", QString::fromStdString(flow.stepTwo) + "Final");
    guide_.On(flow.stepOne, Close);
    window_.OpenNode(flow.node);
  }
}

void Tour::StepOne(const std::string& form, const QString& picture, const QString& evaluation) {
  guide_.On(form, [this, picture, evaluation](FormWindow& window) {
    PickClass(window, "cboTipoEnsenanza", "cboCursos", "cboSecciones");
    Guide::Pick(window, "cboEvaluaciones", evaluation);
    for (const auto* const list : {"cboMateria", "cboAlumno"})
      if (window.Model().Find(list) != nullptr) Guide::Pick(window, list, 0);
    if (!picture.isEmpty()) camera_.Take(picture, window);
    Guide::Press(window, "cmdNotaManual1(0)");
  });
}

void Tour::StepTwo(const std::string& form, const QString& picture) {
  guide_.On(form, [this, picture](FormWindow& window) {
    auto* const grid = qobject_cast<QTableView*>(window.Widget("rtvNotasAlumno"));
    TakeList(window, *grid, kGradeColumn, picture + "-lista");
    Widen(window, picture.endsWith("Final") ? kFinalColumns : kAllColumns, window.height());
    window.move(0, 0);  // lists keep within a screen that may be no wider than this window
    if (!grid->isColumnHidden(kMeasuresColumn) && grid->model()->columnCount() > kMeasuresColumn)
      TakeList(window, *grid, kMeasuresColumn, picture + "-medidas");
    grid->setCurrentIndex(grid->model()->index(0, kGradeColumn));
    camera_.Take(picture, window);
    Guide::Press(window, "cmdCancelar");
  });
}

void Tour::TakeList(FormWindow& window, QTableView& grid, int column, const QString& picture) {
  auto* const list = OpenList(grid, column);
  if (list == nullptr) return;
  camera_.Take(picture, window);
  PressKey(*list->findChild<QLineEdit*>(), Qt::Key_Escape);
}

void Tour::Messages() {
  auto& statements = window_.ShowStatements();
  camera_.Take("sentencias", statements);
  statements.close();
  OwnPublication();
  RegisterInUse();
  TooManyFinals();
  MissingData();
  EverythingLocked();
  OutsideTheDates();
  ClosedYear();
  NoTable();
  Draft();
  RecentSchools();
  SeveralCentres();
}

void Tour::OwnPublication() {
  // A form of this user died, and what it left bears the number of this section.
  window_.OpenSchool(school_, kUserOfDeadForm);
  guide_.On("frmNotaManual1", [this](FormWindow& window) {
    Guide::Pick(window, "cboCursos", "2º");
    Guide::Pick(window, "cboSecciones", 1);
    Guide::Pick(window, "cboEvaluaciones", "2ª");
    guide_.NameMessage("mensaje-informacion");
    Guide::Press(window, "cmdNotaManual1(0)");
  });
  guide_.On("frmNotaManual1", Close);
  window_.OpenNode(124);
}

void Tour::RegisterInUse() {
  window_.OpenSchool(school_, kDirector);
  guide_.On("frmPendientes", [this](FormWindow& window) {
    Guide::Pick(window, "cboTEnsenanza", kKind);
    Guide::Pick(window, "cboCurso", "2º");
    guide_.NameMessage("mensaje-elegir-clase");
    Guide::Press(window, "cmdAceptar");
    Guide::Pick(window, "cboSeccion", 1);
    guide_.NameMessage("mensaje-registro-en-uso");
    Guide::Press(window, "cmdAceptar");
  });
  guide_.On("frmAlumnoPendiente", [this](FormWindow& window) {
    camera_.Take("frmAlumnoPendiente-en-uso", window);
    Close(window);
  });
  window_.OpenNode(123);
}

void Tour::TooManyFinals() {
  sqlite::SqliteConnection other(school_.toStdString(), "");
  other.Open();
  other.Execute("INSERT INTO NumEvaluacion VALUES (7,'Final de Septiembre',-1,-1,3)");
  guide_.On("frmPendientes", [](FormWindow& window) {
    PickClass(window, "cboTEnsenanza", "cboCurso", "cboSeccion");
    Guide::Press(window, "cmdAceptar");
  });
  guide_.On("frmAlumnoPendiente", [](FormWindow& window) {
    Guide::Row(window, "msgAlumnos", 1);
    Guide::Press(window, "cmdPropiedades");
    Close(window);
  });
  guide_.On("frmAlumnoMateria", [](FormWindow& window) {
    Guide::Row(window, "msgMaterias", 1);
    Guide::Press(window, "cmdPropiedades");
    Close(window);
  });
  guide_.On("frmMateriaEv", [this](FormWindow& window) {
    Guide::Press(window, "cmdAgregarTodos");
    guide_.NameMessage("mensaje-demasiadas-finales");
    Guide::Press(window, "cmdAceptar");
    Guide::Pick(window, "lstSeleccionados", "Final Ord");
    Guide::Press(window, "cmdEliminarUno");
    guide_.NameMessage("mensaje-finales-mezcladas");
    Guide::Press(window, "cmdAceptar");
    Close(window);
  });
  window_.OpenNode(123);
  other.Execute("DELETE FROM NumEvaluacion WHERE IDNumEvaluacion=7");
}

void Tour::MissingData() {
  guide_.On("frmNotaManual1", [this](FormWindow& window) {
    PickClass(window, "cboTipoEnsenanza", "cboCursos", "cboSecciones");
    Guide::Pick(window, "cboEvaluaciones", "2ª");
    // Another kind of teaching leaves section and evaluation as they were, without a course.
    Guide::Pick(window, "cboTipoEnsenanza", "Bach");
    Guide::Pick(window, "cboEvaluaciones", "2ª");
    guide_.NameMessage("mensaje-faltan-datos");
    Guide::Press(window, "cmdNotaManual1(0)");
    Close(window);
  });
  window_.OpenNode(124);
}

void Tour::EverythingLocked() {
  sqlite::SqliteConnection tutor(school_.toStdString(), "");
  tutor.Open();
  tutor.Execute("INSERT INTO PublicacionPte VALUES (2,5,3,4,3)");
  tutor.Execute(
      "INSERT INTO BloqueoPte SELECT DISTINCT 5, 3, CodMatDet, 3, 2 FROM AlumnoPte_MatDet "
      "INNER JOIN Alumno ON IDAlumno=CodAlumno WHERE CodSeccion=5");
  guide_.On("frmNotaManual1", [this](FormWindow& window) {
    PickClass(window, "cboTipoEnsenanza", "cboCursos", "cboSecciones");
    Guide::Pick(window, "cboEvaluaciones", "3ª");
    guide_.NameMessage("mensaje-todo-bloqueado");
    Guide::Press(window, "cmdNotaManual1(0)");
  });
  guide_.On("frmNotaManual1", Close);
  window_.OpenNode(124);
  guide_.OnDialog("bloqueos", [this](QWidget& dialog) {
    camera_.Take("bloqueos-dos", dialog);
    dialog.close();
  });
  window_.ShowLocks();
  tutor.Execute("DELETE FROM BloqueoPte WHERE CodPublicacion=2");
  tutor.Execute("DELETE FROM PublicacionPte WHERE IDPublicacionPte=2");
}

void Tour::OutsideTheDates() {
  // No administrator, whom the dates don't hold back.
  window_.OpenSchool(school_, kUserOfDeadForm);
  guide_.On("frmNotaManual1", [this](FormWindow& window) {
    PickClass(window, "cboTipoEnsenanza", "cboCursos", "cboSecciones");
    Guide::Pick(window, "cboEvaluaciones", "1ª");
    guide_.NameMessage("mensaje-fuera-de-fecha");
    Guide::Press(window, "cmdNotaManual1(0)");
    Close(window);
  });
  window_.OpenNode(124);
  // The forms of a single subject have no text for it.
  guide_.On("frmNotaSeccionAlumno1", [](FormWindow& window) {
    PickClass(window, "cboTipoEnsenanza", "cboCursos", "cboSecciones");
    Guide::Pick(window, "cboEvaluaciones", "1ª");
    Guide::Pick(window, "cboMateria", 0);
    Guide::Press(window, "cmdNotaManual1(0)");
  });
  guide_.OnDialog("aviso", [this](QWidget& box) {
    camera_.Take("error-326", box);
    box.close();
  });
  window_.OpenNode(127);
}

void Tour::ClosedYear() {
  window_.OpenSchool(school_, kDirector);
  auto* const active = window_.findChild<QAction*>("añoActivo");
  active->trigger();
  StepOne("frmNotaManual1", {}, "2ª");
  guide_.On("frmNotaManual", [this](FormWindow& window) {
    Widen(window, kAllColumns, window.height());
    camera_.Take("frmNotaManual-solo-consulta", window);
    Guide::Press(window, "cmdCancelar");
  });
  guide_.On("frmNotaManual1", Close);
  window_.OpenNode(124);
  active->trigger();
}

void Tour::NoTable() {
  sqlite::SqliteConnection other(school_.toStdString(), "");
  other.Open();
  other.Execute("ALTER TABLE Curso RENAME TO Apartado");
  guide_.On("frmPendientes",
            [](FormWindow& window) { Guide::Pick(window, "cboTEnsenanza", kKind); });
  guide_.OnDialog("aviso", [this](QWidget& box) {
    camera_.Take("error", box);
    box.close();
  });
  window_.OpenNode(123);
  other.Execute("ALTER TABLE Apartado RENAME TO Curso");
}

/// Grades are typed, the screen ends, and opens again beside somebody who holds a subject.
void Tour::Draft() {
  sqlite::SqliteConnection other(school_.toStdString(), "");
  other.Open();
  StepOne("frmNotaManual1", {}, "2ª");
  guide_.On("frmNotaManual", [](FormWindow& window) {
    auto& grid = dynamic_cast<Retivo&>(*window.Model().Find("rtvNotasAlumno"));
    window.FrontEnd().Gesture(window, [&window, &grid] {
      qt::CellEdits(window, grid).Put({{0, kGradeColumn, "9"}, {1, kGradeColumn, "10"}});
    });
    throw std::runtime_error("se ha ido la luz");
  });
  guide_.OnDialog("aviso", [](QWidget& box) { box.close(); });
  window_.OpenNode(124);
  other.Execute("DELETE FROM PublicacionPte");
  const auto mine = other.Execute("SELECT CodMatDet FROM BloqueoPte ORDER BY CodPublicacion DESC");
  other.Execute("DELETE FROM BloqueoPte WHERE CodMatDet<>" + mine.Fields("CodMatDet").Text());
  other.Execute("UPDATE BloqueoPte SET CodProfesor=" + std::to_string(kUserOfDeadForm) +
                ", CodUsuario=" + std::to_string(kUserOfDeadForm));
  StepOne("frmNotaManual1", {}, "2ª");
  guide_.OnDialog("borrador", [this](QWidget& box) {
    camera_.Take("borrador", box);
    box.findChild<QAbstractButton*>("descartarlas")->click();
  });
  guide_.On("frmNotaManual", [this](FormWindow& window) {
    Widen(window, kAllColumns, window.height());
    camera_.Take("materia-ocupada", window);
    Guide::Press(window, "cmdCancelar");
  });
  guide_.On("frmNotaManual1", Close);
  window_.OpenNode(124);
  other.Execute("DELETE FROM BloqueoPte");
}

void Tour::RecentSchools() {
  zendria::MainWindow again(screen_, preferences_, zendria::PendingScreens());
  again.show();
  QApplication::processEvents();
  camera_.Take("recientes", again);
}

void Tour::SeveralCentres() {
  sqlite::SqliteConnection other(school_.toStdString(), "");
  other.Open();
  other.Execute("INSERT INTO Centro_TipoEnsenanza (CodCentro, CodTipoEnsenanza) VALUES (2,4)");
  guide_.OnDialog("entrada", [this](QWidget& dialog) {
    camera_.Take("entrar-centros", dialog);
    PressKey(dialog, Qt::Key_Escape);
  });
  window_.OpenSchool(school_);
}

}  // namespace quorvane::screenshots

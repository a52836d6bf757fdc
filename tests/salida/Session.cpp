#include "tests/salida/Session.h"

#include <QAction>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>

#include "apps/zendria/MainWindow.h"
#include "tests/salida/Moment.h"
#include "tests/zendria/Robot.h"

namespace quorvane::test {
namespace {

using Window = qt::FormWindow;
using zendria::MainWindow;

constexpr int kRegister = 123;
constexpr int kByStudent = 124;
constexpr const char* kSaved = "SELECT COUNT(*) FROM EvaluacionPte WHERE CodNota=107";
constexpr const char* kSavedFinal = "SELECT COUNT(*) FROM EvaluacionActaPte WHERE CodNota=107";

const std::vector<std::string> kTutor{"--usuario", "2"};
const std::vector<std::string> kHead{"--usuario", "1"};

void On(Robot& user, const std::string& form, const Robot::Step& step) {
  user.On(form, [step](Window& window) {
    if (!AtRest()) step(window);
  });
}

void On(Robot& user, const std::string& form, const std::vector<Robot::Deed>& deeds) {
  On(user, form, Robot::Doing(deeds));
}

void OnDialog(Robot& user, const std::string& dialog, const std::function<void(QWidget&)>& step) {
  user.OnDialog(dialog, [step](QWidget& widget) {
    if (!AtRest()) step(widget);
  });
}

void Reject(QWidget& dialog) { dynamic_cast<QDialog&>(dialog).reject(); }

const std::vector<Robot::Deed> kLeaveStepOne{"cmdNotaManual1(1)"};

std::function<void(MainWindow&)> Opens(int node) {
  return [node](MainWindow& window) { window.OpenNode(static_cast<std::uint8_t>(node)); };
}

/// False when he rests with the list open, and does nothing any more.
bool Grade(Window& window) {
  auto* const filter = Robot::OpenList(window, 0, 1);
  if (AtRest()) return false;
  QTest::keyClicks(filter, "7");
  QTest::keyClick(filter, Qt::Key_Return);
  return true;
}

/// One flow of the grades: saved, those by student cancelled before, and out through step one.
Session Grades(int node, const std::string& form, const QString& evaluation,
               const std::string& choice = {}) {
  const auto final = evaluation == "Final";
  const auto stepOne = form + "1";
  const auto stepTwo = form + (final ? "Final" : "");
  Session session{.name = stepTwo, .arguments = kTutor};
  session.prepare = [=](Robot& user) {
    On(user, stepOne, [evaluation, choice](Window& window) {
      Robot::Pick(window, "cboCursos", "2");
      Robot::Pick(window, "cboSecciones", "A");
      Robot::Pick(window, "cboEvaluaciones", evaluation);
      if (!choice.empty()) Robot::Press(window, choice, Qt::Key_Down);
      Robot::Click(window, "cmdNotaManual1(0)");
    });
    if (node == kByStudent) {
      On(user, stepTwo, [](Window& window) {
        if (Grade(window)) Robot::Click(window, "cmdCancelar");
      });
      On(user, stepOne, {"cmdNotaManual1(0)"});
    }
    On(user, stepTwo, [](Window& window) {
      if (!Grade(window)) return;
      Saves();
      Robot::Click(window, "cmdAceptar");
    });
    On(user, stepOne, kLeaveStepOne);
  };
  session.begin = Opens(node);
  session.select = final ? kSavedFinal : kSaved;
  session.expected = 1;
  return session;
}

const std::vector<Robot::Deed> kPickLocked{
    {"cboCursos", "3"}, {"cboSecciones", "A"}, {"cboEvaluaciones", "2"}, "cmdNotaManual1(0)"};

/// All that could be graded is locked: step two says so and goes back.
void NothingToGrade(Robot& user) {
  On(user, "frmNotaManual1", kPickLocked);
  On(user, "frmNotaManual1", kLeaveStepOne);
}

constexpr const char* kUnlockedButFull =
    "DELETE FROM BloqueoPte WHERE CodMatDet=3112;"
    "INSERT INTO BloqueoPte VALUES (2,3,3112,3,77);"
    "CREATE TRIGGER lleno BEFORE INSERT ON PublicacionPte "
    "BEGIN SELECT RAISE(ABORT,'lleno'); END";

/// The publication can't be written: the screen ends, and the host tells why.
void Failure(Robot& user) {
  On(user, "frmNotaManual1", kPickLocked);
  OnDialog(user, "aviso", Reject);
}

const std::vector<Robot::Deed> kPickClass{
    {"cboTEnsenanza", "ESO"}, {"cboCurso", "2"}, {"cboSeccion", "A"}, "cmdAceptar"};

void Students(Robot& user) {
  On(user, "frmPendientes", kPickClass);
  On(user, "frmAlumnoPendiente", {"cmdListar", {"msgAlumnos", 0}, "cmdPropiedades", "cmdAceptar"});
  On(user, "frmAlumnos", [](Window& window) {
    Robot::DoubleClickRow(window, "lstDisponibles", 0);
    Robot::Click(window, "cmdAceptar");
  });
  On(user, "frmAlumnoMateria", {"cmdAgregar", {"msgMaterias", 0}, "cmdPropiedades", "cmdAceptar"});
  On(user, "frmMateriaPend",
     {{"cboCurso", "1"}, {"cboSeccion", "A"}, {"cboMateria", "Leng"}, "cmdAceptar"});
  On(user, "frmMateriaEv", {{"lstDisponibles", 0}, "cmdAgregarUno", "cmdAceptar"});
}

void Teachers(Robot& user) {
  On(user, "frmPendientes", kPickClass);
  On(user, "frmAlumnoPendiente", [](Window& window) {
    window.findChild<QTabBar*>()->setCurrentIndex(1);
    Robot::ClickRow(window, "msgMaterias", 0);
    Robot::Click(window, "cmdPropMat");
    Robot::Click(window, "cmdAceptar");
  });
  On(user, "frmPropMatProf", {"cmdNProfesor", "cmdAceptar"});
  OnDialog(user, "buscarPersona", [](QWidget& dialog) {
    auto* const field = dialog.findChild<QLineEdit*>();
    QTest::keyClicks(field, "vega");
    QTest::keyClick(field, Qt::Key_Return);
  });
}

/// The dialogs of the host's own windows.
void HostDialogs(Robot& user) {
  OnDialog(user, "bloqueos", [](QWidget& dialog) {
    auto* const remove = dialog.findChild<QWidget*>("quitar");
    remove->setFocus();
    QTest::keyClick(remove, Qt::Key_Space);
    Reject(dialog);
  });
  for (const auto* const dialog : {"pregunta", "conectar", "entrada", "QFileDialog"})
    OnDialog(user, dialog, Reject);
}

void OpenHostDialogs(MainWindow& window) {
  window.ShowLocks();
  for (const auto* const action : {"conectarServidor", "cambiarUsuario"})
    window.findChild<QAction*>(action)->trigger();
  for (auto* const action : window.findChildren<QAction*>())
    if (action->shortcut() == QKeySequence::Open) action->trigger();
}

/// Nobody has signed in yet.
void SignIn(Robot& user) {
  OnDialog(user, "entrada", [](QWidget& dialog) {
    auto* const field = dialog.findChild<QLineEdit*>();
    QTest::keyClicks(field, "ruiz");
    QTest::keyClick(field, Qt::Key_Return);
  });
  On(user, "frmNotaManual1", kLeaveStepOne);
}

}  // namespace

void PrintTo(const Session& session, std::ostream* out) { *out << session.name; }

const std::vector<Session>& Sessions() {
  static const std::vector<Session> all{
      Grades(kByStudent, "frmNotaManual", "1"),
      Grades(kByStudent, "frmNotaManual", "Final"),
      Grades(125, "frmNotaMateria", "1"),
      Grades(125, "frmNotaMateria", "Final"),
      Grades(126, "frmNotaSeccionMateria", "1", "cboAlumno"),
      Grades(126, "frmNotaSeccionMateria", "Final", "cboAlumno"),
      Grades(127, "frmNotaSeccionAlumno", "1", "cboMateria"),
      Grades(127, "frmNotaSeccionAlumno", "Final", "cboMateria"),
      {.name = "vacio", .arguments = kHead, .prepare = NothingToGrade, .begin = Opens(kByStudent)},
      {.name = "fallo",
       .sql = kUnlockedButFull,
       .arguments = kHead,
       .prepare = Failure,
       .begin = Opens(kByStudent),
       .refusal = "zendria: al salir: Error -2147467259: lleno\n"},
      {.name = "registro",
       .arguments = kHead,
       .prepare = Students,
       .begin = Opens(kRegister),
       .select = "SELECT COUNT(*) FROM Seccion_AlumnoPte WHERE CodSeccion=321",
       .expected = 2},
      {.name = "profesores",
       .arguments = kHead,
       .prepare = Teachers,
       .begin = Opens(kRegister),
       .select = "SELECT COUNT(*) FROM Profesor_Pte WHERE CodProfesor=3",
       .expected = 1},
      {.name = "ventanas", .arguments = kHead, .prepare = HostDialogs, .begin = OpenHostDialogs},
      {.name = "entrada", .prepare = SignIn, .begin = Opens(kByStudent)},
  };
  return all;
}

}  // namespace quorvane::test

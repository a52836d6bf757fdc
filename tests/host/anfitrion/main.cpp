#include <deque>
#include <exception>
#include <functional>
#include <iostream>
#include <stdexcept>
#include <string>

#include "Session.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "frame/cAsignarDatos.h"
#include "frame/cNombreNodo.h"
#include "platform/RuntimeError.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormInstances.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/controls/Retivo.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/FrontEnd.h"

namespace {

using namespace quorvane;

void Expect(bool fulfilled, const std::string& expectation) {
  if (!fulfilled) throw std::runtime_error("no se cumple: " + expectation);
}

/// The control of that name and kind, which the user must be able to use now.
template <class T>
T& Usable(Form& form, const std::string& name) {
  auto* const control = dynamic_cast<T*>(form.Find(name));
  Expect(control != nullptr, form.Name() + " tiene " + name);
  Expect(control->Usable(), name + " se puede usar");
  return *control;
}

void Pick(Form& form, const std::string& name, const std::string& entry) {
  auto& list = Usable<ComboBox>(form, name);
  for (int index = 0; index < list.ListCount(); ++index)
    if (list.List(index) == entry) return list.ListIndex(index);
  Expect(false, name + " ofrece " + entry);
}

void Press(Form& form, const std::string& name) { Usable<CommandButton>(form, name).Press(); }

/// A front end in which a list of steps takes the user's place: each is told the form that is open.
class CodedFrontEnd : public FrontEnd {
 public:
  struct Step {
    std::string form;
    std::function<void(Form&)> act;
  };

  std::deque<Step> steps;
  std::string messages;

  void RunModal(Form& form) override {
    form.Shown();
    while (form.Visible()) {
      Expect(!steps.empty(), "queda un paso para " + form.Name());
      const auto step = steps.front();
      steps.pop_front();
      Expect(step.form == form.Name(), "se abre " + step.form + ", no " + form.Name());
      step.act(form);
    }
  }
  void Message(MessageIcon /*icon*/, const std::string& title, const std::string& text) override {
    messages += title + ": " + text + '\n';
  }
  void Beep() override {}
  void MousePointer(Pointer /*pointer*/) override {}
  std::int32_t TextWidth(const Form& /*form*/, const std::string& text) override {
    return static_cast<std::int32_t>(text.size()) * 100;
  }
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return 15360; }
  std::int32_t ScreenHeight() override { return 11520; }
};

/// A host's own connection, on top of one that is there: it counts, and can break.
class CountedConnection : public Connection {
 public:
  CountedConnection(const std::string& path, const std::string& name)
      : Connection(name), school_(path, "") {}

  void Open() override { school_.Open(); }
  void Close() override { school_.Close(); }
  [[nodiscard]] bool IsOpen() const override { return school_.IsOpen(); }
  [[nodiscard]] std::string DataSource() const override { return "anfitrion"; }

  int count = 0;
  bool broken = false;

 protected:
  Recordset Run(const std::string& statement) override {
    ++count;
    if (broken) throw RuntimeError(ErrorNumber::StatementFailed, "cable suelto");
    return school_.Execute(statement);
  }

 private:
  sqlite::SqliteConnection school_;
};

/// The host's component: here it tells the date alone.
class Calendar : public CentroApi {
 public:
  std::string ObtenerHoraSistema(std::string& dataSource) override {
    Expect(dataSource == "anfitrion", "se pregunta la hora a la máquina de la base de datos");
    return "03/03/2025";
  }
};

void PickGrade(Form& form, const std::string& grade) {
  auto& grid = Usable<Retivo>(form, "rtvNotasAlumno");
  grid.BeginEdit(1, 1);
  const auto& list = grid.Lista(1);
  for (std::size_t index = 0; index < list.size(); ++index)
    if (list[index].text == grade) return grid.EndEdit(static_cast<int>(index));
  Expect(false, "la celda ofrece " + grade);
}

void ReadTheRegister(cAsignarDatos& module, CodedFrontEnd& user) {
  user.steps = {{"frmPendientes",
                 [](Form& form) {
                   Pick(form, "cboTEnsenanza", "Educación Secundaria Obligatoria");
                   Pick(form, "cboCurso", "3º ESO");
                   Pick(form, "cboSeccion", "3º ESO A");
                   Press(form, "cmdAceptar");
                 }},
                {"frmAlumnoPendiente", [](Form& form) {
                   const auto& students = Usable<MSFlexGrid>(form, "msgAlumnos");
                   for (int row = 0; row < students.Rows(); ++row)
                     std::cout << "alumno " << students.TextMatrix(row, 0) << '\n';
                   Expect(students.Rows() == 4, "la sección tiene cuatro alumnos");
                   Expect(students.TextMatrix(0, 0) == "Domínguez Álvarez, Marina",
                          "la primera es Marina Domínguez");
                   form.CloseByUser();
                 }}};
  module.ActivarFormulario(cNombreNodo().Pendientes);
  Expect(user.steps.empty(), "se han abierto las dos pantallas del registro");
}

void EnterGrades(cAsignarDatos& module, CodedFrontEnd& user) {
  user.steps = {{"frmNotaManual1",
                 [](Form& form) {
                   Pick(form, "cboTipoEnsenanza", "Educación Secundaria Obligatoria");
                   Pick(form, "cboCursos", "3º ESO");
                   Pick(form, "cboSecciones", "3º ESO A");
                   Pick(form, "cboEvaluaciones", "2ª Evaluación");
                   Press(form, "cmdNotaManual1(0)");
                 }},
                {"frmNotaManual",
                 [](Form& form) {
                   PickGrade(form, "7");
                   Press(form, "cmdSiguiente");
                   PickGrade(form, "5");
                   Press(form, "cmdAceptar");
                 }},
                {"frmNotaManual1", [](Form& form) { Press(form, "cmdNotaManual1(1)"); }}};
  module.ActivarFormulario(cNombreNodo().NotaPendientesAlumno);
  Expect(user.steps.empty(), "el paso uno vuelve cuando se han grabado las notas");
}

void CheckRows(const std::string& file) {
  sqlite::SqliteConnection another(file, "");
  another.Open();
  auto grades = another.Execute(
      "SELECT Nota.DescripcionCorta FROM EvaluacionPte INNER JOIN AlumnoPte_MatDet ON "
      "IDAlumnoPte_MatDet=CodAlumnoPte_MatDet INNER JOIN Alumno ON IDAlumno=CodAlumno INNER JOIN "
      "Nota ON IDNota=EvaluacionPte.CodNota WHERE EvaluacionPte.CodNumEvaluacion=2 AND "
      "CodMatDet=20 ORDER BY Apellido_1");
  std::string found;
  for (; !grades.Eof(); grades.MoveNext()) found += grades.Fields(0).Text() + ' ';
  std::cout << "notas " << found << '\n';
  Expect(found == "7 5 ", "las notas están en la base de datos");
  auto locks = another.Execute("SELECT COUNT(*) FROM BloqueoPte WHERE CodUsuario=3");
  Expect(locks.Fields(0).Long() == 0, "no queda ningún bloqueo");
}

void OutliveAFailure(cAsignarDatos& module, CountedConnection& school) {
  school.broken = true;
  std::string failure;
  try {
    module.ActivarFormulario(cNombreNodo().Pendientes);
  } catch (const RuntimeError& error) {
    Expect(error.Is(ErrorNumber::StatementFailed), "el fallo lleva su número");
    failure = error.Description();
    FormInstances::DropAll();
  }
  std::cout << "fallo " << failure << '\n';
  Expect(failure == "cable suelto", "el fallo de la conexión llega al anfitrión con su texto");
  school.broken = false;
}

void Run(const std::string& file) {
  CodedFrontEnd user;
  Application::Instance().UseScreen(&user);
  Application::Instance().Objects().Register(CentroApi::kProgId,
                                             [] { return std::make_unique<Calendar>(); });
  CountedConnection school(file, "centro");
  school.Open();
  sqlite::SqliteConnection users(file, "entrada");
  users.Open();
  cAsignarDatos module;
  module.ObtenerDatos(TutorSession(school, users));

  ReadTheRegister(module, user);
  OutliveAFailure(module, school);
  EnterGrades(module, user);
  CheckRows(file);
  Expect(user.messages.empty(), "nadie ha visto ningún mensaje: " + user.messages);
  std::cout << "sentencias " << school.count << '\n';
  Expect(school.count > 100, "las sentencias pasan por la conexión del anfitrión");
  Application::Instance().UseScreen(nullptr);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    Expect(argc == 2, "se da el fichero de la escuela");
    Run(argv[1]);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}

#include "apps/escuela/import/RegisterPlayer.h"

#include <optional>
#include <set>
#include <sstream>

#include "adapters/guion/host/Host.h"
#include "adapters/guion/language/CommandKind.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/Guion.h"
#include "apps/escuela/import/RegisterGestures.h"
#include "frame/cAsignarDatos.h"
#include "frame/cNombreNodo.h"
#include "platform/RuntimeError.h"
#include "platform/controls/Form.h"
#include "platform/controls/MSFlexGrid.h"
#include "platform/host/Application.h"

namespace quorvane {
namespace {

using guion::Command;
using guion::Guion;

constexpr auto kTeachersTab = 2;

/// Thrown past the dialogs when the register can't be saved.
struct RegisterInUse {};

[[noreturn]] void RefuseImport(const std::string& reason) {
  throw RuntimeError(ErrorNumber::StatementFailed,
                     "El registro no admite esta importación: " + reason + ". Avise a soporte");
}

/// The application's front end and the host's components, back in their places at the end.
class ScreenAside {
 public:
  ScreenAside() : objects_(Application::Instance().Objects()) {
    try {
      screen_ = &Application::Instance().Screen();
    } catch (const RuntimeError&) {
      // A program without a screen has none to give back.
    }
  }
  ~ScreenAside() {
    auto& application = Application::Instance();
    application.UseScreen(screen_);
    application.Objects() = objects_;
  }
  ScreenAside(const ScreenAside&) = delete;
  ScreenAside& operator=(const ScreenAside&) = delete;
  ScreenAside(ScreenAside&&) = delete;
  ScreenAside& operator=(ScreenAside&&) = delete;

 private:
  FrontEnd* screen_ = nullptr;
  ObjectFactory objects_;
};

void AddSubject(RegisterGestures& user, const ImportedSubject& asked) {
  const auto& subject = *asked.subject;
  user.Press("cmdAgregar");
  user.Choose("cboCurso", subject.section->course);
  user.Choose("cboSeccion", subject.section->id);
  user.Choose("cboMateria", subject.id);
  user.Press("cmdAceptar");
  user.Row("msgMaterias", subject.id);
  user.Press("cmdPropiedades");
  for (const auto evaluation : asked.evaluations) {
    user.Choose("lstDisponibles", evaluation);
    user.Press("cmdAgregarUno");
  }
  user.Press("cmdAceptar");
}

void AddStudents(RegisterGestures& user, const RegisterLookup::Section& section,
                 const std::vector<ImportedSubject>& subjects, const RegisterLookup& school) {
  std::set<std::int32_t> missing;
  for (const auto& asked : subjects)
    if (!school.OnRegister(section.id, asked.student->id)) missing.insert(asked.student->id);
  if (missing.empty()) return;
  user.Press("cmdListar");
  for (const auto student : missing) {
    user.Choose("lstDisponibles", student);
    user.Press("cmdAgregarUno");
  }
  user.Press("cmdAceptar");
}

void AddSubjects(RegisterGestures& user, const std::vector<ImportedSubject>& subjects) {
  std::map<std::int32_t, std::vector<const ImportedSubject*>> byStudent;
  for (const auto& asked : subjects)
    if (!asked.pending) byStudent[asked.student->id].push_back(&asked);
  for (const auto& [student, asked] : byStudent) {
    user.Row("msgAlumnos", student);
    user.Press("cmdPropiedades");
    for (const auto* const subject : asked) AddSubject(user, *subject);
    user.Press("cmdAceptar");
  }
}

void SetTeachers(RegisterGestures& user, const std::map<std::int32_t, std::int32_t>& teachers) {
  if (teachers.empty()) return;
  user.Tab("TabDatos", kTeachersTab);
  for (const auto& [subject, teacher] : teachers) {
    user.Row("msgMaterias", subject);
    user.Press("cmdPropMat");
    user.Find(teacher);
    user.Press("cmdNProfesor");
    user.Press("cmdAceptar");
  }
}

/// The command that a gesture is on the form that is open.
Command CommandOf(const RegisterGesture& gesture, const Guion& guion) {
  Command command;
  command.text = gesture.command + " " + gesture.control;
  command.kind = guion::FindCommand(gesture.command);
  command.arguments = {{gesture.control, false}};
  if (gesture.command == "fila") {
    auto* const form = guion.Active();
    const auto* const grid =
        form == nullptr ? nullptr : dynamic_cast<MSFlexGrid*>(form->Find(gesture.control));
    if (grid == nullptr) RefuseImport("no está " + gesture.control);
    auto row = 0;
    while (row < grid->Rows() && grid->RowData(row) != gesture.row) ++row;
    if (row == grid->Rows())
      RefuseImport(gesture.control + " no tiene " + std::to_string(gesture.row));
    command.arguments.push_back({std::to_string(row), false});
    command.arguments.push_back({"0", false});
  } else if (!gesture.argument.empty()) {
    command.arguments.push_back({gesture.argument, false});
  }
  return command;
}

/// Looks at what the last gesture has led to.
void RequireWell(const std::string& events) {
  std::istringstream lines(events);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("mensaje informacion") && line.find("no se grabarán") != line.npos)
      throw RegisterInUse();
    if (line.starts_with("rechazo ") || line.starts_with("mensaje ")) RefuseImport(line);
    if (line.starts_with("error ")) {
      const auto blank = line.find(' ', line.find(' ') + 1);
      throw RuntimeError(ErrorNumber::StatementFailed, line.substr(blank + 1));
    }
  }
}

}  // namespace

RegisterPlayer::End RegisterPlayer::Play(const RegisterLookup::Section& section,
                                         const std::vector<ImportedSubject>& subjects,
                                         const std::map<std::int32_t, std::int32_t>& teachers,
                                         const RegisterLookup& school, const Step& step) {
  RegisterGestures user;
  user.Open(cNombreNodo().Pendientes);
  user.Choose("cboTEnsenanza", section.teaching);
  user.Choose("cboCurso", section.course);
  user.Choose("cboSeccion", section.id);
  user.Press("cmdAceptar");
  AddStudents(user, section, subjects, school);
  AddSubjects(user, subjects);
  SetTeachers(user, teachers);
  user.Press("cmdAceptar");

  const ScreenAside aside;
  std::ostringstream events;
  guion::EventPrinter printer(events);
  guion::HostOptions options;
  options.usuario = 0;
  options.centro = section.centre;
  options.sqlServer = sqlServer_;
  guion::Host host(options, connections_,
                   {[](const auto& session) { cAsignarDatos().ObtenerDatos(session); },
                    [](std::uint8_t nodo) { cAsignarDatos().ActivarFormulario(nodo); }},
                   printer);
  std::size_t next = 0;
  const Guion* player = nullptr;
  Guion guion(
      [&]() -> std::optional<Command> {
        RequireWell(events.str());
        events.str({});
        step(next, user.All().size());
        if (next == user.All().size()) return std::nullopt;
        return CommandOf(user.All()[next++], *player);
      },
      host, printer);
  player = &guion;
  try {
    guion.Play();
    RequireWell(events.str());
  } catch (const RegisterInUse&) {
    return End::InUse;
  }
  return End::Done;
}

}  // namespace quorvane

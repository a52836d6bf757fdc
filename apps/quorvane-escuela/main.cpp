#include <CLI/CLI.hpp>
#include <cstdint>
#include <exception>
#include <iostream>
#include <memory>
#include <string>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/SchoolGenerator.h"
#include "apps/escuela/Told.h"
#include "apps/programs/Complaint.h"
#include "apps/programs/NumberOption.h"
#include "apps/programs/PasswordPrompt.h"
#include "apps/programs/Process.h"
#include "apps/programs/VisibleOutput.h"
#include "apps/quorvane-escuela/Commands.h"
#include "apps/quorvane-escuela/HistoryCommand.h"
#include "apps/quorvane-escuela/ImportCommand.h"
#include "apps/quorvane-escuela/RepairCommand.h"
#include "apps/quorvane-escuela/ReportCommand.h"
#include "apps/quorvane-escuela/StateCommand.h"
#include "apps/quorvane-escuela/UserCommands.h"

namespace {

constexpr auto kFailed = 1;
constexpr auto kBadArguments = 2;

struct Arguments {
  std::string file;
  std::string odbc;
  std::size_t students = 0;
  std::uint64_t seed = 0;
  int publication = 0;
  std::string from;
  std::string to;
  std::string user;
  quorvane::RepairOptions repair;
  std::string csv;
  quorvane::ImportOptions import;
  quorvane::StateOptions state;
  quorvane::ReportOptions report;
  quorvane::HistoryOptions history;
};

quorvane::SchoolAddress Address(const std::string& text) {
  return quorvane::odbc::ConnectionString::Looks(text) ? quorvane::SchoolAddress::Odbc(text)
                                                       : quorvane::SchoolAddress::File(text);
}

CLI::App* AddCommand(CLI::App& app, const std::string& name, const std::string& description,
                     Arguments& arguments) {
  auto* command = app.add_subcommand(name, description)->group("Órdenes");
  command->get_help_ptr()->group("Opciones");
  command->add_option("FICHERO", arguments.file, "Base de datos de la escuela")->type_name("");
  command->add_option("--odbc", arguments.odbc, "En su lugar, cadena de conexión ODBC")
      ->type_name("CADENA");
  return command;
}

/// An order of `usuarios`.
CLI::App* AddUserOrder(CLI::App& users, const std::string& name, const std::string& description,
                       Arguments& arguments, bool ofOne) {
  auto* order = users.add_subcommand(name, description)->group("Órdenes");
  order->get_help_ptr()->group("Opciones");
  if (ofOne)
    order->add_option("USUARIO", arguments.user, "Su número o su nombre")
        ->required()
        ->type_name("");
  return order;
}

const CLI::App* AddRepair(CLI::App& app, Arguments& arguments) {
  auto* repair =
      AddCommand(app, "reparar", "Arregla las filas que «comprobar» encuentra mal", arguments);
  repair->add_flag("--simular", arguments.repair.simulate, "Solo dice lo que haría");
  repair->add_flag("--con-copia-hecha", arguments.repair.backedUp,
                   "En un servidor: ya hay una copia de la base de datos");
  repair->add_flag("--con-publicaciones", arguments.repair.publicationsToo,
                   "También si alguien parece estar introduciendo notas");
  repair->footer(
      "Un fichero se copia antes a otro, a su lado. Escribe las sentencias que lo desharían, una "
      "por\nfila. Termina con 0, también si no había nada que reparar; con 1 si no se ha podido, "
      "y\nentonces no se ha tocado nada.");
  return repair;
}

const CLI::App* AddImport(CLI::App& app, Arguments& arguments) {
  auto* import = AddCommand(app, "importar", "Pone en el registro los alumnos y materias de un CSV",
                            arguments);
  import->add_option("CSV", arguments.csv, "Fichero con los alumnos y sus materias")->type_name("");
  import->add_flag("--simular", arguments.import.simulate, "Solo dice lo que haría");
  import->add_flag("--lo-que-se-pueda", arguments.import.whatFits,
                   "Importa las líneas que encajan y deja las demás");
  import->footer(
      "Columnas, por su encabezado: alumno (número, o «Apellidos, Nombre»), o apellidos y "
      "nombre;\nsección; materia; curso (el de la materia, o su sección); evaluaciones (todas, o "
      "sus nombres\nseparados por +); profesor, si se quiere. Con --odbc, CSV es el único "
      "fichero. Termina con 0;\ncon 1 si alguna línea no encaja, y entonces no se ha escrito "
      "nada.");
  return import;
}

const CLI::App* AddState(CLI::App& app, Arguments& arguments) {
  auto* state = AddCommand(app, "estado", "Dice qué notas faltan, y de quién", arguments);
  quorvane::AddNumber(*state, "--evaluacion", arguments.state.filter.evaluation,
                      "Solo esa evaluación", 1);
  state->add_flag("--faltan", arguments.state.filter.missingOnly, "Solo donde falta alguna");
  state->add_flag("--detalle", arguments.state.detail, "También las materias de cada sección");
  state->add_flag("--profesores", arguments.state.byTeacher, "Por profesores, y no por secciones");
  auto* csv = state->add_flag("--csv", arguments.state.csv, "Una fila por materia, en CSV");
  state->add_flag("--json", arguments.state.json, "Lo mismo, en JSON")->excludes(csv);
  return state;
}

const CLI::App* AddReport(CLI::App& app, Arguments& arguments) {
  auto* report =
      AddCommand(app, "informe", "Escribe los informes de pendientes de los alumnos", arguments);
  auto& options = arguments.report;
  report->add_option("--seccion", options.section, "Los alumnos de esa sección: su número o nombre")
      ->type_name("N");
  quorvane::AddNumber(*report, "--alumno", options.student, "De la sección, ese alumno", 1);
  report->add_option("--materia", options.subject, "Los que tienen pendiente esa materia")
      ->type_name("N");
  report->add_flag("--todas", options.all, "Todas las secciones, en la carpeta de --salida");
  report->add_flag("--en-blanco", options.blank, "Una hoja para poner las notas a mano");
  report->add_option("--salida", options.output, "Fichero .html o .csv, que no exista; o carpeta")
      ->type_name("FICHERO");
  report->add_flag("--csv", options.csv, "Con --todas, ficheros .csv");
  report->add_option("--nombre", options.name, "Nombre del centro en los informes")
      ->type_name("TEXTO");
  return report;
}

const CLI::App* AddHistory(CLI::App& app, Arguments& arguments) {
  auto* history =
      AddCommand(app, "historial", "Guarda y enseña quién cambió cada nota, y cuándo", arguments);
  auto& options = arguments.history;
  history->add_option("ORDEN", options.order, "activar, desactivar, ver o purgar")->type_name("");
  quorvane::AddNumber(*history, "--alumno", options.filter.student, "ver: ese alumno", 1);
  quorvane::AddNumber(*history, "--materia", options.filter.subject, "ver: esa materia", 1);
  quorvane::AddNumber(*history, "--evaluacion", options.filter.evaluation, "ver: esa evaluación",
                      1);
  quorvane::AddNumber(*history, "--usuario", options.filter.user, "ver: ese usuario", 1);
  history->add_option("--desde", options.filter.from, "ver: desde ese día, UTC")
      ->type_name("FECHA");
  history->add_option("--hasta", options.filter.to, "ver: hasta ese día, UTC")->type_name("FECHA");
  auto* csv = history->add_flag("--csv", options.csv, "ver: en CSV");
  history->add_flag("--json", options.json, "ver: en JSON")->excludes(csv);
  history->add_option("--antes", options.before, "purgar: lo anterior a ese día, UTC")
      ->type_name("FECHA");
  return history;
}

/// Tells what is wrong with what was given, and gives back how the program ends then.
int BadArguments(const std::string& text) {
  std::cerr << "quorvane-escuela: " << text << "\nPruebe quorvane-escuela --help\n";
  return kBadArguments;
}

int Run(int argc, char** argv) {
  CLI::App app("Crea, comprueba y arregla escuelas para el módulo de pendientes.",
               "quorvane-escuela");
  auto formatter = std::make_shared<CLI::Formatter>();
  formatter->label("Usage", "Uso");
  formatter->label("OPTIONS", "OPCIONES");
  formatter->label("Positionals", "Argumentos");
  formatter->label("SUBCOMMAND", "ORDEN");
  formatter->label("SUBCOMMANDS", "ORDEN");
  formatter->label("REQUIRED", "(obligatorio)");
  app.formatter(formatter);
  app.set_help_flag("-h,--help", "Muestra esta ayuda y termina")->group("Opciones");
  app.option_defaults()->group("Opciones");
  app.require_subcommand(1);

  Arguments arguments;
  auto* create = AddCommand(app, "crear", "Crea una escuela vacía", arguments);
  auto* demo = AddCommand(app, "demo", "Crea una escuela pequeña de ejemplo", arguments);
  auto* generate = AddCommand(app, "generar", "Crea una escuela de cualquier tamaño", arguments);
  quorvane::AddNumber(*generate, "--alumnos", arguments.students, "Número de alumnos",
                      std::size_t{1}, quorvane::SchoolGenerator::kMostStudents)
      ->required();
  quorvane::AddNumber(*generate, "--semilla", arguments.seed,
                      "La misma semilla da la misma escuela")
      ->required()
      ->type_name("S");
  auto* check =
      AddCommand(app, "comprobar",
                 "Dice si una escuela es apta para el módulo y qué filas le sobran", arguments);
  auto* locks = AddCommand(app, "bloqueos", "Muestra quién está introduciendo notas", arguments);
  const auto* remove = quorvane::AddNumber(*locks, "--borrar", arguments.publication,
                                           "Borra esa publicación y sus bloqueos")
                           ->type_name("ID");

  auto* users = AddCommand(app, "usuarios", "Contraseñas de los usuarios de un fichero", arguments);
  users->require_subcommand(0, 1);
  AddUserOrder(*users, "listar", "Quién tiene contraseña; lo mismo que nada", arguments, false);
  const auto* setPassword =
      AddUserOrder(*users, "clave", "Pone a uno la contraseña que se teclea", arguments, true);
  const auto* removePassword =
      AddUserOrder(*users, "quitar", "Quita a uno su contraseña", arguments, true);
  const auto* repair = AddRepair(app, arguments);
  const auto* import = AddImport(app, arguments);
  const auto* state = AddState(app, arguments);
  const auto* report = AddReport(app, arguments);
  const auto* history = AddHistory(app, arguments);

  auto* copy = app.add_subcommand("copiar", "Copia una escuela a un fichero o a un servidor")
                   ->group("Órdenes");
  copy->get_help_ptr()->group("Opciones");
  copy->footer(
      "Termina con 0; con 1 si no se ha podido copiar, y no queda nada; con 3 si está copiada pero\n"
      "el origen no deja leerlo todo en el mismo instante, y puede faltar parte de lo que otros\n"
      "escribían. Ctrl+C la deja sin hacer; otro Ctrl+C la corta aunque espere al servidor.");
  copy->add_option("ORIGEN", arguments.from, "Fichero, o cadena de conexión ODBC")
      ->required()
      ->type_name("");
  copy->add_option("DESTINO", arguments.to, "Lo mismo, donde aún no hay escuela")
      ->required()
      ->type_name("");

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& success) {
    return app.exit(success);
  } catch (const CLI::ParseError& error) {
    return BadArguments(quorvane::Complaint(error));
  }
  if (copy->parsed())
    return quorvane::Copy(quorvane::WithPassword(Address(arguments.from)),
                          quorvane::WithPassword(Address(arguments.to)));
  // In the place of the school's file stands the one to import.
  if (import->parsed() && !arguments.odbc.empty() && arguments.csv.empty())
    arguments.csv.swap(arguments.file);
  if (history->parsed() && !arguments.odbc.empty() && arguments.history.order.empty())
    arguments.history.order.swap(arguments.file);
  if (arguments.file.empty() == arguments.odbc.empty())
    return BadArguments(arguments.odbc.empty() ? "Falta FICHERO, o --odbc en su lugar"
                                               : "FICHERO y --odbc no van juntos");
  const auto school = arguments.odbc.empty()
                          ? quorvane::SchoolAddress::File(arguments.file)
                          : quorvane::WithPassword(quorvane::SchoolAddress::Odbc(arguments.odbc));
  using quorvane::SchoolAddress;
  if (school.IsMisplaced() || SchoolAddress::File(arguments.csv).IsMisplaced() ||
      SchoolAddress::File(arguments.report.output).IsMisplaced()) {
    std::cerr << "quorvane-escuela: " << SchoolAddress::kMisplaced << '\n';
    return kBadArguments;
  }
  if (create->parsed()) return quorvane::MakeEmpty(school);
  if (demo->parsed()) return quorvane::MakeDemo(school);
  if (generate->parsed()) return quorvane::Generate(school, arguments.students, arguments.seed);
  if (check->parsed()) return quorvane::Check(school);
  if (setPassword->parsed()) return quorvane::SetPassword(school, arguments.user);
  if (removePassword->parsed()) return quorvane::RemovePassword(school, arguments.user);
  if (users->parsed()) return quorvane::ShowUsers(school);
  if (history->parsed()) {
    if (const auto wrong = quorvane::Complaint(arguments.history); !wrong.empty())
      return BadArguments(quorvane::Told(wrong));
    return quorvane::History(school, arguments.history);
  }
  if (report->parsed()) {
    if (const auto wrong = quorvane::Complaint(arguments.report); !wrong.empty())
      return BadArguments(quorvane::Told(wrong));
    return quorvane::Report(school, arguments.report);
  }
  if (state->parsed()) return quorvane::State(school, arguments.state);
  if (import->parsed()) {
    if (arguments.csv.empty()) return BadArguments("Falta CSV");
    return quorvane::Import(school, arguments.csv, arguments.import);
  }
  if (repair->parsed()) return quorvane::Repair(school, arguments.repair);
  if (remove->count() > 0) return quorvane::RemoveLocks(school, arguments.publication);
  return quorvane::ShowLocks(school);
}

}  // namespace

int main(int argc, char** argv) {
  using quorvane::Told;
  const quorvane::VisibleOutput errors(std::cerr);
  try {
    quorvane::BeginProcess();
    if (const auto trouble = quorvane::OutputTrouble()) {
      std::cerr << "quorvane-escuela: " << *trouble << '\n';
      return kFailed;
    }
    auto status = kFailed;
    {
      const quorvane::VisibleOutput output(std::cout);
      status = Run(argc, argv);
    }
    if (std::cout.flush()) return status;
    std::cerr << "quorvane-escuela: no se puede escribir la salida: compruebe que queda espacio en "
                 "el disco\n";
    return kFailed;
  } catch (const std::exception& error) {
    std::cerr << "quorvane-escuela: " << Told(error.what()) << '\n';
    return kFailed;
  }
}

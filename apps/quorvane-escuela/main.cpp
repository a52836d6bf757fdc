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
    std::cerr << "quorvane-escuela: " << quorvane::Complaint(error)
              << "\nPruebe quorvane-escuela --help\n";
    return kBadArguments;
  }
  if (copy->parsed())
    return quorvane::Copy(quorvane::WithPassword(Address(arguments.from)),
                          quorvane::WithPassword(Address(arguments.to)));
  if (arguments.file.empty() == arguments.odbc.empty()) {
    std::cerr << "quorvane-escuela: "
              << (arguments.odbc.empty() ? "Falta FICHERO, o --odbc en su lugar"
                                         : "FICHERO y --odbc no van juntos")
              << "\nPruebe quorvane-escuela --help\n";
    return kBadArguments;
  }
  const auto school = arguments.odbc.empty()
                          ? quorvane::SchoolAddress::File(arguments.file)
                          : quorvane::WithPassword(quorvane::SchoolAddress::Odbc(arguments.odbc));
  if (school.IsMisplaced()) {
    std::cerr << "quorvane-escuela: " << quorvane::SchoolAddress::kMisplaced << '\n';
    return kBadArguments;
  }
  if (create->parsed()) return quorvane::MakeEmpty(school);
  if (demo->parsed()) return quorvane::MakeDemo(school);
  if (generate->parsed()) return quorvane::Generate(school, arguments.students, arguments.seed);
  if (check->parsed()) return quorvane::Check(school);
  if (remove->count() > 0) return quorvane::RemoveLocks(school, arguments.publication);
  return quorvane::ShowLocks(school);
}

}  // namespace

int main(int argc, char** argv) {
  using quorvane::Told;
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

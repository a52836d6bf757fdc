#include "apps/quorvane-guion/CommandLine.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "apps/programs/Complaint.h"
#include "apps/programs/NumberOption.h"

namespace quorvane::guion {
namespace {

constexpr int kBadArguments = 2;

void NameInSpanish(CLI::FormatterBase& formatter) {
  formatter.column_width(30);
  formatter.label("Usage", "Uso");
  formatter.label("OPTIONS", "OPCIONES");
  formatter.label("Positionals", "Guion");
}

void Tell(const CLI::App& app, const std::string& mistake) {
  std::cerr << mistake << '\n' << app.get_name() << " --help muestra la ayuda\n";
}

}  // namespace

std::optional<CommandLine> ReadCommandLine(int argc, const char* const* argv, int& status) {
  CommandLine line;
  auto& host = line.options.host;
  bool inactive = false;
  CLI::App app("Juega un guion de gestos de usuario con las pantallas de materias pendientes.",
               "quorvane-guion");
  NameInSpanish(*app.get_formatter());
  app.option_defaults()->group("Opciones");
  app.set_help_flag("-h,--help", "Muestra esta ayuda");
  app.add_option("--bd", line.options.bd, "Fichero del centro")->type_name("FICHERO");
  app.add_option("--odbc", line.options.odbc, "En su lugar, cadena de conexión ODBC del centro")
      ->type_name("CADENA");
  app.add_option("--entrada", line.options.entrada,
                 "La base de datos con Usuario, si es otra: un fichero o, con --odbc, también una "
                 "cadena de conexión (con un signo =)")
      ->type_name("FICHERO");
  AddNumber(app, "--usuario", host.usuario, "Usuario que abre la sesión");
  AddNumber(app, "--perfil", host.perfil, "Su perfil; 0 no tiene restricciones");
  AddNumber(app, "--centro", host.centro, "Centro de la sesión");
  app.add_flag("--sqlserver", host.sqlServer,
               "Sesión de SQL Server; con --odbc, lo dice el controlador");
  app.add_flag("--inactiva", inactive, "Sesión de solo consulta");
  app.add_option("--hoy", host.hoy, "Fecha que responde el anfitrión")->type_name("dd/mm/aaaa");
  app.add_option("SCRIPT", line.script, "Fichero del guion; sin él, la entrada estándar")
      ->type_name("FICHERO");
  status = kBadArguments;
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    std::cout << app.help();
    status = 0;
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    Tell(app, Complaint(error));
    return std::nullopt;
  }
  if (line.options.bd.empty() == line.options.odbc.empty()) {
    Tell(app, "Indique el centro con --bd o con --odbc, y solo con uno");
    return std::nullopt;
  }
  host.activa = inactive ? 0 : 1;
  return line;
}

}  // namespace quorvane::guion

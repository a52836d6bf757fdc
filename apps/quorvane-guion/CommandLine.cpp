#include "apps/quorvane-guion/CommandLine.h"

#include <CLI/CLI.hpp>

namespace quorvane::guion {

std::optional<CommandLine> ReadCommandLine(int argc, const char* const* argv, int& status) {
  constexpr int kBadArguments = 2;
  CommandLine line;
  auto& host = line.options.host;
  bool inactive = false;
  CLI::App app("Juega un guion de gestos de usuario con las pantallas de materias pendientes.");
  app.get_formatter()->column_width(30);
  app.set_help_flag("-h,--help", "Muestra esta ayuda");
  auto* const school = app.add_option_group("Centro", "La base de datos (una de las dos)");
  school->add_option("--bd", line.options.bd, "Fichero del centro")->type_name("FICHERO");
  school->add_option("--odbc", line.options.odbc, "Cadena de conexión del centro")
      ->type_name("CADENA");
  school->require_option(1);
  app.add_option("--entrada", line.options.entrada, "La base de datos con Usuario, si es otra")
      ->type_name("FICHERO");
  app.add_option("--usuario", host.usuario, "Usuario que abre la sesión")->type_name("N");
  app.add_option("--perfil", host.perfil, "Su perfil; 0 no tiene restricciones")->type_name("N");
  app.add_option("--centro", host.centro, "Centro de la sesión")->type_name("N");
  app.add_flag("--sqlserver", host.sqlServer, "Sesión de SQL Server");
  app.add_flag("--inactiva", inactive, "Sesión de solo consulta");
  app.add_option("--hoy", host.hoy, "Fecha que responde el anfitrión")->type_name("dd/mm/aaaa");
  app.add_option("SCRIPT", line.script, "Fichero del guion; sin él, la entrada estándar")
      ->type_name("FICHERO");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    status = app.exit(error) == 0 ? 0 : kBadArguments;
    return std::nullopt;
  }
  host.activa = inactive ? 0 : 1;
  return line;
}

}  // namespace quorvane::guion

#include "apps/zendria/CommandLine.h"

#include <CLI/CLI.hpp>

namespace quorvane::zendria {

std::optional<CommandLine> ReadCommandLine(int argc, const char* const* argv, std::ostream& out,
                                           std::ostream& err, ExitStatus& status) {
  CommandLine line;
  CLI::App app("Zendria: abre la base de datos de una escuela y sus materias pendientes.",
               "zendria");
  app.set_help_flag("-h,--help", "Muestra esta ayuda");
  app.add_option("FILE", line.file, "Base de datos SQLite de la escuela");
  app.add_option("--odbc", line.odbc,
                 "En su lugar, cadena de conexión ODBC; sin contraseña (PWD), la pregunta")
      ->type_name("CADENA");
  app.add_option("--usuario", line.user, "Entra como el usuario N sin preguntar")->type_name("N");
  app.footer(
      "Estado de salida: 0; 1 si la escuela pedida no se pudo abrir; 2 si los argumentos no\n"
      "valen; 3 si no hay pantalla.");
  try {
    app.parse(argc, argv);
    if (!line.file.empty() && !line.odbc.empty())
      throw CLI::ValidationError("FILE", "no va junto con --odbc");
    if (line.user && line.file.empty() && line.odbc.empty())
      throw CLI::ValidationError("--usuario", "necesita FILE o --odbc");
    return line;
  } catch (const CLI::ParseError& error) {
    status = app.exit(error, out, err) == 0 ? ExitStatus::Ok : ExitStatus::BadArguments;
    return std::nullopt;
  }
}

}  // namespace quorvane::zendria

#include "apps/zendria/CommandLine.h"

#include <CLI/CLI.hpp>

#include "apps/programs/Complaint.h"
#include "apps/programs/NumberOption.h"

namespace quorvane::zendria {
std::optional<CommandLine> ReadCommandLine(int argc, const char* const* argv, std::ostream& out,
                                           std::ostream& err, ExitStatus& status) {
  CommandLine line;
  CLI::App app("Zendria: abre la base de datos de una escuela y sus materias pendientes.",
               "zendria");
  app.get_formatter()->label("Usage", "Uso");
  app.get_formatter()->label("OPTIONS", "OPCIONES");
  app.get_formatter()->label("Positionals", "Escuela");
  app.option_defaults()->group("Opciones");
  app.set_help_flag("-h,--help", "Muestra esta ayuda");
  app.add_option("FICHERO", line.file, "Base de datos SQLite de la escuela")->type_name("");
  app.add_option("--odbc", line.odbc,
                 "En su lugar, cadena de conexión ODBC; sin contraseña (PWD), la pregunta")
      ->type_name("CADENA");
  AddNumber(app, "--usuario", line.user,
            "Entra como el usuario N sin preguntar quién; su contraseña, si tiene, sí");
  app.footer(
      "Estado de salida: 0; 1 si la escuela pedida no se pudo abrir; 2 si los argumentos no\n"
      "valen; 3 si no hay pantalla; 4 si, al pedirle que acabe, algo falló en una pantalla\n"
      "abierta. Con SIGHUP, SIGINT o SIGTERM cierra lo abierto y acaba por esa señal.");
  try {
    app.parse(argc, argv);
    if (!line.file.empty() && !line.odbc.empty())
      throw CLI::ValidationError("FICHERO", "no va junto con --odbc");
    if (line.user && line.file.empty() && line.odbc.empty())
      throw CLI::ValidationError("--usuario", "necesita FICHERO o --odbc");
    return line;
  } catch (const CLI::CallForHelp&) {
    out << app.help();
    status = ExitStatus::Ok;
    return std::nullopt;
  } catch (const CLI::ParseError& error) {
    err << Complaint(error) << "\nzendria --help muestra la ayuda\n";
    status = ExitStatus::BadArguments;
    return std::nullopt;
  }
}

}  // namespace quorvane::zendria

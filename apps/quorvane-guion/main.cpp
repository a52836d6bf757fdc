#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "adapters/odbc/ConnectionString.h"
#include "apps/escuela/Told.h"
#include "apps/programs/PasswordPrompt.h"
#include "apps/programs/Process.h"
#include "apps/programs/VisibleOutput.h"
#include "apps/quorvane-guion/CommandLine.h"
#include "apps/quorvane-guion/PlayScript.h"

namespace {

using namespace quorvane;

constexpr int kNotPlayed = 2;

int PlayFile(const guion::CommandLine& line) {
  std::ifstream script(line.script, std::ios::binary);
  if (!script || std::filesystem::is_directory(line.script)) {
    std::cerr << "No se puede leer el guion " << Told(line.script) << '\n';
    return kNotPlayed;
  }
  return guion::PlayScript(line.options, script, std::cout, std::cerr);
}

int Play(int argc, char** argv) {
  int status = 0;
  auto line = guion::ReadCommandLine(argc, argv, status);
  if (!line) return status;
  for (auto* const string : {&line->options.odbc, &line->options.entrada})
    if (odbc::ConnectionString::Looks(*string) && !line->options.odbc.empty())
      *string = WithPassword(SchoolAddress::Odbc(*string)).Text();
  if (!line->script.empty()) return PlayFile(*line);
  if (InputWasClosed()) {
    std::cerr << "No se puede leer el guion: la entrada estándar está cerrada\n";
    return kNotPlayed;
  }
  return guion::PlayScript(line->options, std::cin, std::cout, std::cerr, true);
}

}  // namespace

int main(int argc, char** argv) {
  // Else a read that fails would pass for the script's end.
  std::ios::sync_with_stdio(false);
  const VisibleOutput errors(std::cerr);
  try {
    BeginProcess();
    if (const auto trouble = OutputTrouble()) {
      std::cerr << *trouble << '\n';
      return kNotPlayed;
    }
    const auto status = Play(argc, argv);
    if (std::cout.flush()) return status;
    std::cerr << "No se puede escribir la salida: compruebe que queda espacio en el disco\n";
    return kNotPlayed;
  } catch (const std::exception& error) {
    std::cerr << Told(error.what()) << '\n';
    return kNotPlayed;
  }
}

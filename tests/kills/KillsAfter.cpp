#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "tests/kills/Kills.h"
#include "tests/support/RunCommand.h"

// What is done after a death: what a technician does, and what the next user sees.

namespace quorvane::test {
namespace {

constexpr std::string_view kPublication = "Publicación ";
constexpr std::string_view kOrphans = "Bloqueos sin publicación ";

std::string Locks(const std::string& school) {
  const auto result = RunCommand(QUORVANE_ESCUELA " bloqueos " + Quoted(school));
  if (result.status != 0) throw std::runtime_error("bloqueos: " + result.text);
  return result.text;
}

}  // namespace

void Kills::RemoveLocks() {
  const auto target = ChooseTarget(school_, random_);
  std::vector<std::string> numbers;
  int locks = 0;
  std::istringstream lines(Locks(school_));
  for (std::string line; std::getline(lines, line);) {
    for (const auto prefix : {kPublication, kOrphans})
      if (line.starts_with(prefix))
        numbers.push_back(line.substr(prefix.size(), line.find(':') - prefix.size()));
    if (line.starts_with("  ")) ++locks;
  }
  const auto count = [this](const std::string& what) {
    return std::stoi(Replica::First(school_, "SELECT COUNT(*) FROM " + what));
  };
  const auto all = count(
      "(SELECT IDPublicacionPte FROM PublicacionPte UNION SELECT CodPublicacion "
      "FROM BloqueoPte)");
  if (static_cast<int>(numbers.size()) != all || locks != count("BloqueoPte"))
    throw std::runtime_error("bloqueos no nombra lo que ha quedado");
  publications_ += static_cast<int>(numbers.size());
  locks_ += locks;
  for (const auto& number : numbers) RemovePublication(number);
  if (Locks(school_) != "No hay publicaciones ni bloqueos\n")
    throw std::runtime_error("Quedan bloqueos tras borrarlos");
  if (Replica::AllOf(school_) != replica_->All())
    throw std::runtime_error("Al borrar los bloqueos ha cambiado algo más");
  OpenForms(target);
}

void Kills::RemovePublication(const std::string& number) {
  const auto result =
      RunCommand(QUORVANE_ESCUELA " bloqueos " + Quoted(school_) + " --borrar " + number);
  if (result.status != 0) throw std::runtime_error("bloqueos --borrar: " + result.text);
  replica_->Apply("DELETE FROM BloqueoPte WHERE CodPublicacion=" + number);
  replica_->Apply("DELETE FROM PublicacionPte WHERE IDPublicacionPte=" + number);
}

void Kills::OpenForms(const Target& target) {
  const auto alike = school_ + ".replica";
  replica_->Save(alike);
  const auto opened = quorvane::test::OpenForms(school_, target);
  if (opened.lines != quorvane::test::OpenForms(alike, target).lines)
    throw std::runtime_error("Los formularios no se abren como si nadie hubiera muerto");
  if (Replica::AllOf(school_) != replica_->All())
    throw std::runtime_error("Abrir y cerrar los formularios ha dejado algo");
  shown_ += opened.shown;
  for (const auto* const ending : {"", "-wal", "-shm"}) std::filesystem::remove(alike + ending);
}

void Kills::Print(std::ostream& out) const {
  out << kills_ << " procesos muertos con kill -9 en " << schools_ << " escuelas, " << accompanied_
      << " con otro programa abierto\n"
      << "  sentencias que habían vuelto: " << returned_ << ", de ellas escrituras: " << written_
      << "\n  escrituras en vuelo: " << inFlight_ << "; han quedado dentro: " << inside_
      << ", fuera: " << outside_ << " (" << late_ << " hasta que se fue el otro programa)"
      << ", sin efecto: " << inFlight_ - inside_ - outside_
      << "\n  publicaciones encontradas y borradas: " << publications_
      << ", con bloqueos: " << locks_
      << "\n  formularios de notas abiertos después por otro usuario: " << shown_ << '\n';
}

}  // namespace quorvane::test

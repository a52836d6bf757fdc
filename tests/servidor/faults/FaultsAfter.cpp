#include <algorithm>
#include <chrono>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/cAsignarDatos.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "tests/servidor/faults/Faults.h"
#include "tests/support/RunCommand.h"
#include "tests/support/ServerSchools.h"

// What is looked at after a fault: the rows, the locks, and whether work goes on.

namespace quorvane::test {
namespace {

constexpr std::string_view kPublication = "Publicación ";
constexpr std::uint8_t kRegister = 123;
constexpr std::string_view kOrphans = "Bloqueos sin publicación ";

/// A line a table that tells its rows.
std::string RowsOf(const std::string& database) {
  std::string select;
  for (const auto& table : SchoolTables())
    select +=
        (select.empty() ? "SELECT '" : " UNION ALL SELECT '") + table.name +
        "' AS tabla, string_agg(CAST(t AS text), ';' ORDER BY CAST(t AS text)) AS filas FROM " +
        table.name + " t";
  std::string text;
  auto rows = OwnersConnection(database).Execute(select);
  for (; !rows.Eof(); rows.MoveNext())
    text += rows.Fields(0).Text() + ": " + rows.Fields(1).Text() + '\n';
  return text;
}

/// What they are once the statement has been executed; as they are where the engine refuses it.
std::string RowsWith(const std::string& database, const std::string& statement) {
  auto& connection = OwnersConnection(database);
  connection.Execute("SAVEPOINT antes");
  try {
    connection.Execute(statement);
  } catch (const RuntimeError&) {
    connection.Execute("ROLLBACK TO SAVEPOINT antes");
  }
  return RowsOf(database);
}

std::string FirstDifference(const std::string& one, const std::string& other) {
  std::istringstream left(one);
  std::istringstream right(other);
  for (std::string a, b; std::getline(left, a) && std::getline(right, b);)
    if (a != b) return a.substr(0, a.find(':'));
  return {};
}

std::string Bloqueos(const std::string& database, const std::string& more = {}) {
  const auto result =
      RunCommand(QUORVANE_ESCUELA " bloqueos --odbc " + Quoted(ServerString(database)) + more);
  if (result.status != 0) throw std::runtime_error("bloqueos: " + result.text);
  return result.text;
}

}  // namespace

void Faults::CompareRows() {
  auto& alike = OwnersConnection(alike_);
  for (const auto& statement : diary_.written) alike.Execute(statement);
  figures_.written += static_cast<std::int64_t>(diary_.written.size());
  figures_.returned += diary_.returned;
  const auto found = RowsOf(school_);
  auto expected = RowsOf(alike_);
  if (diary_.inFlight) {
    ++figures_.inFlight;
    const auto without = expected;
    alike.Execute("BEGIN");
    const auto with = RowsWith(alike_, *diary_.inFlight);
    const auto inside = found == with;
    alike.Execute(inside ? "COMMIT" : "ROLLBACK");
    if (with != without) ++(inside ? figures_.inside : figures_.outside);
    if (inside) expected = with;
  }
  if (found != expected)
    throw std::runtime_error("no está lo que había vuelto, o hay algo más, en " +
                             FirstDifference(found, expected) +
                             "; en vuelo: " + diary_.inFlight.value_or("nada"));
}

void Faults::RemoveLocks() {
  std::istringstream lines(Bloqueos(school_));
  std::vector<std::string> numbers;
  std::int64_t locks = 0;
  for (std::string line; std::getline(lines, line);) {
    for (const auto prefix : {kPublication, kOrphans})
      if (line.starts_with(prefix))
        numbers.push_back(line.substr(prefix.size(), line.find(':') - prefix.size()));
    if (line.starts_with("  ")) ++locks;
  }
  const auto left = OwnersConnection(school_).Execute(
      "SELECT CAST((SELECT count(*) FROM (SELECT IDPublicacionPte AS n FROM PublicacionPte UNION "
      "SELECT CodPublicacion FROM BloqueoPte) p) AS integer),CAST((SELECT count(*) FROM "
      "BloqueoPte) AS integer)");
  if (left.Fields(0).Long() != static_cast<std::int64_t>(numbers.size()) ||
      left.Fields(1).Long() != locks)
    throw std::runtime_error("«bloqueos» no nombra lo que ha quedado");
  for (const auto& number : numbers) {
    Bloqueos(school_, " --borrar " + number);
    OwnersConnection(alike_).Execute("DELETE FROM BloqueoPte WHERE CodPublicacion=" + number);
    OwnersConnection(alike_).Execute("DELETE FROM PublicacionPte WHERE IDPublicacionPte=" + number);
  }
  if (RowsOf(school_) != RowsOf(alike_))
    throw std::runtime_error("al borrar los bloqueos ha cambiado algo más");
  figures_.publications += static_cast<std::int64_t>(numbers.size());
  figures_.locks += locks;
}

void Faults::OpenAgain() {
  const auto begin = std::chrono::steady_clock::now();
  user_.OnlyCloses(true);
  centro_.Open();
  host_.SignIn({centro_, borrado_, entrada_}, HostSession{});
  try {
    cAsignarDatos().ActivarFormulario(kRegister);
  } catch (const RuntimeError& error) {
    FormInstances::DropAll();
    throw std::runtime_error("la pantalla no se abre de nuevo: " + error.Description());
  }
  user_.OnlyCloses(false);
  ++figures_.reopened;
  const auto took = std::chrono::steady_clock::now() - begin;
  figures_.longestOpening =
      std::max(figures_.longestOpening,
               std::int64_t{std::chrono::duration_cast<std::chrono::milliseconds>(took).count()});
}

}  // namespace quorvane::test

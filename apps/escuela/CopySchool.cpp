#include "apps/escuela/CopySchool.h"

#include <algorithm>

#include "apps/escuela/CopyOrigin.h"
#include "apps/escuela/NewSchool.h"
#include "apps/escuela/TableWriter.h"
#include "apps/escuela/UserPasswords.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

using sqltext::Engine;

class Copier {
 public:
  Copier(const CopyOrigin& origin, const CopyWatch& watch) : origin_(origin), watch_(watch) {}

  /// Into a school with empty tables, in a transaction.
  std::vector<SchoolCopy::Table> CopyTo(Connection& school) {
    RequireGoing();
    const auto engine = EngineReached(school);
    // A backslash is a letter.
    if (engine == Engine::PostgreSql) school.Execute("SET LOCAL standard_conforming_strings=on");
    // Each row is written, and then read again.
    std::vector<std::size_t> counts;
    for (const auto& table : origin_.Tables()) {
      counts.push_back(origin_.CountRows(table));
      all_ += 2 * counts.back();
    }
    std::vector<SchoolCopy::Table> copied;
    for (const auto& table : origin_.Tables()) {
      const auto count = counts[copied.size()];
      const auto written = Write(table, school, engine);
      const auto there = ReadAgain(table, school, engine);
      if (written.rows != count || written != there)
        throw RuntimeError(ErrorNumber::StatementFailed,
                           "Las filas de la tabla " + table.name +
                               " no son las mismas: " + std::to_string(count) + " en el origen, " +
                               std::to_string(there.rows) + " en la copia");
      copied.push_back({table.name, there.rows});
      // Who opens the school at once isn't to wait for the server to look at it in its own time.
      if (engine == Engine::PostgreSql) school.Execute("ANALYZE " + table.name);
    }
    return copied;
  }

  /// Whoever may open the copy would else come in as anybody. False where they aren't kept.
  bool CopyPasswordsTo(Connection& school) {
    UserPasswords there(school);
    const auto passwords = origin_.Passwords();
    if (there.Kept()) there.TakeOver(passwords);
    return passwords.empty() || there.Kept();
  }

  /// Between two steps.
  void RequireGoing() const {
    if (watch_.stop()) throw WritingStopped();
  }

 private:
  RowSum Write(const CopiedTable& table, Connection& school, Engine engine) {
    TableWriter writer(school, engine, table);
    const auto reader = origin_.Read(table);
    for (auto rows = reader->Next(); !rows.Eof(); rows = reader->Next()) {
      const auto count = rows.RecordCount();
      for (; !rows.Eof(); rows.MoveNext()) writer.Add(rows);
      Tell(count);
    }
    writer.Flush();
    return writer.Sum();
  }

  RowSum ReadAgain(CopiedTable table, Connection& school, Engine engine) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) table.there[i] = table.columns[i].name;
    RowText row(table, engine);
    const auto reader = TableReader::Make(school, engine, table);
    for (auto rows = reader->Next(); !rows.Eof(); rows = reader->Next()) {
      const auto count = rows.RecordCount();
      for (; !rows.Eof(); rows.MoveNext()) row.Of(rows);
      Tell(count);
    }
    return row.Sum();
  }

  void Tell(std::size_t rows) {
    done_ += rows;
    watch_.progress(std::min(done_, all_), all_);
    RequireGoing();
  }

  const CopyOrigin& origin_;
  const CopyWatch& watch_;
  std::size_t done_ = 0;
  std::size_t all_ = 0;
};

}  // namespace

SchoolCopy CopySchool(const SchoolAddress& from, const SchoolAddress& to, const CopyWatch& watch) {
  const CopyOrigin origin(from);
  SchoolCopy copy;
  copy.notCopied = origin.Others();
  copy.oneMoment = origin.OneMoment();
  Copier copier(origin, watch);
  // What is left to be done behind the rows isn't done either for who gives up then.
  MakeSchool(
      to,
      [&](Connection& school) {
        copy.tables = copier.CopyTo(school);
        copy.passwordsLeft = !copier.CopyPasswordsTo(school);
      },
      [&copier] { copier.RequireGoing(); });
  return copy;
}

}  // namespace quorvane

#include "bench/StatementCost.h"

#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <sqlite3.h>
#include <unordered_map>
#include <utility>

#include "adapters/sqlite/Database.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementCache.h"
#include "adapters/sqlite/StatementLifter.h"
#include "adapters/sqltext/Concatenation.h"
#include "adapters/sqltext/NestedJoins.h"
#include "bench/Measure.h"

namespace quorvane::bench {
namespace {

constexpr int kRounds = 41;
constexpr std::chrono::milliseconds kNoWait{0};

/// Kept away from the optimizer, which would leave out what nobody uses.
volatile std::int64_t sink = 0;

/// A statement as the logic joins it, and what the adapter makes of it.
struct Piecewise {
  std::string text;
  std::string lifted;
  std::vector<std::string> pieces;  ///< one more than values
  std::vector<std::int64_t> values;
  sqlite::PreparedStatement* prepared = nullptr;
  sqlite3_stmt* raw = nullptr;
};

/// A connection that does nothing with a statement.
class NoEngine : public Connection {
 public:
  NoEngine() : Connection("centro") {}
  void Open() override {}
  void Close() override {}
  [[nodiscard]] bool IsOpen() const override { return true; }
  [[nodiscard]] std::string DataSource() const override { return {}; }

 protected:
  Recordset Run(const std::string& /*statement*/) override { return {}; }
};

std::vector<std::string> Split(const std::string& lifted) {
  std::vector<std::string> pieces(1);
  for (const auto c : lifted) {
    if (c == '?') {
      pieces.emplace_back();
    } else {
      pieces.back() += c;
    }
  }
  return pieces;
}

std::string Join(const Piecewise& statement) {
  auto text = statement.pieces.front();
  for (std::size_t i = 0; i < statement.values.size(); ++i) {
    text += std::to_string(statement.values[i]);
    text += statement.pieces[i + 1];
  }
  return text;
}

void RunRaw(const Piecewise& statement) {
  for (std::size_t i = 0; i < statement.values.size(); ++i)
    sqlite3_bind_int64(statement.raw, static_cast<int>(i + 1), statement.values[i]);
  const auto columns = sqlite3_column_count(statement.raw);
  std::int64_t sum = 0;
  while (sqlite3_step(statement.raw) == SQLITE_ROW) {
    for (int i = 0; i < columns; ++i) {
      if (sqlite3_column_type(statement.raw, i) == SQLITE_TEXT) {
        sum += sqlite3_column_text(statement.raw, i)[0] + sqlite3_column_bytes(statement.raw, i);
      } else {
        sum += sqlite3_column_int64(statement.raw, i);
      }
    }
  }
  sqlite3_reset(statement.raw);
  sink = sum;
}

void ReadColumns(Recordset& rows) {
  std::int64_t sum = 0;
  const auto& names = rows.Names();
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    for (const auto& name : names) {
      const auto& value = rows.Fields(name);
      sum += value.IsText() ? static_cast<std::int64_t>(value.Text().size()) : value.Long();
    }
  }
  sink = sum;
}

/// Things done with each statement, taking turns, so that what else the machine does meets all.
class Steps {
 public:
  using Step = std::function<void(const Piecewise&)>;

  /// `before` and `behind` are SQL round each round of it. Gives its number.
  std::size_t Add(Step step, const char* before = "", const char* behind = "") {
    steps_.push_back({std::move(step), before, behind});
    return steps_.size() - 1;
  }

  /// Nanoseconds a statement, of each step.
  [[nodiscard]] std::vector<double> Measure(const std::vector<Piecewise>& statements,
                                            const sqlite::Database& database) const {
    std::vector<std::vector<double>> rounds(steps_.size());
    for (int round = 0; round < kRounds; ++round) {
      for (std::size_t i = 0; i < steps_.size(); ++i) {
        database.Script(steps_[i].before);
        const Watch watch;
        for (const auto& one : statements) steps_[i].step(one);
        const auto seconds = watch.Passed().processor;
        database.Script(steps_[i].behind);
        rounds[i].push_back(seconds * 1e9 / static_cast<double>(statements.size()));
      }
    }
    std::vector<double> costs;
    costs.reserve(rounds.size());
    for (auto& one : rounds) costs.push_back(Quartile(std::move(one)));
    return costs;
  }

 private:
  struct Turn {
    Step step;
    const char* before;
    const char* behind;
  };

  std::vector<Turn> steps_;
};

/// All the statements with all that running them takes, prepared once for each text.
class Workload {
 public:
  Workload(const std::string& file, const std::vector<RecordedStatement>& statements)
      : database_(file, SQLITE_OPEN_READWRITE, kNoWait), connection_(file, "centro"), cache_(1024) {
    connection_.Open();
    for (const auto& [text, rows] : statements)
      if (text.starts_with("SELECT")) Add(text);
  }

  StatementCost Measure() {
    NoEngine none;
    std::vector<Recordset> recordsets;
    for (const auto& one : statements_)
      recordsets.push_back(one.prepared->Run(one.values, kNoWait));
    std::size_t next = 0;
    std::size_t expected = 0;
    std::size_t found = 0;
    Steps steps;
    const auto alone = steps.Add(RunRaw);
    const auto inside = steps.Add(RunRaw, "BEGIN", "COMMIT");
    const auto run =
        steps.Add([](const Piecewise& one) { one.prepared->Run(one.values, kNoWait); });
    const auto joining =
        steps.Add([](const Piecewise& one) { sink = static_cast<std::int64_t>(Join(one).size()); });
    const auto connection = steps.Add([&](const Piecewise& one) { none.Execute(one.text); });
    const auto finding = steps.Add([&](const Piecewise& one) {
      ++found;
      if (cache_.Following(one.text, values_) != nullptr) {
        ++expected;
      } else {
        lifter_.Lift(one.text);
        cache_.Find(lifter_.Text());
      }
    });
    const auto lifting = steps.Add([&](const Piecewise& one) { sink = lifter_.Lift(one.text); });
    const auto lookUp =
        steps.Add([&](const Piecewise& one) { sink = cache_.Find(one.lifted) != nullptr; });
    const auto columns = steps.Add([&](const Piecewise&) {
      auto& rows = recordsets[next++ % recordsets.size()];
      if (rows.RecordCount() != 0) ReadColumns(rows);
    });
    const auto whole = steps.Add([&](const Piecewise& one) { connection_.Execute(one.text); });
    const auto costs = steps.Measure(statements_, database_);
    StatementCost cost;
    cost.statements = statements_.size();
    // In one transaction the file is locked once.
    cost.engine = costs[inside];
    cost.fileLock = costs[alone] - costs[inside];
    cost.rows = costs[run] - costs[alone];
    cost.joining = costs[joining];
    cost.connection = costs[connection];
    cost.finding = costs[finding];
    cost.expected = 100 * static_cast<double>(expected) / static_cast<double>(found);
    cost.lifting = costs[lifting];
    cost.lookUp = costs[lookUp];
    cost.columns = costs[columns];
    cost.whole = costs[whole];
    return cost;
  }

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  void Add(const std::string& text) {
    if (!lifter_.Lift(text)) return;
    const auto& lifted = lifter_.Text();
    Piecewise one{text, lifted, Split(lifted), lifter_.Values()};
    if (one.pieces.size() != one.values.size() + 1) return;
    one.prepared = cache_.Find(lifted);
    if (one.prepared == nullptr) {
      const auto engineText = sqltext::FlattenJoins(sqltext::RewriteConcatenation(lifted));
      one.prepared = &cache_.Add(lifter_.Shape(),
                                 sqlite::PreparedStatement(database_.Handle(), engineText, true));
      sqlite3_stmt* raw = nullptr;
      sqlite3_prepare_v3(database_.Handle(), engineText.c_str(), -1, SQLITE_PREPARE_PERSISTENT,
                         &raw, nullptr);
      raws_[lifted].reset(raw);
    }
    one.raw = raws_[lifted].get();
    statements_.push_back(std::move(one));
  }

  sqlite::Database database_;
  sqlite::SqliteConnection connection_;
  sqlite::StatementLifter lifter_;
  std::vector<std::int64_t> values_;
  sqlite::StatementCache cache_;
  std::unordered_map<std::string, std::unique_ptr<sqlite3_stmt, Finalizer>> raws_;
  std::vector<Piecewise> statements_;
};

}  // namespace

StatementCost MeasureStatements(const std::string& file,
                                const std::vector<RecordedStatement>& statements) {
  return Workload(file, statements).Measure();
}

bool Print(const StatementCost& cost) {
  std::printf("| One of %zu SELECTs | ns | Of the statement's |\n|---|--:|--:|\n", cost.statements);
  const auto line = [&](const char* what, double nanoseconds) {
    std::printf("| %s | %.0f | %.2f |\n", what, nanoseconds, nanoseconds / cost.engine);
  };
  line("The statement itself: bind, step, read the columns, reset", cost.engine);
  line("Locking the file and freeing it", cost.fileLock);
  line("Joining the text", cost.joining);
  line("Connection: open, trace, observer", cost.connection);
  line("Finding the prepared statement", cost.finding);
  line("Making the recordset", cost.rows);
  line("Reading every column by its name", cost.columns);
  const auto within = cost.Module() <= cost.engine;
  line(within ? "**The module's share**, at most 1.00"
              : "**The module's share**, at most 1.00 EXCEEDED",
       cost.Module());
  line("Measured together: executed, from the text to the recordset", cost.whole);
  std::printf(
      "\n%.1f of 100 are found as what followed the statement before it last time; for the others "
      "the numbers\nare lifted out of the text, %.0f ns, and the rest is looked up, %.0f ns.\n",
      cost.expected, cost.lifting, cost.lookUp);
  return within;
}

}  // namespace quorvane::bench

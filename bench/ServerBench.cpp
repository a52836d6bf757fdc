#include "bench/ServerBench.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>

#include "adapters/odbc/Waiting.h"
#include "bench/PqReplay.h"
#include "bench/ScreenPlay.h"
#include "bench/ServerSchool.h"
#include "tests/support/TcpProxy.h"

namespace quorvane::bench {
namespace {

// Schools, module and replay take turns, so that what else the machine does meets all of them.
constexpr std::size_t kRounds = 4;
constexpr std::size_t kRunsOfRound = 3;

using Schools = std::vector<std::unique_ptr<ServerSchool>>;

Schools MakeSchools(const std::string& server, const std::string& folder,
                    const std::vector<int>& sizes) {
  Schools schools;
  for (const auto students : sizes) {
    std::fprintf(stderr, "Escuela de %d alumnos en el servidor...\n", students);
    schools.push_back(std::make_unique<ServerSchool>(server, BenchSchool(folder, students)));
  }
  return schools;
}

struct Walls {
  std::vector<double> module;
  std::vector<double> plain;
  std::vector<double> desktop;

  /// The least of each: others' work only ever adds to it, and the server's can't be left out.
  [[nodiscard]] Pair Figures() const {
    return {*std::min_element(module.begin(), module.end()),
            *std::min_element(plain.begin(), plain.end()),
            *std::min_element(desktop.begin(), desktop.end())};
  }
};

void Append(std::vector<double>& all, const std::vector<double>& more) {
  all.insert(all.end(), more.begin(), more.end());
}

Pair Sum(const Pair& one, const Pair& other) {
  return {one.module + other.module, one.plain + other.plain, one.desktop + other.desktop};
}

/// On one school: the register's purges, opening, saving.
class Side {
 public:
  explicit Side(SchoolAddress school) : school_(std::move(school)) {}

  void Round(std::size_t screen) {
    const auto play = PlayScreen(screen, school_, kRunsOfRound);
    Append(purges_.module, play.purges);
    Append(opens_.module, play.opens);
    Append(saves_.module, play.saves);
    const auto painted = PlayPainted(screen);
    Append(purges_.desktop, painted.purges);
    Append(opens_.desktop, painted.opens);
    Append(saves_.desktop, painted.saves);
    for (std::size_t run = 0; run < kRunsOfRound; ++run) {
      if (!play.purging.empty()) purges_.plain.push_back(Replay(play.purging));
      // What the replay of an opening writes, that of a saving gives back.
      opens_.plain.push_back(Replay(play.opening));
      saves_.plain.push_back(Replay(play.saving));
    }
  }

  [[nodiscard]] bool HasPurges() const { return !purges_.module.empty(); }
  [[nodiscard]] Pair Purges() const { return purges_.Figures(); }
  [[nodiscard]] Pair Opens() const { return opens_.Figures(); }
  [[nodiscard]] Pair Saves() const { return saves_.Figures(); }

 private:
  /// As a program with windows has it: its thread paints while a statement takes longer than a
  /// moment, and another thread waits for the server.
  [[nodiscard]] ScreenPlay PlayPainted(std::size_t screen) const {
    odbc::WhileWaiting([] { return false; });
    auto play = PlayScreen(screen, school_, kRunsOfRound);
    odbc::WhileWaiting({});
    return play;
  }

  [[nodiscard]] double Replay(const std::vector<RecordedStatement>& statements) const {
    return ReplayWithPq(school_.Text(), statements).wall;
  }

  SchoolAddress school_;
  Walls purges_, opens_, saves_;
};

/// Once through a proxy that lets a round trip take so much longer; it counts them, too.
void MeasureFar(std::size_t screen, const ServerSchool& school, int delay, ServerRow& open,
                ServerRow& save) {
  const test::TcpProxy proxy(school.Port(), std::chrono::microseconds(delay * 1000 / 2));
  const auto far = school.Through(proxy.Port());
  const auto play = PlayScreen(screen, far, 0, [&] { return proxy.Bursts(); });
  open.statements = play.purging.size() + play.opening.size();
  open.trips = play.openCount;
  save.statements = play.saving.size();
  save.trips = play.saveCount;
  const auto purges = play.purging.empty()
                          ? Pair{}
                          : Pair{play.purges.front(), ReplayWithPq(far.Text(), play.purging).wall};
  open.far.push_back({purges.module + play.opens.front(),
                      purges.plain + ReplayWithPq(far.Text(), play.opening).wall});
  save.far.push_back({play.saves.front(), ReplayWithPq(far.Text(), play.saving).wall});
}

}  // namespace

const std::vector<int>& Delays() {
  static const std::vector<int> delays = {0, 1, 10};
  return delays;
}

std::vector<ServerRow> MeasureServer(const std::string& server, const std::string& folder,
                                     const std::vector<int>& sizes) {
  const auto schools = MakeSchools(server, folder, sizes);
  std::vector<ServerRow> rows;
  for (std::size_t screen = 0; screen < ScreenNames().size(); ++screen) {
    const auto& name = ScreenNames()[screen];
    std::fprintf(stderr, "%s...\n", name.c_str());
    std::vector<Side> sides;
    for (const auto& school : schools) sides.emplace_back(school->Address());
    // The first save of the register also inserts the rows of the teachers.
    for (const auto& school : schools) PlayScreen(screen, school->Address(), 0);
    for (std::size_t round = 0; round < kRounds; ++round)
      for (auto& side : sides) side.Round(screen);
    ServerRow purge{name + ": the two purges of an opening", false, false};
    ServerRow whole{name + ": open, with them", false, false};
    ServerRow open{name + ": open", true};
    ServerRow save{name + ": save"};
    for (const auto& side : sides) {
      if (side.HasPurges()) {
        purge.schools.push_back(side.Purges());
        whole.schools.push_back(Sum(side.Purges(), side.Opens()));
      }
      open.schools.push_back(side.Opens());
      save.schools.push_back(side.Saves());
    }
    for (const auto delay : Delays()) MeasureFar(screen, *schools.front(), delay, open, save);
    for (auto* const row : {&purge, &whole})
      if (!row->schools.empty()) rows.push_back(std::move(*row));
    rows.push_back(std::move(open));
    rows.push_back(std::move(save));
  }
  return rows;
}

}  // namespace quorvane::bench

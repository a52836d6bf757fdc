#include "bench/GradesBench.h"

#include <string>

#include "bench/GradesPlayer.h"
#include "bench/Replay.h"

namespace quorvane::bench {
namespace {

// The module and the replays take turns, so that what else the machine does meets all of them.
constexpr std::size_t kRounds = 11;
constexpr std::size_t kRunsOfRound = 3;
constexpr double kMostOpening = 0.5;
constexpr double kMostSaving = 1.1;

std::vector<Row> MeasureFlow(const SchoolAddress& school, const Flow& flow, int students) {
  const auto& libraries = Libraries();
  std::vector<RecordedStatement> opening, saving;
  std::vector<Time> opens, moves, lists, saves;
  std::vector<std::vector<Time>> replayedOpens(libraries.size()), replayedSaves(libraries.size());
  for (std::size_t round = 0; round < kRounds; ++round) {
    const auto times = GradesPlayer(school, flow, kRunsOfRound).Play();
    opening = times.front().opening;
    saving = times.front().saving;
    for (std::size_t run = 1; run < times.size(); ++run) {
      opens.push_back(times[run].open);
      moves.push_back(times[run].move);
      lists.push_back(times[run].list);
      saves.push_back(times[run].save);
      for (std::size_t i = 0; i < libraries.size(); ++i) {
        // What the replay of an opening writes, that of a saving gives back.
        replayedOpens[i].push_back(libraries[i].replay(school.Text(), opening));
        replayedSaves[i].push_back(libraries[i].replay(school.Text(), saving));
      }
    }
  }
  const std::string form = flow.stepTwo;
  Row open{form + ": open", students, opening, Quartile(opens), {}, kMostOpening, true};
  Row save{form + ": save", students, saving, Quartile(saves), {}, kMostSaving};
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    open.libraries.push_back(Quartile(replayedOpens[i]));
    save.libraries.push_back(Quartile(replayedSaves[i]));
  }
  return {std::move(open),
          {form + ": next entry", students, {}, Quartile(moves)},
          {form + ": list of a cell", students, {}, Quartile(lists)},
          std::move(save)};
}

}  // namespace

std::vector<Row> MeasureGrades(const BenchSchool& school, int students) {
  std::vector<Row> rows;
  for (const auto& flow : Flows())
    for (auto& row : MeasureFlow(SchoolAddress::File(school.Path()), flow, students))
      rows.push_back(std::move(row));
  return rows;
}

bool PlayAlone(const BenchSchool& school, const std::string& form, std::size_t runs) {
  for (const auto& flow : Flows()) {
    if (form != flow.stepTwo) continue;
    GradesPlayer(SchoolAddress::File(school.Path()), flow, runs).Play();
    return true;
  }
  return false;
}

}  // namespace quorvane::bench

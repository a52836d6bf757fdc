#include "bench/RegisterBench.h"

#include "bench/RegisterPlayer.h"
#include "bench/Replay.h"

namespace quorvane::bench {
namespace {

constexpr int kRuns = 7;

}  // namespace

std::vector<Row> MeasureRegister(const BenchSchool& school, int students) {
  const auto address = SchoolAddress::File(school.Path());
  // The first save also inserts the rows of the teachers; the runs after it are alike.
  PlayRegister(address, false);
  const auto recorded = PlayRegister(address, true);
  const auto& libraries = Libraries();
  std::vector<Time> purges, loads, saves;
  std::vector<std::vector<Time>> replayedLoads(libraries.size()), replayedSaves(libraries.size());
  for (int run = 0; run < kRuns; ++run) {
    const auto times = PlayRegister(address, false);
    purges.push_back(times.purge);
    loads.push_back(times.load);
    saves.push_back(times.save);
    for (std::size_t i = 0; i < libraries.size(); ++i) {
      replayedLoads[i].push_back(libraries[i].replay(address.Text(), recorded.loading));
      replayedSaves[i].push_back(libraries[i].replay(address.Text(), recorded.saving));
    }
  }
  Row loaded{"Register: open", students, recorded.loading, Quartile(loads), {}, 0.5, true};
  Row saved{"Register: save", students, recorded.saving, Quartile(saves), {}, 1.1};
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    loaded.libraries.push_back(Quartile(replayedLoads[i]));
    saved.libraries.push_back(Quartile(replayedSaves[i]));
  }
  return {std::move(loaded),
          {"Register: the two purges of an opening", students, {}, Quartile(purges)},
          std::move(saved)};
}

}  // namespace quorvane::bench

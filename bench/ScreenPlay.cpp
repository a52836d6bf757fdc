#include "bench/ScreenPlay.h"

#include "bench/RegisterPlayer.h"

namespace quorvane::bench {
namespace {

ScreenPlay Register(const SchoolAddress& school, std::size_t runs, const Meter& meter) {
  const auto first = PlayRegister(school, true, meter);
  ScreenPlay play{first.purging, first.loading, first.saving, first.loadCount, first.saveCount};
  const auto keep = [&](const RegisterTimes& times) {
    play.purges.push_back(times.purge.wall);
    play.opens.push_back(times.load.wall);
    play.saves.push_back(times.save.wall);
  };
  if (runs == 0) keep(first);
  for (std::size_t run = 0; run < runs; ++run) keep(PlayRegister(school, false));
  return play;
}

ScreenPlay Grades(const Flow& flow, const SchoolAddress& school, std::size_t runs,
                  const Meter& meter) {
  const auto all = GradesPlayer(school, flow, runs, meter).Play();
  const auto& first = all.front();
  ScreenPlay play{{}, first.opening, first.saving, first.openCount, first.saveCount};
  for (std::size_t run = runs == 0 ? 0 : 1; run < all.size(); ++run) {
    play.opens.push_back(all[run].open.wall);
    play.saves.push_back(all[run].save.wall);
  }
  return play;
}

}  // namespace

const std::vector<std::string>& ScreenNames() {
  static const auto names = [] {
    std::vector<std::string> all = {"Register"};
    for (const auto& flow : Flows()) all.emplace_back(flow.stepTwo);
    return all;
  }();
  return names;
}

ScreenPlay PlayScreen(std::size_t screen, const SchoolAddress& school, std::size_t runs,
                      const Meter& meter) {
  return screen == 0 ? Register(school, runs, meter)
                     : Grades(Flows()[screen - 1], school, runs, meter);
}

}  // namespace quorvane::bench

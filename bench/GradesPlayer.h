#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

#include "apps/escuela/SchoolAddress.h"
#include "bench/Measure.h"
#include "bench/RecordedStatement.h"
#include "bench/Session.h"
#include "platform/controls/Form.h"

namespace quorvane::bench {

/// A flow of grade entry: its node, its two forms, and what else step one asks for.
struct Flow {
  std::uint8_t node;
  const char* stepOne;
  const char* stepTwo;
  int evaluation;
  const char* extra;  ///< combo box of step one, or null
  int extraData;
};

/// Those of the eight grade forms, in a `BenchSchool`.
const std::vector<Flow>& Flows();

/// Tells how much there has been so far of what is counted beside the time.
using Meter = std::function<std::size_t()>;

/// One opening of a grade form and its saving.
struct GradesTimes {
  Time open;
  Time move;
  Time list;
  Time save;
  std::size_t openCount = 0;  ///< of the meter
  std::size_t saveCount = 0;
  std::vector<RecordedStatement> opening{};  ///< of the first alone
  std::vector<RecordedStatement> saving{};
};

/// A user who opens and saves the same form several times, as he does section by section. The first
/// time isn't measured, but its statements are recorded.
class GradesPlayer {
 public:
  GradesPlayer(const SchoolAddress& school, const Flow& flow, std::size_t runs, Meter meter = {});

  /// Of `runs` + 1 openings.
  std::vector<GradesTimes> Play();

 private:
  void Open(Form& stepOne);
  void Use(Form& stepTwo);
  [[nodiscard]] bool First() const { return times_.size() == 1; }
  [[nodiscard]] std::size_t Count() const { return meter_ ? meter_() : 0; }

  Session session_;
  const Flow& flow_;
  std::size_t runs_;
  Meter meter_;
  Watch opening_;
  std::size_t counted_ = 0;
  std::vector<GradesTimes> times_;
};

}  // namespace quorvane::bench

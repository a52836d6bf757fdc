#include "bench/RegisterBench.h"

#include <string>

#include "bench/Replay.h"
#include "bench/Session.h"
#include "frame/cConstCol.h"
#include "platform/controls/FormInstance.h"
#include "register/frmAlumnoPendiente.h"
#include "register/frmPendientes.h"

namespace quorvane::bench {
namespace {

constexpr std::uint8_t kNode = 123;
constexpr int kRuns = 7;
/// The purges are the first two statements of a load in a school without orphans.
constexpr std::ptrdiff_t kPurges = 2;

void Choose(ComboBox& combo, int data) {
  for (int i = 0; i < combo.ListCount(); ++i)
    if (combo.ItemData(i) == data) return combo.ListIndex(i);
}

/// Marks all as the dialogs do when the user moves every subject.
void ChangeAll(const frmAlumnoPendiente& form) {
  const cConstCol estados;
  for (const auto& alumno : form.colAlumnos) {
    alumno->Estado = estados.Modificado;
    for (const auto& materia : alumno->colMateria) materia->Estado = estados.Modificado;
  }
}

struct Times {
  Time load;
  Time save;
  std::vector<RecordedStatement> loading;
  std::vector<RecordedStatement> saving;
};

Times OneRun(const std::string& path, bool record) {
  Times times;
  Session session(path);
  session.Screen().On("frmPendientes", [&](Form& form) {
    auto& pendientes = dynamic_cast<frmPendientes&>(form);
    Choose(pendientes.cboTEnsenanza, BenchSchool::kKind);
    Choose(pendientes.cboCurso, BenchSchool::kCourse);
    Choose(pendientes.cboSeccion, BenchSchool::kSection);
    if (record) session.Centro().Record();
    const Watch watch;
    session.Screen().On("frmAlumnoPendiente", [&](Form& inner) {
      times.load = watch.Passed();
      auto& editor = dynamic_cast<frmAlumnoPendiente&>(inner);
      if (record) times.loading = session.Centro().Recorded();
      ChangeAll(editor);
      if (record) session.Centro().Record();
      const Watch saving;
      editor.cmdAceptar.Press();
      times.save = saving.Passed();
      if (record) times.saving = session.Centro().Recorded();
    });
    pendientes.cmdAceptar.Press();
  });
  session.Open(kNode);
  return times;
}

}  // namespace

std::vector<Row> MeasureRegister(const BenchSchool& school, int students) {
  const auto& path = school.Path();
  // The first save also inserts the rows of the teachers; the runs after it are alike.
  OneRun(path, false);
  const auto recorded = OneRun(path, true);
  const std::vector<RecordedStatement> purges(recorded.loading.begin(),
                                              recorded.loading.begin() + kPurges);
  const std::vector<RecordedStatement> load(recorded.loading.begin() + kPurges,
                                            recorded.loading.end());
  const auto& libraries = Libraries();
  std::vector<Time> loads, saves, purging;
  std::vector<std::vector<Time>> replayedLoads(libraries.size()), replayedSaves(libraries.size());
  for (int run = 0; run < kRuns; ++run) {
    purging.push_back(ReplayOnConnection(path, purges));
    const auto times = OneRun(path, false);
    loads.push_back(times.load);
    saves.push_back(times.save);
    for (std::size_t i = 0; i < libraries.size(); ++i) {
      replayedLoads[i].push_back(libraries[i].replay(path, load));
      replayedSaves[i].push_back(libraries[i].replay(path, recorded.saving));
    }
  }
  const auto whole = Quartile(loads);
  const auto purge = Quartile(purging);
  const Time rest{whole.processor - purge.processor, whole.wall - purge.wall};
  Row loaded{"Register: open", students, load, rest, {}, 0.5, true};
  Row saved{"Register: save", students, recorded.saving, Quartile(saves), {}, 1.1};
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    loaded.libraries.push_back(Quartile(replayedLoads[i]));
    saved.libraries.push_back(Quartile(replayedSaves[i]));
  }
  return {std::move(loaded),
          {"Register: the two purges of an opening", students, {}, purge},
          std::move(saved)};
}

}  // namespace quorvane::bench

#include "bench/RegisterBench.h"

#include <string>

#include "bench/PlainReplay.h"
#include "bench/Session.h"
#include "frame/cConstCol.h"
#include "platform/FormInstance.h"
#include "register/frmAlumnoPendiente.h"
#include "register/frmPendientes.h"

namespace quorvane::bench {
namespace {

constexpr std::uint8_t kNode = 123;
constexpr int kRuns = 5;
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
  double load = 0;
  double save = 0;
  std::vector<std::string> loading;
  std::vector<std::string> saving;
};

Times OneRun(const std::string& path, bool record) {
  Times times;
  Session session(path);
  session.Screen().On("frmPendientes", [&](Form& form) {
    auto& pendientes = dynamic_cast<frmPendientes&>(form);
    Choose(pendientes.cboTEnsenanza, BenchSchool::kKind);
    Choose(pendientes.cboCurso, BenchSchool::kCourse);
    Choose(pendientes.cboSeccion, BenchSchool::kSection);
    if (record) session.Record();
    const Watch watch;
    session.Screen().On("frmAlumnoPendiente", [&](Form& inner) {
      times.load = watch.Seconds();
      auto& editor = dynamic_cast<frmAlumnoPendiente&>(inner);
      if (record) times.loading = session.Recorded();
      ChangeAll(editor);
      if (record) session.Record();
      const Watch saving;
      editor.cmdAceptar.Press();
      times.save = saving.Seconds();
      if (record) times.saving = session.Recorded();
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
  const std::vector<std::string> purges(recorded.loading.begin(),
                                        recorded.loading.begin() + kPurges);
  const std::vector<std::string> load(recorded.loading.begin() + kPurges, recorded.loading.end());
  std::vector<double> loads, saves, purging, plainLoads, plainSaves;
  for (int run = 0; run < kRuns; ++run) {
    const auto purge = PlainReplay::Run(path, purges);
    const auto times = OneRun(path, false);
    purging.push_back(purge);
    loads.push_back(times.load - purge);
    saves.push_back(times.save);
    plainLoads.push_back(PlainReplay::Run(path, load));
    plainSaves.push_back(PlainReplay::Run(path, recorded.saving));
  }
  return {{"Register: load, without purges", students, load.size(), Median(loads),
           Median(plainLoads), 0.5},
          {"Register: the two purges", students, purges.size(), Median(purging), 0, 0},
          {"Register: save, every subject changed", students, recorded.saving.size(), Median(saves),
           Median(plainSaves), 0}};
}

}  // namespace quorvane::bench

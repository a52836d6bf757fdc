#include "bench/RegisterPlayer.h"

#include <cstdint>

#include "bench/BenchSchool.h"
#include "bench/Choose.h"
#include "bench/Session.h"
#include "frame/cConstCol.h"
#include "register/frmAlumnoPendiente.h"
#include "register/frmPendientes.h"

namespace quorvane::bench {
namespace {

constexpr std::uint8_t kNode = 123;
/// The first statements of an opening in a school without orphans.
constexpr std::ptrdiff_t kPurges = 2;

/// Marks all as the dialogs do when the user moves every subject.
void ChangeAll(const frmAlumnoPendiente& form) {
  const cConstCol estados;
  for (const auto& alumno : form.colAlumnos) {
    alumno->Estado = estados.Modificado;
    for (const auto& materia : alumno->colMateria) materia->Estado = estados.Modificado;
  }
}

}  // namespace

RegisterTimes PlayRegister(const SchoolAddress& school, bool record, const Meter& meter) {
  RegisterTimes times;
  const auto count = [&] { return meter ? meter() : 0; };
  Session session(school);
  session.Screen().On("frmPendientes", [&](Form& form) {
    Choose(form, "cboTEnsenanza", BenchSchool::kKind);
    Choose(form, "cboCurso", BenchSchool::kCourse);
    Choose(form, "cboSeccion", BenchSchool::kSection);
    if (record) session.Executed().Record();
    session.Executed().TimeNext(kPurges);
    const auto atLoad = count();
    const Watch loading;
    session.Screen().On("frmAlumnoPendiente", [&](Form& inner) {
      const auto whole = loading.Passed();
      times.purge = session.Executed().Taken();
      times.load = {whole.processor - times.purge.processor, whole.wall - times.purge.wall};
      times.loadCount = count() - atLoad;
      if (record) {
        times.loading = session.Executed().Recorded();
        const auto end = times.loading.begin() + kPurges;
        times.purging.assign(times.loading.begin(), end);
        times.loading.erase(times.loading.begin(), end);
        session.Executed().Record();
      }
      auto& editor = dynamic_cast<frmAlumnoPendiente&>(inner);
      ChangeAll(editor);
      const auto atSave = count();
      const Watch saving;
      editor.cmdAceptar.Press();
      times.save = saving.Passed();
      times.saveCount = count() - atSave;
      if (record) times.saving = session.Executed().Recorded();
    });
    dynamic_cast<frmPendientes&>(form).cmdAceptar.Press();
  });
  session.Open(kNode);
  return times;
}

}  // namespace quorvane::bench

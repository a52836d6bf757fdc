#include "bench/GradesPlayer.h"

#include <string>
#include <utility>

#include "bench/BenchSchool.h"
#include "bench/Choose.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Retivo.h"

namespace quorvane::bench {
namespace {

constexpr int kOrdinary = BenchSchool::kEvaluation;
constexpr int kFinal = BenchSchool::kFinalEvaluation;

void ChooseAll(const Form& form, const Flow& flow) {
  Choose(form, "cboTipoEnsenanza", BenchSchool::kKind);
  Choose(form, "cboCursos", BenchSchool::kCourse);
  Choose(form, "cboSecciones", BenchSchool::kSection);
  Choose(form, "cboEvaluaciones", flow.evaluation);
  if (flow.extra != nullptr) Choose(form, flow.extra, flow.extraData);
}

}  // namespace

const std::vector<Flow>& Flows() {
  static const std::vector<Flow> flows = {
      {124, "frmNotaManual1", "frmNotaManual", kOrdinary, nullptr, 0},
      {125, "frmNotaMateria1", "frmNotaMateria", kOrdinary, nullptr, 0},
      {127, "frmNotaSeccionAlumno1", "frmNotaSeccionAlumno", kOrdinary, "cboMateria",
       BenchSchool::kSubject},
      {126, "frmNotaSeccionMateria1", "frmNotaSeccionMateria", kOrdinary, "cboAlumno",
       BenchSchool::kStudent},
      {124, "frmNotaManual1", "frmNotaManualFinal", kFinal, nullptr, 0},
      {125, "frmNotaMateria1", "frmNotaMateriaFinal", kFinal, nullptr, 0},
      {127, "frmNotaSeccionAlumno1", "frmNotaSeccionAlumnoFinal", kFinal, "cboMateria",
       BenchSchool::kSubject},
      {126, "frmNotaSeccionMateria1", "frmNotaSeccionMateriaFinal", kFinal, "cboAlumno",
       BenchSchool::kStudent},
  };
  return flows;
}

GradesPlayer::GradesPlayer(const SchoolAddress& school, const Flow& flow, std::size_t runs,
                           Meter meter)
    : session_(school), flow_(flow), runs_(runs), meter_(std::move(meter)) {}

std::vector<GradesTimes> GradesPlayer::Play() {
  session_.Screen().OnLoading = [this](const Form& form) {
    if (form.Name() != flow_.stepTwo) return;
    if (First()) session_.Executed().Record();
    counted_ = Count();
    opening_ = Watch();
  };
  session_.Screen().On(flow_.stepOne, [this](Form& stepOne) { Open(stepOne); });
  session_.Open(flow_.node);
  return times_;
}

void GradesPlayer::Open(Form& stepOne) {
  if (times_.size() > runs_) return stepOne.CloseByUser();
  times_.emplace_back();
  ChooseAll(stepOne, flow_);
  session_.Screen().On(flow_.stepTwo, [this](Form& stepTwo) {
    times_.back().open = opening_.Passed();
    times_.back().openCount = Count() - counted_;
    if (First()) times_.back().opening = session_.Executed().Recorded();
    Use(stepTwo);
  });
  Control<CommandButton>(stepOne, "cmdNotaManual1(0)").Press();
}

void GradesPlayer::Use(Form& stepTwo) {
  const Watch moving;
  Control<CommandButton>(stepTwo, "cmdSiguiente").Press();
  times_.back().move = moving.Passed();
  const Watch listing;
  Control<Retivo>(stepTwo, "rtvNotasAlumno").BeginEdit(1, 1);
  times_.back().list = listing.Passed();
  if (First()) session_.Executed().Record();
  counted_ = Count();
  const Watch saving;
  session_.Screen().On(flow_.stepOne, [this, saving](Form& stepOne) {
    times_.back().save = saving.Passed();
    times_.back().saveCount = Count() - counted_;
    if (First()) times_.back().saving = session_.Executed().Recorded();
    Open(stepOne);
  });
  Control<CommandButton>(stepTwo, "cmdAceptar").Press();
}

}  // namespace quorvane::bench

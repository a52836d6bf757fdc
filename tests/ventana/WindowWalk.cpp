#include "tests/ventana/WindowWalk.h"

#include <QApplication>
#include <algorithm>
#include <array>
#include <string_view>

#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/LockList.h"
#include "frame/cAsignarDatos.h"
#include "platform/FormInstances.h"
#include "tests/walk/Disturbance.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

constexpr int kRegisterNode = 123;
constexpr int kLastNode = 127;
constexpr std::uint64_t kGesturesOfSchool = 1500;
constexpr std::size_t kGesturesOfScreen = 400;

constexpr std::array<std::string_view, 19> kForms{"frmPendientes",
                                                  "frmAlumnoPendiente",
                                                  "frmAlumnos",
                                                  "frmAlumnoMateria",
                                                  "frmMateriaPend",
                                                  "frmMateriaEv",
                                                  "frmPropMatProf",
                                                  "frmNotaManual1",
                                                  "frmNotaManual",
                                                  "frmNotaManualFinal",
                                                  "frmNotaMateria1",
                                                  "frmNotaMateria",
                                                  "frmNotaMateriaFinal",
                                                  "frmNotaSeccionAlumno1",
                                                  "frmNotaSeccionAlumno",
                                                  "frmNotaSeccionAlumnoFinal",
                                                  "frmNotaSeccionMateria1",
                                                  "frmNotaSeccionMateria",
                                                  "frmNotaSeccionMateriaFinal"};

/// What a form asks of a table or recordset that doesn't have it, on a subject of another kind or
/// one that is gone: told of every school.
bool IsOfTheSubjects(const RuntimeError& error) {
  const auto& text = error.Description();
  return error.Is(ErrorNumber::UnknownField) ||
         text.find("CodAlumno_MateriaDetalles") != std::string::npos ||
         text.find("AlumnoPte_MateriaDetalles") != std::string::npos;
}

}  // namespace

WindowWalk::WindowWalk(const WalkOptions& options, History& history)
    : options_(options),
      random_(options.seed),
      history_(history),
      screen_(history),
      user_(random_, screen_, history),
      host_(random_) {}

void WindowWalk::Run() {
  while (user_.Gestures() < options_.gestures) {
    if (user_.Gestures() >= nextSchool_) NewSchool();
    OpenScreen();
  }
  RequireAllForms();
}

void WindowWalk::NewSchool() {
  if (watch_ != nullptr) {
    saves_ += watch_->Grades().Saves();
    reopened_ += watch_->Registers().Reopened();
  }
  watch_.reset();
  sample_ = random_.Chance(70);
  school_ =
      sample_ ? std::make_unique<School>(School::Sample{}) : std::make_unique<School>(random_);
  school_->Executing = [this](const std::string& statement) {
    lastStatement_ = statement;
    user_.Interrupt();
  };
  watch_ = std::make_unique<ScreenWatch>(*school_, screen_);
  screen_.UseOnlooker(*watch_);
  user_.UseWatch(*watch_);
  nextSchool_ = user_.Gestures() + kGesturesOfSchool;
  history_.Add("escuela " + std::to_string(++schools_) + (sample_ ? " de muestra" : ""));
}

void WindowWalk::OpenScreen() {
  const auto disturbed = random_.Chance(15);
  if (disturbed) school_->Disturb(random_);
  const auto user = random_.Chance(70) ? 1 : 1 + static_cast<int>(random_.Below(6));
  history_.Add(host_.SignIn(
      {school_->Centro(), school_->Borrado(), school_->Entrada(), school_->SqlServer()}, user));
  const auto node = kRegisterNode + static_cast<int>(random_.Below(kLastNode - kRegisterNode + 1));
  history_.Add("nodo " + std::to_string(node));
  watch_->Begin(disturbed);
  ++screens_;
  const auto left = options_.gestures - user_.Gestures();
  user_.PlayFor(std::min<std::uint64_t>(left, 50 + random_.Below(kGesturesOfScreen)));
  try {
    cAsignarDatos().ActivarFormulario(static_cast<std::uint8_t>(node));
    watch_->End();
  } catch (const RuntimeError& error) {
    Recover(node, error);
  }
  if (QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr)
    throw Violation("La pantalla se ha ido y queda una ventana");
  // What was typed ahead reaches nobody.
  QCoreApplication::processEvents();
}

bool WindowWalk::Explains(const RuntimeError& error) const {
  if (IsOfTheSubjects(error) || error.Is(ErrorNumber::MissingResource)) return true;
  if (sample_) return false;
  // The tutor's grid has no column for such a kind of grade.
  if (error.Is(ErrorNumber::InvalidArrayIndex))
    return lastStatement_.starts_with("SELECT CodEspecificartipoMateria FROM TipoMateria");
  return error.Is(ErrorNumber::NoCurrentRecord) || error.Is(ErrorNumber::DuplicateKey);
}

void WindowWalk::Recover(int node, const RuntimeError& error) {
  const auto text =
      screen_.LastForm() + " " + std::to_string(error.Number()) + " " + error.Description();
  history_.Add("error " + text);
  if (!Explains(error)) throw Violation("Un error que la escuela no explica: " + text);
  ++errors_[text];
  FormInstances::DropAll();
  screen_.MousePointer(Pointer::Default);
  const auto known = watch_->Publications();
  LockList locks(school_->Unwatched());
  for (const auto& publication : locks.Read())
    if (publication.id < kLostPublication && !known.contains(std::to_string(publication.id)))
      locks.Remove(publication.id);
  watch_->Failed(node == kRegisterNode);
}

void WindowWalk::RequireAllForms() const {
  for (const auto form : kForms)
    if (!screen_.Shows().contains(std::string(form)))
      throw Violation("En " + std::to_string(user_.Gestures()) + " gestos nadie ha visto " +
                      std::string(form));
}

void WindowWalk::Report(std::ostream& out) const {
  out << user_.Gestures() << " gestos, " << screens_ << " pantallas, " << schools_
      << " escuelas, hasta " << screen_.Deepest() << " formularios uno sobre otro\n"
      << saves_ + watch_->Grades().Saves() << " veces se han grabado las notas que se mostraban, "
      << reopened_ + watch_->Registers().Reopened() << " se ha reabierto un registro grabado\n";
  for (const auto& [form, shows] : screen_.Shows()) out << "  " << form << ": " << shows << '\n';
  out << "Errores:\n";
  for (const auto& [error, times] : errors_) out << "  " << times << " veces " << error << '\n';
}

}  // namespace quorvane::test

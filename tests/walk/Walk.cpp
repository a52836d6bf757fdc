#include "tests/walk/Walk.h"

#include "apps/escuela/LockList.h"
#include "frame/cAsignarDatos.h"
#include "platform/controls/FormInstances.h"
#include "tests/walk/Disturbance.h"
#include "tests/walk/Violation.h"

namespace quorvane::test {
namespace {

constexpr int kRegisterNode = 123;
constexpr int kLastNode = 127;
constexpr std::uint64_t kGesturesOfSchool = 400;

void Activate(int node) { cAsignarDatos().ActivarFormulario(static_cast<std::uint8_t>(node)); }

}  // namespace

Walk::Walk(const WalkOptions& options, History& history)
    : options_(options),
      random_(options.seed),
      history_(history),
      user_(random_, history),
      host_(random_) {
  user_.Limit(options.gestures);
}

void Walk::Run() {
  while (user_.Gestures() < options_.gestures) {
    if (user_.Gestures() >= nextSchool_) NewSchool();
    OpenScreen();
  }
}

void Walk::NewSchool() {
  watch_.reset();
  school_ = place_ ? std::make_unique<School>(random_, *place_) : std::make_unique<School>(random_);
  if (ordered_) school_->OrderRows();
  school_->Executing = [this](const std::string& statement) { history_.Transcribe(statement); };
  watch_ = std::make_unique<Watch>(*school_);
  user_.UseOnlooker(*watch_);
  nextSchool_ = user_.Gestures() + kGesturesOfSchool;
  history_.Add("escuela " + std::to_string(++schools_));
}

int Walk::AnyUser() {
  constexpr std::size_t kUsers = 6;
  return static_cast<int>(1 + random_.Below(kUsers));
}

void Walk::OpenScreen() {
  if (random_.Chance(25)) school_->Disturb(random_);
  history_.Add(host_.SignIn(
      {school_->Centro(), school_->Borrado(), school_->Entrada(), school_->SqlServer()},
      AnyUser()));
  // Grade entry is the larger part of the module, and the register takes many gestures at a time.
  const auto node = kRegisterNode + static_cast<int>(random_.Below(kLastNode - kRegisterNode + 1));
  constexpr std::size_t kStatements = 250;
  const auto failure = random_.Chance(8) ? 1 + static_cast<int>(random_.Below(kStatements)) : 0;
  history_.Add("nodo " + std::to_string(node) +
               (failure == 0 ? "" : " fallo " + std::to_string(failure)));
  school_->FailStatement(failure);
  watch_->Begin();
  ++screens_;
  try {
    Activate(node);
    watch_->End();
  } catch (const RuntimeError& error) {
    Recover(node, error);
  }
  school_->FailStatement(0);
}

void Walk::Recover(int node, const RuntimeError& error) {
  history_.Note("error " + std::to_string(error.Number()) + " " + error.Description());
  history_.Transcribe("error " + std::to_string(error.Number()));
  ++errors_[user_.Shown().LastForm() + " " + std::to_string(error.Number()) + " " +
            error.Description()];
  FormInstances::DropAll();
  school_->FailStatement(0);
  RemoveLeftovers();
  watch_->Failed(node == kRegisterNode);
  OpenAllScreens();
}

void Walk::RemoveLeftovers() {
  const auto known = watch_->Publications();
  LockList locks(school_->Unwatched());
  for (const auto& publication : locks.Read())
    if (publication.id < kLostPublication && !known.contains(std::to_string(publication.id)))
      locks.Remove(publication.id);
}

void Walk::OpenAllScreens() {
  user_.OnlyCloses(true);
  for (int node = kRegisterNode; node <= kLastNode; ++node) {
    history_.Add("nodo " + std::to_string(node) + " tras el error");
    watch_->Begin();
    const auto before = user_.Gestures();
    try {
      Activate(node);
    } catch (const RuntimeError& error) {
      throw Violation("El nodo " + std::to_string(node) + " ya no se abre: " +
                      std::to_string(error.Number()) + " " + error.Description());
    }
    watch_->End();
    if (user_.Gestures() == before)
      throw Violation("El nodo " + std::to_string(node) + " no ha mostrado nada");
  }
  user_.OnlyCloses(false);
}

void Walk::Report(std::ostream& out) const {
  out << user_.Gestures() << " gestos, " << screens_ << " pantallas, " << schools_
      << " escuelas, hasta " << user_.Shown().Deepest() << " formularios uno sobre otro\n";
  for (const auto& [form, shows] : user_.Shown().Times())
    out << "  " << form << ": " << shows << '\n';
  out << "Errores:\n";
  for (const auto& [error, times] : errors_) out << "  " << times << " veces " << error << '\n';
}

}  // namespace quorvane::test

#include "tests/crowd/Member.h"

#include <algorithm>
#include <limits>
#include <thread>
#include <utility>

#include "apps/escuela/StandbyConnection.h"
#include "frame/cAsignarDatos.h"
#include "platform/controls/FormInstances.h"
#include "platform/text/AsciiCase.h"

namespace quorvane::test {
namespace {

constexpr int kRegisterNode = 123;
constexpr int kGradeNodes = 4;
constexpr auto kLongestSearch = std::chrono::seconds(60);
/// Subjects of some kinds can't be loaded by some forms, however many users there are.
constexpr const char* kMissingColumn = "CodAlumno_MateriaDetalles";

bool IsRegister(const Form& form) { return form.Name() == "frmAlumnoPendiente"; }

/// The forms of step two. Those of step one bear the same names with a 1 behind.
bool EntersGrades(const Form& form) {
  return form.Name().starts_with("frmNota") && !form.Name().ends_with("1");
}

/// What the engine tells of it: in a file by name, on a server by its state.
bool IsCollision(const std::string& text) {
  return text.starts_with("UNIQUE constraint failed") || text.starts_with("[23505] ");
}

bool IsMissingColumn(const std::string& text) {
  const auto told = text.starts_with("no such column: ") || text.starts_with("[42703] ");
  return told && AsciiLower(text).find(AsciiLower(kMissingColumn)) != std::string::npos;
}

/// Without what differs from one time to the other: the key that stands, and the driver's remark.
std::string Kind(const std::string& text) { return text.substr(0, text.find_first_of(";\n")); }

}  // namespace

Member::Member(int number, const CrowdOptions& options, FaultCount& faults, SchoolAddress school,
               const std::string& journal)
    : number_(number),
      fault_(number == 1 ? options.fault : Fault::None),
      faults_(faults),
      pause_(options.pause),
      isWrong_(options.fault != Fault::None),
      users_(options.users),
      school_(std::move(school)),
      journal_(journal),
      random_(options.seed * 1000 + static_cast<std::uint64_t>(number)),
      user_(random_, history_),
      host_(random_) {
  user_.UseOnlooker(*this);
  user_.Limit(std::numeric_limits<std::uint64_t>::max());
}

void Member::Play(std::chrono::seconds time) {
  auto open = OpenProgram();
  // Many who come at once wait at a server's door: the time counts from within.
  until_ = Clock::now() + time;
  latest_ = isWrong_ ? std::max(until_, Clock::now() + kLongestSearch) : until_;
  for (; !IsOver(); open = OpenProgram())
    if (open) UseProgram();
  figures_[kGestures] = static_cast<std::int64_t>(user_.Gestures());
  for (const auto& [name, count] : figures_.counts)
    journal_.Write(Journal::Kind::Figure, count, name);
  for (const auto& [error, times] : figures_.errors)
    journal_.Write(Journal::Kind::Figure, times, "error " + error);
}

bool Member::IsOver() const {
  const auto now = Clock::now();
  return now >= latest_ || (now >= until_ && (!isWrong_ || faults_.IsEnough()));
}

bool Member::OpenProgram() {
  const auto open = [this](const char* name) {
    return std::make_unique<CrowdConnection>(school_, name, number_, fault_, faults_, journal_,
                                             figures_);
  };
  centro_ = open("centro");
  borrado_ = std::make_unique<StandbyConnection>(open(""), "borrado");
  entrada_ = open("entrada");
  try {
    for (auto* const connection : {centro_.get(), entrada_.get()}) connection->Open();
  } catch (const RuntimeError& error) {
    Recover(error);
    return false;
  }
  return true;
}

void Member::UseProgram() {
  for (auto screens = 1 + random_.Below(8); screens > 0 && !IsOver(); --screens) OpenScreen();
}

void Member::OpenScreen() {
  const auto users = static_cast<std::size_t>(users_);
  const auto own = 1 + (number_ - 1) % users_;
  const auto user = random_.Chance(70) ? own : 1 + static_cast<int>(random_.Below(users));
  host_.SignIn({*centro_, *borrado_, *entrada_}, user);
  const auto node = random_.Chance(5)
                        ? kRegisterNode
                        : kRegisterNode + 1 + static_cast<int>(random_.Below(kGradeNodes));
  try {
    cAsignarDatos().ActivarFormulario(static_cast<std::uint8_t>(node));
  } catch (const RuntimeError& error) {
    Recover(error);
  }
}

void Member::CountError(const RuntimeError& error) {
  const auto text = error.Description();
  ++figures_.errors[std::to_string(error.Number()) + " " + Kind(text)];
  if (IsCollision(text))
    ++figures_[kCollisions];
  else if (error.Is(ErrorNumber::StatementFailed) && !IsMissingColumn(text))
    Busy();
}

void Member::Busy() {
  ++figures_[kBusy];
  if (fault_ == Fault::Wait) faults_.Add();
}

void Member::Recover(const RuntimeError& error) {
  CountError(error);
  FormInstances::DropAll();
  if (!centro_->IsOpen()) return;
  try {
    centro_->RemoveLeftovers();
  } catch (const RuntimeError& another) {
    CountError(another);
  }
}

void Member::Loading(Form& form) {
  if (IsRegister(form) || EntersGrades(form)) centro_->BeginForm(form.Name(), EntersGrades(form));
}

void Member::Opened(Form& form) {
  if (IsRegister(form)) ++figures_[kOpenings];
}

void Member::Settle() {
  if (pause_ > 0)
    std::this_thread::sleep_for(
        std::chrono::milliseconds(random_.Below(static_cast<std::size_t>(pause_) + 1)));
  user_.OnlyCloses(IsOver());
  if (fault_ == Fault::Grade && random_.Chance(20)) GradeForeignSubject();
}

void Member::Told(const std::string& text) {
  if (text.starts_with("En la sección y evaluación")) ++figures_[kPublished];
  if (text.starts_with("No existen alumnos o materias")) ++figures_[kHidden];
  if (text.starts_with("¡Atención! Existe una publicación")) ++figures_[kReadOnly];
}

void Member::GradeForeignSubject() {
  const auto row = centro_->Execute(
      "SELECT CodAlumnoPte_MatDet, E.CodNumEvaluacion AS Evaluacion, CodNota, "
      "CodPublicacion FROM EvaluacionPte E, "
      "AlumnoPte_MatDet, BloqueoPte B WHERE IDAlumnoPte_MatDet=CodAlumnoPte_MatDet AND "
      "B.CodMatDet=AlumnoPte_MatDet.CodMatDet AND B.CodNumEvaluacion=E.CodNumEvaluacion LIMIT 1");
  if (row.Eof()) return;
  centro_->Execute(
      "UPDATE EvaluacionPte SET CodNota=" + std::to_string(row.Fields("CodNota").Long() + 1) +
      " WHERE CodNumEvaluacion=" + row.Fields("Evaluacion").Text() +
      " AND CodAlumnoPte_MatDet = " + row.Fields("CodAlumnoPte_MatDet").Text());
  if (row.Fields("CodPublicacion").Long() != centro_->Publication()) faults_.Add();
}

}  // namespace quorvane::test

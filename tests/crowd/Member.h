#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include "apps/escuela/StandbyConnection.h"
#include "frame/cAsignarDatos.h"
#include "platform/RuntimeError.h"
#include "platform/controls/FormInstances.h"
#include "platform/text/AsciiCase.h"
#include "tests/crowd/CrowdConnection.h"
#include "tests/crowd/CrowdOptions.h"
#include "tests/walk/History.h"
#include "tests/walk/Onlooker.h"
#include "tests/walk/RandomHost.h"
#include "tests/walk/RandomUser.h"

namespace quorvane::test {

/// One process of the crowd: somebody who starts the program, opens screens, grades, saves or
/// leaves, closes the program and starts it again until the time is over. An error that comes out
/// is shown to him, the forms go, and he goes on. A process has one of them.
class Member : public Onlooker {
 public:
  /// `number` from 1. The school is there; the journal is made.
  /// `faults` is shared with the others, and outlives it.
  Member(int number, const CrowdOptions& options, FaultCount& faults, SchoolAddress school,
         const std::string& journal)
      : number_(number),
        options_(options),
        fault_(number == 1 ? options.fault : Fault::None),
        faults_(faults),
        school_(std::move(school)),
        journal_(journal),
        random_(options.seed * 1000 + static_cast<std::uint64_t>(number)),
        user_(random_, history_),
        host_(random_) {
    user_.UseOnlooker(*this);
  }

  /// Where something is done wrong on purpose it goes on until that has been done often enough, a
  /// minute at most.
  void Play() {
    auto open = OpenProgram();
    // Many who come at once wait at a server's door: the time counts from within.
    until_ = Clock::now() + std::chrono::seconds(options_.seconds);
    latest_ = IsWrong() ? std::max(until_, Clock::now() + kLongestSearch) : until_;
    for (; !IsOver(); open = OpenProgram())
      if (open) UseProgram();
    figures_[kGestures] = static_cast<std::int64_t>(user_.Gestures());
    for (const auto& [name, count] : figures_.counts)
      journal_.Write(Journal::Kind::Figure, count, name);
    for (const auto& [error, times] : figures_.errors)
      journal_.Write(Journal::Kind::Figure, times, "error " + error);
  }

  void Loading(Form& form) override {
    if (IsRegister(form) || EntersGrades(form)) centro_->BeginForm(form.Name(), EntersGrades(form));
  }
  void Opened(Form& form) override {
    if (IsRegister(form)) ++figures_[kOpenings];
  }
  void Settle() override {
    if (options_.pause > 0)
      std::this_thread::sleep_for(
          std::chrono::milliseconds(random_.Below(static_cast<std::size_t>(options_.pause) + 1)));
    user_.OnlyCloses(IsOver());
    if (fault_ == Fault::Grade && random_.Chance(20)) GradeForeignSubject();
  }
  void Told(const std::string& text) override {
    if (text.starts_with("En la sección y evaluación")) ++figures_[kPublished];
    if (text.starts_with("No existen alumnos o materias")) ++figures_[kHidden];
    if (text.starts_with("¡Atención! Existe una publicación")) ++figures_[kReadOnly];
  }

 private:
  using Clock = std::chrono::steady_clock;
  static constexpr auto kLongestSearch = std::chrono::seconds(60);

  /// One of the processes does something wrong on purpose.
  [[nodiscard]] bool IsWrong() const { return options_.fault != Fault::None; }

  [[nodiscard]] bool IsOver() const {
    const auto now = Clock::now();
    return now >= latest_ || (now >= until_ && (!IsWrong() || faults_.IsEnough()));
  }

  [[nodiscard]] bool OpenProgram() {
    const auto make = [this](const char* name) {
      return std::make_unique<CrowdConnection>(school_, name, number_, fault_, faults_, journal_,
                                               figures_);
    };
    centro_ = make("centro");
    borrado_ = std::make_unique<StandbyConnection>(make(""), "borrado");
    entrada_ = make("entrada");
    try {
      for (auto* const connection : {centro_.get(), entrada_.get()}) connection->Open();
    } catch (const RuntimeError& error) {
      Recover(error);
      return false;
    }
    return true;
  }

  void UseProgram() {
    for (auto screens = 1 + random_.Below(8); screens > 0 && !IsOver(); --screens) OpenScreen();
  }

  void OpenScreen() {
    constexpr int kRegisterNode = 123;
    constexpr std::size_t kGradeNodes = 4;
    const auto any = [this](std::size_t count) {
      return 1 + static_cast<int>(random_.Below(count));
    };
    const auto own = 1 + (number_ - 1) % options_.users;
    const auto user = random_.Chance(70) ? own : any(static_cast<std::size_t>(options_.users));
    host_.SignIn({*centro_, *borrado_, *entrada_}, user);
    const auto node = random_.Chance(5) ? kRegisterNode : kRegisterNode + any(kGradeNodes);
    try {
      cAsignarDatos().ActivarFormulario(static_cast<std::uint8_t>(node));
    } catch (const RuntimeError& error) {
      Recover(error);
    }
  }

  /// What the engine tells of two rows of one key: in a file by name, on a server by its state.
  static bool IsCollision(const std::string& text) {
    return text.starts_with("UNIQUE constraint failed") || text.starts_with("[23505] ");
  }
  /// Subjects of some kinds can't be loaded by some forms, however many users there are.
  static bool IsMissingColumn(const std::string& text) {
    const auto told = text.starts_with("no such column: ") || text.starts_with("[42703] ");
    return told && AsciiLower(text).find("codalumno_materiadetalles") != std::string::npos;
  }

  void CountError(const RuntimeError& error) {
    const auto text = error.Description();
    // Without what differs from one time to the other: the key that stands, and the driver's
    // remark.
    const auto kind = text.substr(0, text.find_first_of(";\n"));
    ++figures_.errors[std::to_string(error.Number()) + " " + kind];
    if (IsCollision(text)) {
      ++figures_[kCollisions];
    } else if (error.Is(ErrorNumber::StatementFailed) && !IsMissingColumn(text)) {
      ++figures_[kBusy];
      if (fault_ == Fault::Wait) faults_.Add();
    }
  }

  void Recover(const RuntimeError& error) {
    CountError(error);
    FormInstances::DropAll();
    if (!centro_->IsOpen()) return;
    try {
      centro_->RemoveLeftovers();
    } catch (const RuntimeError& another) {
      CountError(another);
    }
  }

  void GradeForeignSubject() {
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

  int number_;
  CrowdOptions options_;
  Fault fault_;
  FaultCount& faults_;
  SchoolAddress school_;
  Journal journal_;
  Figures figures_;
  Prng random_;
  History history_;
  RandomUser user_;
  RandomHost host_;
  Clock::time_point until_;
  Clock::time_point latest_;  ///< however seldom it has been done wrong
  std::unique_ptr<CrowdConnection> centro_;
  std::unique_ptr<Connection> borrado_;  ///< as in the programs: opened when used
  std::unique_ptr<CrowdConnection> entrada_;
};

}  // namespace quorvane::test

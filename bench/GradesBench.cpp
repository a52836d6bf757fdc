#include "bench/GradesBench.h"

#include <string>

#include "bench/Replay.h"
#include "bench/Session.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Retivo.h"

namespace quorvane::bench {
namespace {

// The module and the replays take turns, so that what else the machine does meets all of them.
constexpr std::size_t kRounds = 11;
constexpr std::size_t kRunsOfRound = 3;
constexpr double kMostOpening = 0.5;
constexpr double kMostSaving = 1.1;

/// A flow of grade entry: its node, its two forms, and what else step one asks for.
struct Flow {
  std::uint8_t node;
  const char* stepOne;
  const char* stepTwo;
  int evaluation;
  const char* extra;  ///< combo box of step one, or null
  int extraData;
};

constexpr int kOrdinary = BenchSchool::kEvaluation;
constexpr int kFinal = BenchSchool::kFinalEvaluation;

const Flow kFlows[] = {
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

template <class T>
T& Control(const Form& form, const char* name) {
  return dynamic_cast<T&>(*form.Find(name));
}

void Choose(const Form& form, const char* name, int data) {
  auto& combo = Control<ComboBox>(form, name);
  for (int i = 0; i < combo.ListCount(); ++i)
    if (combo.ItemData(i) == data) return combo.ListIndex(i);
}

void ChooseAll(const Form& form, const Flow& flow) {
  Choose(form, "cboTipoEnsenanza", BenchSchool::kKind);
  Choose(form, "cboCursos", BenchSchool::kCourse);
  Choose(form, "cboSecciones", BenchSchool::kSection);
  Choose(form, "cboEvaluaciones", flow.evaluation);
  if (flow.extra != nullptr) Choose(form, flow.extra, flow.extraData);
}

struct Times {
  Time open;
  Time move;
  Time list;
  Time save;
  std::vector<RecordedStatement> opening;
  std::vector<RecordedStatement> saving;
};

/// A user who opens and saves the same form several times, as he does section by section. The first
/// time isn't measured, but its statements are recorded.
class Player {
 public:
  Player(const std::string& path, const Flow& flow, std::size_t runs)
      : session_(path), flow_(flow), runs_(runs) {}

  std::vector<Times> Play() {
    session_.Screen().OnLoading = [this](const Form& form) {
      if (form.Name() != flow_.stepTwo) return;
      if (First()) session_.Centro().Record();
      opening_ = Watch();
    };
    session_.Screen().On(flow_.stepOne, [this](Form& stepOne) { Open(stepOne); });
    session_.Open(flow_.node);
    return times_;
  }

 private:
  void Open(Form& stepOne) {
    if (times_.size() > runs_) return stepOne.CloseByUser();
    times_.emplace_back();
    ChooseAll(stepOne, flow_);
    session_.Screen().On(flow_.stepTwo, [this](Form& stepTwo) {
      times_.back().open = opening_.Passed();
      if (First()) times_.back().opening = session_.Centro().Recorded();
      Use(stepTwo);
    });
    Control<CommandButton>(stepOne, "cmdNotaManual1(0)").Press();
  }

  void Use(Form& stepTwo) {
    const Watch moving;
    Control<CommandButton>(stepTwo, "cmdSiguiente").Press();
    times_.back().move = moving.Passed();
    const Watch listing;
    Control<Retivo>(stepTwo, "rtvNotasAlumno").BeginEdit(1, 1);
    times_.back().list = listing.Passed();
    if (First()) session_.Centro().Record();
    const Watch saving;
    session_.Screen().On(flow_.stepOne, [this, saving](Form& stepOne) {
      times_.back().save = saving.Passed();
      if (First()) times_.back().saving = session_.Centro().Recorded();
      Open(stepOne);
    });
    Control<CommandButton>(stepTwo, "cmdAceptar").Press();
  }

  [[nodiscard]] bool First() const { return times_.size() == 1; }

  Session session_;
  const Flow& flow_;
  std::size_t runs_;
  Watch opening_;
  std::vector<Times> times_;
};

std::vector<Row> MeasureFlow(const std::string& path, const Flow& flow, int students) {
  const auto& libraries = Libraries();
  std::vector<RecordedStatement> opening, saving;
  std::vector<Time> opens, moves, lists, saves;
  std::vector<std::vector<Time>> replayedOpens(libraries.size()), replayedSaves(libraries.size());
  for (std::size_t round = 0; round < kRounds; ++round) {
    const auto times = Player(path, flow, kRunsOfRound).Play();
    opening = times.front().opening;
    saving = times.front().saving;
    for (std::size_t run = 1; run < times.size(); ++run) {
      opens.push_back(times[run].open);
      moves.push_back(times[run].move);
      lists.push_back(times[run].list);
      saves.push_back(times[run].save);
      for (std::size_t i = 0; i < libraries.size(); ++i) {
        // What the replay of an opening writes, that of a saving gives back.
        replayedOpens[i].push_back(libraries[i].replay(path, opening));
        replayedSaves[i].push_back(libraries[i].replay(path, saving));
      }
    }
  }
  const std::string form = flow.stepTwo;
  Row open{form + ": open", students, opening, Quartile(opens), {}, kMostOpening, true};
  Row save{form + ": save", students, saving, Quartile(saves), {}, kMostSaving};
  for (std::size_t i = 0; i < libraries.size(); ++i) {
    open.libraries.push_back(Quartile(replayedOpens[i]));
    save.libraries.push_back(Quartile(replayedSaves[i]));
  }
  return {std::move(open),
          {form + ": next entry", students, {}, Quartile(moves)},
          {form + ": list of a cell", students, {}, Quartile(lists)},
          std::move(save)};
}

}  // namespace

std::vector<Row> MeasureGrades(const BenchSchool& school, int students) {
  std::vector<Row> rows;
  for (const auto& flow : kFlows)
    for (auto& row : MeasureFlow(school.Path(), flow, students)) rows.push_back(std::move(row));
  return rows;
}

bool PlayAlone(const BenchSchool& school, const std::string& form, std::size_t runs) {
  for (const auto& flow : kFlows) {
    if (form != flow.stepTwo) continue;
    Player(school.Path(), flow, runs).Play();
    return true;
  }
  return false;
}

}  // namespace quorvane::bench

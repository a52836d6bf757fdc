#include "apps/quorvane-escuela/StateCommand.h"

#include <algorithm>
#include <iostream>
#include <map>

#include "adapters/guion/player/JsonText.h"
#include "apps/escuela/CsvLine.h"
#include "apps/escuela/PatientWork.h"
#include "apps/escuela/SchoolCheck.h"
#include "apps/escuela/SchoolWriting.h"
#include "apps/escuela/Today.h"
#include "apps/quorvane-escuela/ProgressLine.h"
#include "platform/text/SpanishOrder.h"
#include "platform/text/VisibleText.h"

namespace quorvane {
namespace {

using guion::JsonText;

constexpr auto kBarCells = 10;

std::string Bar(const StateRow& row) {
  const auto full = row.pending == 0 ? kBarCells : row.entered * kBarCells / row.pending;
  std::string bar = "[";
  for (auto i = 0; i < kBarCells; ++i) bar += i < full ? '#' : '-';
  return bar + "]";
}

std::string Counts(const StateRow& row) {
  return Bar(row) + " " + std::to_string(row.entered) + " de " + std::to_string(row.pending) +
         (row.Missing() == 0 ? "" : ", faltan " + std::to_string(row.Missing()));
}

std::string Locked(const StateRow& row) {
  if (row.locked == 0) return {};
  return row.subject != 0 ? "; en uso" : "; en uso " + std::to_string(row.locked);
}

std::string WindowText(const StateWindow& window) {
  if (window.from.empty() && window.to.empty()) return "; sin plazo";
  return "; plazo " + VisibleText(window.from) + " a " + VisibleText(window.to) +
         (window.open ? ", abierto" : ", cerrado");
}

class Printer {
 public:
  Printer(const SchoolState& state, const StateOptions& options, ProgressLine& reading)
      : state_(state), options_(options), reading_(reading) {}

  void Text() const {
    const auto rows = options_.byTeacher ? Teachers() : state_.Sections(options_.filter);
    std::map<std::pair<std::int32_t, std::int32_t>, std::vector<StateRow>> subjects;
    if (options_.detail)
      for (const auto& row : state_.Subjects(options_.filter))
        subjects[{row.evaluation, options_.byTeacher ? row.teacher : row.section}].push_back(row);
    reading_.End();
    for (const auto& evaluation : state_.Evaluations()) {
      const auto total = Total(rows, evaluation.id);
      if (total.pending == 0) continue;
      std::cout << VisibleText(evaluation.name) << ": " << Counts(total) << '\n';
      for (const auto& row : rows) {
        if (row.evaluation != evaluation.id) continue;
        PrintGroup(row);
        const auto group = options_.byTeacher ? row.teacher : row.section;
        for (const auto& subject : subjects[{row.evaluation, group}]) PrintSubject(subject);
      }
    }
    if (rows.empty()) std::cout << "No hay ninguna nota pendiente\n";
  }

  void Csv() const {
    const auto rows = state_.Subjects(options_.filter);
    reading_.End();
    std::cout << CsvLine({"evaluación", "sección", "materia", "profesor", "pendientes", "puestas",
                          "faltan", "desde", "hasta", "abierta", "en uso"});
    for (const auto& row : rows) {
      const auto window = state_.Window(row.section, row.evaluation);
      std::cout << CsvLine({state_.EvaluationName(row.evaluation), state_.SectionName(row.section),
                            state_.SubjectName(row.subject), state_.TeacherName(row.teacher),
                            std::to_string(row.pending), std::to_string(row.entered),
                            std::to_string(row.Missing()), window.from, window.to,
                            window.open ? "sí" : "no", row.locked > 0 ? "sí" : "no"});
    }
  }

  void Json() const {
    const auto rows = state_.Subjects(options_.filter);
    reading_.End();
    std::cout << '[';
    const auto* before = "\n";
    for (const auto& row : rows) {
      const auto window = state_.Window(row.section, row.evaluation);
      std::cout << before << "{\"evaluacion\":" << JsonText(state_.EvaluationName(row.evaluation))
                << ",\"seccion\":" << JsonText(state_.SectionName(row.section))
                << ",\"materia\":" << JsonText(state_.SubjectName(row.subject))
                << ",\"profesor\":" << JsonText(state_.TeacherName(row.teacher))
                << ",\"pendientes\":" << row.pending << ",\"puestas\":" << row.entered
                << ",\"faltan\":" << row.Missing() << ",\"desde\":" << JsonText(window.from)
                << ",\"hasta\":" << JsonText(window.to)
                << ",\"abierta\":" << (window.open ? "true" : "false")
                << ",\"enUso\":" << (row.locked > 0 ? "true" : "false") << '}';
      before = ",\n";
    }
    std::cout << "\n]\n";
  }

 private:
  static StateRow Total(const std::vector<StateRow>& rows, std::int32_t evaluation) {
    StateRow total;
    for (const auto& row : rows) {
      if (row.evaluation != evaluation) continue;
      total.pending += row.pending;
      total.entered += row.entered;
    }
    return total;
  }

  std::vector<StateRow> Teachers() const {
    std::map<std::pair<std::int32_t, std::int32_t>, StateRow> byTeacher;
    for (const auto& row : state_.Subjects(options_.filter)) {
      auto& group = byTeacher[{row.evaluation, row.teacher}];
      group.evaluation = row.evaluation;
      group.teacher = row.teacher;
      group.pending += row.pending;
      group.entered += row.entered;
      group.locked += row.locked;
    }
    std::vector<StateRow> rows;
    rows.reserve(byTeacher.size());
    for (const auto& [key, row] : byTeacher) rows.push_back(row);
    const auto places = TeacherPlaces(rows);
    std::stable_sort(rows.begin(), rows.end(), [&](const auto& one, const auto& other) {
      return places.at(one.teacher) < places.at(other.teacher);
    });
    return rows;
  }

  /// Where each teacher stands by his name; those of one name stand together. Names are compared
  /// once a teacher: he has a row for every evaluation.
  std::map<std::int32_t, std::size_t> TeacherPlaces(const std::vector<StateRow>& rows) const {
    std::map<std::int32_t, std::size_t> places;
    for (const auto& row : rows) places[row.teacher] = 0;
    std::vector<std::pair<std::string, std::int32_t>> names;
    names.reserve(places.size());
    for (const auto& [teacher, place] : places)
      names.emplace_back(state_.TeacherName(teacher), teacher);
    std::stable_sort(names.begin(), names.end(), [](const auto& one, const auto& other) {
      return SpanishLess(one.first, other.first);
    });
    for (std::size_t i = 0; i < names.size(); ++i)
      places[names[i].second] =
          i > 0 && names[i].first == names[i - 1].first ? places[names[i - 1].second] : i;
    return places;
  }

  void PrintGroup(const StateRow& row) const {
    if (options_.byTeacher) {
      const auto name = state_.TeacherName(row.teacher);
      std::cout << "  " << (name.empty() ? "Sin profesor" : VisibleText(name)) << ": "
                << Counts(row) << Locked(row) << '\n';
      return;
    }
    std::cout << "  " << VisibleText(state_.SectionName(row.section)) << ": " << Counts(row)
              << WindowText(state_.Window(row.section, row.evaluation)) << Locked(row) << '\n';
  }

  void PrintSubject(const StateRow& row) const {
    const auto teacher =
        options_.byTeacher ? state_.SectionName(row.section) : state_.TeacherName(row.teacher);
    std::cout << "    " << VisibleText(state_.SubjectName(row.subject))
              << (teacher.empty() ? "" : ", " + VisibleText(teacher)) << ": " << Counts(row)
              << Locked(row) << '\n';
  }

  const SchoolState& state_;
  const StateOptions& options_;
  ProgressLine& reading_;
};

int Print(const SchoolAddress& address, const StateOptions& options) {
  ProgressLine progress("Leyendo", ProgressLine::kPatience);
  const auto school = OpenForPiece(address, SchoolAddress::Access::ReadOnly);
  RequireSchool(*school, "No se puede leer " + address.Shown() + ": ");
  AskBeforeEach(*school, [&] { progress.Working(); });
  const SchoolState state(*school, Today(*school));
  const auto& all = state.Evaluations();
  const auto asked = options.filter.evaluation;
  if (asked != 0 &&
      std::none_of(all.begin(), all.end(), [asked](const auto& one) { return one.id == asked; })) {
    progress.End();
    std::cout << "No hay ninguna evaluación " << asked << ". Las hay:\n";
    for (const auto& evaluation : all)
      std::cout << "  " << evaluation.id << "  " << VisibleText(evaluation.name) << '\n';
    return 1;
  }
  const Printer printer(state, options, progress);
  if (options.json)
    printer.Json();
  else if (options.csv)
    printer.Csv();
  else
    printer.Text();
  return 0;
}

}  // namespace

int State(const SchoolAddress& address, const StateOptions& options) {
  auto status = 0;
  TellIfHeldOrLost([&] { status = Print(address, options); });
  return status;
}

}  // namespace quorvane

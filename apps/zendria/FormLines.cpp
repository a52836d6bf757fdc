#include "apps/zendria/FormLines.h"

#include <QRegularExpression>
#include <QStringList>
#include <optional>
#include <string_view>
#include <utility>

#include "apps/zendria/ClassName.h"
#include "apps/zendria/EmptyLists.h"
#include "apps/zendria/GradeForm.h"
#include "apps/zendria/HeldSubjects.h"
#include "apps/zendria/OneLine.h"
#include "apps/zendria/School.h"
#include "apps/zendria/StepOneLists.h"
#include "platform/RuntimeError.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/Retivo.h"
#include "register/cMateria.h"

namespace quorvane::zendria {
namespace {

constexpr auto kBetween = " · ";

QString ChoiceText(const GradeSheet& sheet, std::string_view control) {
  const auto* const choice = Choice(sheet, control);
  return choice == nullptr ? QString() : OneLine(choice->text);
}

/// The list has a student's number in the section before his name.
QString WithoutNumber(const QString& student) {
  static const QRegularExpression number("^\\d+ ");
  return QString(student).remove(number);
}

/// "Lengua (1º ESO)" of that section, "1º ESO A".
QString WithSection(const QString& subject, const QString& section) {
  const auto end = subject.lastIndexOf(" (");
  if (section.isEmpty() || end < 0 || !subject.endsWith(u')')) return subject;
  const auto course = subject.mid(end + 2, subject.size() - end - 3);
  return section.startsWith(course) ? subject.left(end) + " (" + section + ')' : subject;
}

}  // namespace

class FormLines::Teller {
 public:
  explicit Teller(std::function<QString()> problem) : problem_(std::move(problem)) {}

  void Begin(School& school, const User& user) {
    reader_.emplace(school.Own(), user);
    user_ = &user;
    sought_.reset();
    person_.reset();
  }
  void End() { reader_.reset(); }
  void Forget() { sought_.reset(); }

  qt::FormHeading Of(const Form& form) {
    if (!reader_) return {};
    try {
      if (const auto grades = AsGradeForm(form)) return OverGrades(*grades);
      if (const auto lists = StepOneListsOf(form)) return {{}, OverStepOne(*lists)};
    } catch (const RuntimeError&) {
      // The form's own work tells what is wrong with the school.
    }
    return {};
  }

 private:
  qt::FormHeading OverGrades(const GradeForm& form) {
    if (form.AtWork() || form.Walk().ListIndex() < 0) return {};
    const auto sheet = form.Sheet();
    QStringList place{ClassName(ChoiceText(sheet, "cboCursos"), ChoiceText(sheet, "cboSecciones")),
                      ChoiceText(sheet, "cboEvaluaciones")};
    if (sheet.recovery) place.append("Recuperación");
    place.append(Walked(form));
    QStringList remarks{problem_()};
    remarks.append(HeldText(Held(SoughtBy(form))));
    remarks.removeAll(QString());
    return {place.join(kBetween), remarks.join(u'\n')};
  }

  /// "Alumno 2 de 25: Díaz Cano, Marta", and the subject of the current row.
  QString Walked(const GradeForm& form) {
    const auto& walk = form.Walk();
    const auto at = QStringLiteral("%1 de %2").arg(walk.ListIndex() + 1).arg(walk.ListCount());
    const auto text = OneLine(walk.Text());
    const auto& grid = form.Grid();
    const auto rows = grid.Row() >= grid.FixedRows() && grid.Row() < grid.Rows();
    QString subject = form.WalksStudents() ? QString() : text;
    if (rows) {
      GradeCell cell;
      form.ReadPlace(cell);
      subject = OneLine(cell.subjectText);
      if (const auto* const taught = form.Subject(cell))
        subject = WithSection(subject, Section(taught->IDseccion));
    }
    if (!form.WalksStudents()) return QStringLiteral("Materia %1: %2").arg(at, subject);
    const auto student = QStringLiteral("Alumno %1: %2").arg(at, WithoutNumber(text));
    return subject.isEmpty() ? student : student + kBetween + subject;
  }

  QString OverStepOne(const StepOneLists& lists) {
    QStringList remarks;
    if (lists.empty != StepOneLists::Empty::None)
      remarks.append(WhyEmpty(lists, {user_->profile, user_->name, Person() > 0}));
    if (lists.section != 0 && lists.evaluation != 0) {
      // Whatever subject is chosen, its list lacks all that are held.
      const auto held = HeldText(Held({lists.section, lists.evaluation, lists.student, 0, 0}));
      if (!held.isEmpty()) remarks.append(held);
    }
    return remarks.join(u'\n');
  }

  // What is read stands until something else is asked for or a form goes: the lines are shown with
  // each gesture.

  const std::vector<HeldSubject>& Held(const SubjectsSought& sought) {
    if (sought_ != sought) {
      sought_ = sought;
      held_.clear();
      held_ = reader_->Held(sought);
    }
    return held_;
  }
  std::int32_t Person() {
    if (!person_) {
      person_ = 0;
      person_ = reader_->Person();
    }
    return *person_;
  }
  QString Section(std::int32_t id) { return reader_->Section(id); }

  std::function<QString()> problem_;
  std::optional<SubjectReader> reader_;
  const User* user_ = nullptr;
  std::optional<SubjectsSought> sought_;
  std::vector<HeldSubject> held_;
  std::optional<std::int32_t> person_;
};

FormLines::FormLines(qt::QtFrontEnd& screen, std::function<QString()> problem)
    : teller_(std::make_shared<Teller>(std::move(problem))) {
  screen.Heading = [teller = teller_](const Form& form) { return teller->Of(form); };
  // The one that stands behind it comes up again: meanwhile others may have taken or freed.
  screen.FormUnloading = [teller = teller_,
                          before = std::move(screen.FormUnloading)](const Form& form) {
    if (before) before(form);
    teller->Forget();
  };
}

void FormLines::Begin(School& school, const User& user) { teller_->Begin(school, user); }

void FormLines::End() { teller_->End(); }

void FormLines::ReadAgain() { teller_->Forget(); }

qt::FormHeading FormLines::Of(const Form& form) const { return teller_->Of(form); }

}  // namespace quorvane::zendria

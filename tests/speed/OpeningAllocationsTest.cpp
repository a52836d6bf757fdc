#include <gtest/gtest.h>
#include <string>

#include "apps/escuela/SchoolAddress.h"
#include "bench/BenchSchool.h"
#include "bench/Session.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "tests/speed/Allocations.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using bench::BenchSchool;

template <class T>
T& Control(const Form& form, const char* name) {
  return dynamic_cast<T&>(*form.Find(name));
}

void Choose(const Form& form, const char* name, int data) {
  auto& combo = Control<ComboBox>(form, name);
  for (int i = 0; i < combo.ListCount(); ++i)
    if (combo.ItemData(i) == data) return combo.ListIndex(i);
  FAIL() << name << " has no " << data;
}

/// Opens one form three times in a session: the first prepares the statements, the second counts
/// them, the third is measured.
class Openings {
 public:
  Openings(const std::string& path, const char* stepOne, const char* stepTwo, int evaluation)
      : session_(SchoolAddress::File(path)),
        stepOne_(stepOne),
        stepTwo_(stepTwo),
        evaluation_(evaluation) {}

  void Play(std::uint8_t node) {
    session_.Screen().OnLoading = [this](const Form& form) {
      if (form.Name() != stepTwo_) return;
      if (times_ == 2) session_.Executed().Record();
      start_ = Allocations();
    };
    session_.Screen().On(stepOne_, [this](Form& form) { Open(form); });
    session_.Open(node);
  }

  [[nodiscard]] double OfAStatement() const {
    return static_cast<double>(taken_) / static_cast<double>(statements_);
  }

 private:
  void Open(Form& stepOne) {
    if (++times_ > 3) return stepOne.CloseByUser();
    Choose(stepOne, "cboTipoEnsenanza", BenchSchool::kKind);
    Choose(stepOne, "cboCursos", BenchSchool::kCourse);
    Choose(stepOne, "cboSecciones", BenchSchool::kSection);
    Choose(stepOne, "cboEvaluaciones", evaluation_);
    session_.Screen().On(stepTwo_, [this](Form& stepTwo) {
      taken_ = Allocations() - start_;
      if (times_ == 2) statements_ = session_.Executed().Recorded().size();
      session_.Screen().On(stepOne_, [this](Form& form) { Open(form); });
      Control<CommandButton>(stepTwo, "cmdAceptar").Press();
    });
    Control<CommandButton>(stepOne, "cmdNotaManual1(0)").Press();
  }

  bench::Session session_;
  std::string stepOne_;
  std::string stepTwo_;
  int evaluation_;
  int times_ = 0;
  std::size_t start_ = 0;
  std::size_t taken_ = 0;
  std::size_t statements_ = 0;
};

// All that an opening does, the joining of its texts and the objects of the form included.
constexpr double kMostOfAStatement = 3.5;

class OpeningAllocations : public testing::Test {
 protected:
  double OfAStatement(const char* stepOne, const char* stepTwo, int evaluation,
                      std::uint8_t node) const {
    Openings openings(school_.Path(), stepOne, stepTwo, evaluation);
    openings.Play(node);
    return openings.OfAStatement();
  }

  TempFolder folder_;
  BenchSchool school_{folder_ / ".", 50};
};

TEST_F(OpeningAllocations, ByStudent) {
  EXPECT_LE(OfAStatement("frmNotaManual1", "frmNotaManual", BenchSchool::kEvaluation, 124),
            kMostOfAStatement);
}

TEST_F(OpeningAllocations, BySubject) {
  EXPECT_LE(OfAStatement("frmNotaMateria1", "frmNotaMateria", BenchSchool::kEvaluation, 125),
            kMostOfAStatement);
}

TEST_F(OpeningAllocations, ByStudentOfAFinalEvaluation) {
  EXPECT_LE(
      OfAStatement("frmNotaManual1", "frmNotaManualFinal", BenchSchool::kFinalEvaluation, 124),
      kMostOfAStatement);
}

TEST_F(OpeningAllocations, BySubjectOfAFinalEvaluation) {
  EXPECT_LE(
      OfAStatement("frmNotaMateria1", "frmNotaMateriaFinal", BenchSchool::kFinalEvaluation, 125),
      kMostOfAStatement);
}

}  // namespace
}  // namespace quorvane::test

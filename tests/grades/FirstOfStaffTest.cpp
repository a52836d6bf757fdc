#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/grades/GradeSchool.h"
#include "tests/grades/OrdinaryForms.h"
#include "tests/support/FormView.h"

// The teacher who has number 1, the lowest that anybody of the staff can have.

namespace quorvane::test {
namespace {

class FirstOfStaffTest : public ::testing::TestWithParam<OrdinaryForm> {};

TEST_P(FirstOfStaffTest, GradesWhatHeTeachesWithoutBeingTutor) {
  const GradeSchool school;
  school.Sql("UPDATE Seccion SET CodTutor=0");
  school.Profesor(1, 3111);
  // Who is the tutor elsewhere is a teacher here.
  const auto result = RunScript(school, GetParam().Open() + GetParam().toLengua + "ver\n", Tutor());
  const FormView view(result);
  ASSERT_EQ(view.Form(), GetParam().name) << result.Text();
  EXPECT_EQ(view.Cells("rtvNotasAlumno").at(1), GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(All, FirstOfStaffTest, ::testing::ValuesIn(OrdinaryForms()),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace quorvane::test

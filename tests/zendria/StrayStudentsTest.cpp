// Students whose register is another section's than the one they are in: Enzo (32) of 3º ESO A is
// on that of 3º ESO B, with a subject (29) that nobody else of 3º ESO A has pending.

#include "apps/escuela/state/MayGrade.h"
#include "frame/cNombreNodo.h"
#include "platform/controls/ComboBox.h"
#include "tests/zendria/DemoHost.h"

namespace quorvane::test {
namespace {

constexpr auto kSectionA = 5;
constexpr auto kSectionB = 6;
constexpr auto kEnzo = 32;
constexpr auto kEnzosSubject = 29;
constexpr auto kMathematics = 20;
constexpr auto kSecond = 2;
constexpr auto kFinal = 4;

class StrayStudentsTest : public DemoHost {
 protected:
  static std::int32_t Chosen(const qt::FormWindow& window, const char* combo) {
    return dynamic_cast<ComboBox&>(*window.Model().Find(combo)).SelectedData();
  }
  /// The line of Enzo's subject in an evaluation's tree, and double-clicks it.
  static QTreeWidgetItem* ActivateHis(zendria::StateDialog& dialog, int evaluation) {
    auto& tree = dialog.Tree();
    auto* const section = Child(tree.topLevelItem(evaluation), "3º ESO A");
    section->setExpanded(true);
    auto* const line = Child(section, "Lengua Castellana y Literatura (2º ESO B) · en 3º ESO B");
    if (line != nullptr) Q_EMIT tree.itemActivated(line, 0);
    return line;
  }
  std::optional<zendria::GradeRoute> Route(std::int32_t subject, std::int32_t evaluation,
                                           std::int32_t staff = 0) {
    return zendria::RouteTo(demo_.Db(), {kSectionA, subject, evaluation}, staff);
  }
  /// Nobody of 3º ESO A has that evaluation, but for Enzo.
  void TakeOthersOffTheRegister() {
    demo_.Sql("DELETE FROM Seccion_AlumnoPte WHERE CodSeccion=" + std::to_string(kSectionA));
  }
};

TEST_F(StrayStudentsTest, InAFileAndOnAServerHisLineIsMarkedAndOpensTheScreenByStudentWithHim) {
  OpenDemo();
  std::vector<std::int32_t> chosen;
  QString tip;
  robot_.On("frmNotaManual1", [&chosen](qt::FormWindow& window) {
    chosen = {Chosen(window, "cboSecciones"), Chosen(window, "cboEvaluaciones")};
    Robot::Click(window, "cmdNotaManual1(0)");
  });
  robot_.On("frmNotaManual", [&chosen](qt::FormWindow& window) {
    chosen.push_back(Chosen(window, "cboAlumnos"));
    EXPECT_EQ(Robot::Grid(window).model()->rowCount(), 1);
    EXPECT_EQ(Robot::CellText(window, 0, 0), "Lengua Castellana y Literatura (2º ESO)");
    window.close();
  });
  CloseNext("frmNotaManual1");
  InDialog<zendria::StateDialog>("estadoEvaluacion", "estado", [&tip](auto& dialog) {
    auto* const line = ActivateHis(dialog, 1);
    ASSERT_NE(line, nullptr);
    tip = line->toolTip(0);
  });
  EXPECT_EQ(chosen, (std::vector<std::int32_t>{kSectionA, kSecond, kEnzo}));
  EXPECT_TRUE(tip.endsWith(", Enzo: registro de 3º ESO B")) << tip.toStdString();
}

TEST_F(StrayStudentsTest, WhereHisSectionHasNoRegisterHeIsFoundInTheOther) {
  TakeOthersOffTheRegister();
  OpenDemo();
  std::vector<std::int32_t> chosen;
  robot_.On("frmNotaSeccionMateria1", [&chosen](qt::FormWindow& window) {
    chosen = {Chosen(window, "cboSecciones"), Chosen(window, "cboEvaluaciones"),
              Chosen(window, "cboAlumno")};
    Robot::Click(window, "cmdNotaManual1(0)");
  });
  robot_.On("frmNotaSeccionMateriaFinal", [](qt::FormWindow& window) {
    EXPECT_TRUE(dynamic_cast<ComboBox&>(*window.Model().Find("cboMaterias"))
                    .Text()
                    .starts_with("Lengua Castellana y Literatura"));
    window.close();
  });
  CloseNext("frmNotaSeccionMateria1");
  InDialog<zendria::StateDialog>("estadoEvaluacion", "estado",
                                 [](auto& dialog) { EXPECT_NE(ActivateHis(dialog, 3), nullptr); });
  EXPECT_EQ(chosen, (std::vector<std::int32_t>{kSectionB, kFinal, kEnzo}));
}

TEST_F(StrayStudentsTest, WhatNoScreenFindsIsSaidAndTheTreeStays) {
  TakeOthersOffTheRegister();
  OpenDemo();
  std::string told;
  InDialog<zendria::StateDialog>("estadoEvaluacion", "estado", [&](auto& dialog) {
    auto* const section = Child(dialog.Tree().topLevelItem(1), "3º ESO A");
    section->setExpanded(true);
    ReadNotice(told);
    Q_EMIT dialog.Tree().itemActivated(Child(section, "Matemáticas (2º ESO A) · sin registro"), 0);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(dialog.Clock().isActive());
    dialog.reject();
  });
  EXPECT_THAT(told, StartsWith("Ninguna pantalla de notas encuentra esta línea."));
}

TEST_F(StrayStudentsTest, EachRoleIsLedWhereItIsOfferedHim) {
  const auto tutor =
      demo_.Number("SELECT CodTutor FROM Seccion WHERE IDSeccion=" + std::to_string(kSectionA));
  const auto teacher = demo_.Number("SELECT CodProfesor FROM Profesor_Pte WHERE CodMatDet=" +
                                    std::to_string(kEnzosSubject));
  const auto nodes = cNombreNodo();
  for (const auto evaluation : {kSecond, kFinal}) {
    const auto hers = Route(kEnzosSubject, evaluation, tutor);
    ASSERT_TRUE(hers.has_value());
    EXPECT_EQ(hers->node, nodes.NotaPendientesAlumno);
    EXPECT_EQ(hers->student, kEnzo);
    const auto his = Route(kEnzosSubject, evaluation, teacher);
    ASSERT_TRUE(his.has_value());
    EXPECT_EQ(his->node, nodes.NotaPendientesSeccionAlumno) << "nothing of his is on A's register";
    EXPECT_EQ(his->section, kSectionB);
    EXPECT_EQ(Route(kMathematics, evaluation)->node, nodes.NotaPendientesSeccionMateria);
    EXPECT_EQ(Route(0, evaluation)->node, nodes.NotaPendientesAlumno);
    EXPECT_EQ(Route(0, evaluation, teacher)->student, kEnzo);
    EXPECT_FALSE(Route(kEnzosSubject, evaluation, kNobody).has_value());
  }
  TakeOthersOffTheRegister();
  EXPECT_FALSE(Route(kEnzosSubject, kSecond, tutor).has_value()) << "B isn't offered to her";
}

}  // namespace
}  // namespace quorvane::test

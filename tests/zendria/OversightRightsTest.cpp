// All that the head of studies opens in the desktop, one after the other on one window: in a file
// and, on a server, with no more rights than its guide has granted.

#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QTreeWidgetItemIterator>

#include "apps/escuela/history/GradeHistory.h"
#include "apps/zendria/HistoryDialog.h"
#include "apps/zendria/ImportDialog.h"
#include "apps/zendria/ReportDialog.h"
#include "tests/zendria/DemoHost.h"
#include "tests/zendria/TextPrinter.h"

namespace quorvane::test {
namespace {

class OversightRightsTest : public DemoHost {
 protected:
  /// What the top of the tree says, by SQL that has nothing in common with it.
  [[nodiscard]] int Ordinary(int evaluation, const std::string& more) const {
    return demo_.Number(
        "SELECT COUNT(*) FROM EvaluacionPte, AlumnoPte_MatDet, MateriaDetalles, TipoMateria WHERE "
        "CodAlumnoPte_MatDet=IDAlumnoPte_MatDet AND CodMatDet=IDMateriaDetalles AND "
        "MateriaDetalles.CodTipoMateria=IDTipoMateria AND CodEspecificarTipoMateria=1 AND "
        "CodNumEvaluacion=" +
        std::to_string(evaluation) + more);
  }
};

TEST_F(OversightRightsTest, InAFileAndOnAServerAllFourViewsOpen) {
  GradeHistory(demo_.Db()).Activate();
  demo_.Sql(
      "UPDATE EvaluacionPte SET CodNota=7 WHERE CodAlumnoPte_MatDet=1 AND CodNumEvaluacion=3");
  OpenDemo();

  InDialog<zendria::StateDialog>("estadoEvaluacion", "estado", [this](auto& dialog) {
    for (int i = 0; i < 3; ++i) {
      const auto& evaluation = *dialog.Tree().topLevelItem(i);
      EXPECT_EQ(evaluation.text(2).toInt(), Ordinary(i + 1, ""));
      EXPECT_EQ(evaluation.text(3).toInt(), Ordinary(i + 1, " AND CodNota>0"));
    }
    // Whoever opens all at once, with the key that trees have for it.
    for (int i = 0; i < dialog.Tree().topLevelItemCount(); ++i) {
      dialog.Tree().setCurrentItem(dialog.Tree().topLevelItem(i));
      QTest::keyClick(&dialog.Tree(), Qt::Key_Asterisk);
    }
    // Nobody who writes waits for what is on the screen.
    demo_.Sql(
        "UPDATE EvaluacionPte SET CodNota=7 WHERE CodAlumnoPte_MatDet=6 AND "
        "CodNumEvaluacion=1");
    QTest::keyClick(&dialog, Qt::Key_F5);
    EXPECT_EQ(dialog.Tree().topLevelItem(0)->text(3).toInt(), Ordinary(1, " AND CodNota>0"));
    for (const auto grouping : {0, 1}) {
      dialog.Grouping().setCurrentIndex(grouping);
      auto leaves = 0;
      for (QTreeWidgetItemIterator at(&dialog.Tree()); *at != nullptr; ++at)
        if ((*at)->childCount() == 0) leaves += (*at)->text(2).toInt();
      auto all = 0;
      for (int i = 0; i < dialog.Tree().topLevelItemCount(); ++i)
        all += dialog.Tree().topLevelItem(i)->text(2).toInt();
      EXPECT_EQ(leaves, all) << grouping;
    }
    dialog.reject();
  });

  InDialog<zendria::HistoryDialog>("historialNotas", "historial", [](auto& dialog) {
    ASSERT_EQ(dialog.List().topLevelItemCount(), 2) << dialog.Notice().text().toStdString();
    EXPECT_EQ(dialog.List().topLevelItem(1)->text(1), "Domínguez Álvarez, Marina");
    dialog.reject();
  });

  const auto students = demo_.Number(
      "SELECT COUNT(DISTINCT CodAlumno) FROM AlumnoPte_MatDet, Alumno WHERE "
      "CodAlumno=IDAlumno AND CodSeccion=5");
  robot_.OnDialog<QPrintPreviewDialog>("vistaPrevia", [students](auto& shown) {
    TextPrinter paper;
    Q_EMIT shown.paintRequested(&paper);
    EXPECT_EQ(paper.Pages().size(), static_cast<std::size_t>(students));
    EXPECT_TRUE(paper.Pages()[0].join(u' ').contains("Marina"));
    QTest::keyClick(&shown, Qt::Key_Escape);
  });
  InDialog<zendria::ReportDialog>("informePendientes", "informe", [](auto& dialog) {
    dialog.Sections().setCurrentIndex(dialog.Sections().findText("3º ESO A"));
    dialog.template findChild<QPushButton*>("vistaPrevia")->click();
    dialog.reject();
  });

  const auto file = MakeFile("registro.csv",
                             "alumno;sección;materia;curso;evaluaciones;profesor\n"
                             "33;3º ESO A;Música;2º ESO B;todas;\"Ortega Gutiérrez, Marco\"\n");
  const auto pending = demo_.Number("SELECT COUNT(*) FROM AlumnoPte_MatDet");
  InDialog<zendria::ImportDialog>("importarRegistro", "importar", [&file](auto& dialog) {
    dialog.Choose(file);
    ASSERT_GT(dialog.List().count(), 0);
    EXPECT_EQ(dialog.Notice().text(), "1 líneas encajan, 0 no")
        << dialog.List().item(0)->text().toStdString();
    dialog.ImportButton().click();
    EXPECT_EQ(dialog.Notice().text(),
              "Importadas 1 materias de 1 alumnos; 0 ya estaban; 1 profesores puestos");
    dialog.reject();
  });
  EXPECT_EQ(demo_.Number("SELECT COUNT(*) FROM AlumnoPte_MatDet"), pending + 1);
  EXPECT_THAT(robot_.unexpected, IsEmpty()) << "somebody was told off";
}

}  // namespace
}  // namespace quorvane::test

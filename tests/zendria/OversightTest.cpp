// What the head of studies asks the host for, on the sample school.

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <optional>

#include "apps/escuela/report/ReportText.h"
#include "apps/zendria/HistoryDialog.h"
#include "apps/zendria/ImportDialog.h"
#include "apps/zendria/ReportDialog.h"
#include "apps/zendria/ReportPaper.h"
#include "platform/controls/ComboBox.h"
#include "tests/device/Device.h"
#include "tests/support/RunCommand.h"
#include "tests/zendria/DemoHost.h"

namespace quorvane::test {
namespace {

class OversightTest : public DemoHost {
 protected:
  using Data = std::vector<std::int32_t>;

  Connection& school_ = demo_.Db();
  zendria::StateDialog::Viewer all_{0, true, 1};
};

TEST_F(OversightTest, TheStateIsATreeThatOpensToItsSubjects) {
  zendria::StateDialog dialog(school_, all_);
  auto& tree = dialog.Tree();
  ASSERT_EQ(tree.topLevelItemCount(), 5);
  auto* const second = tree.topLevelItem(1);
  EXPECT_EQ(second->text(0), "2ª Evaluación");
  EXPECT_EQ(second->text(2), "33");
  EXPECT_EQ(second->text(4), "20");
  auto* const section = Child(second, "3º ESO A");
  ASSERT_NE(section, nullptr);
  EXPECT_EQ(section->text(6), "2025/01/08 a 2099/12/31, abierto");
  EXPECT_EQ(section->childCount(), 0) << "read when it is opened";
  section->setExpanded(true);
  auto* const subject = Child(section, "Matemáticas (2º ESO A)");
  ASSERT_NE(subject, nullptr);
  EXPECT_EQ(subject->text(1), "Ortega García, Javier");
  EXPECT_EQ(subject->text(5), "50 %");
  EXPECT_EQ(Child(second, "2º ESO B")->text(7), "2") << "subjects in use";
}

TEST_F(OversightTest, ItIsReadAnewWithoutLosingThePlace) {
  zendria::StateDialog dialog(school_, all_);
  auto* const section = Child(dialog.Tree().topLevelItem(1), "3º ESO A");
  section->setExpanded(true);
  dialog.Tree().setCurrentItem(Child(section, "Matemáticas (2º ESO A)"));
  school_.Execute("UPDATE EvaluacionPte SET CodNota=0 WHERE CodNumEvaluacion=2");
  dialog.Refresh();
  const auto* const current = dialog.Tree().currentItem();
  ASSERT_NE(current, nullptr);
  EXPECT_EQ(current->text(0), "Matemáticas (2º ESO A)");
  EXPECT_EQ(current->text(3), "0");
  EXPECT_TRUE(current->parent()->isExpanded());
}

TEST_F(OversightTest, ItIsGroupedByTeachersAndNarrowedToWhatIsMissing) {
  zendria::StateDialog dialog(school_, all_);
  dialog.Grouping().setCurrentIndex(1);
  auto* const teacher = Child(dialog.Tree().topLevelItem(1), "Ortega García, Javier");
  ASSERT_NE(teacher, nullptr);
  EXPECT_EQ(Child(teacher, "Matemáticas (2º ESO A)")->text(1), "3º ESO A");
  dialog.Grouping().setCurrentIndex(0);
  EXPECT_NE(Child(dialog.Tree().topLevelItem(0), "2º ESO B"), nullptr);
  dialog.MissingOnly().setChecked(true);
  EXPECT_EQ(Child(dialog.Tree().topLevelItem(0), "2º ESO B"), nullptr) << "all is entered there";
}

TEST_F(OversightTest, ARoleSeesWhatItMayGrade) {
  zendria::StateDialog none(school_, {0, false, 1});
  EXPECT_EQ(none.Tree().topLevelItemCount(), 0);
  const auto tutor = demo_.Number("SELECT CodTutor FROM Seccion WHERE IDSeccion=5");
  zendria::StateDialog hers(school_, {tutor, false, 1});
  EXPECT_NE(Child(hers.Tree().topLevelItem(0), "3º ESO A"), nullptr);
  EXPECT_EQ(Child(hers.Tree().topLevelItem(0), "4º ESO A"), nullptr);
}

TEST_F(OversightTest, ADoubleClickOpensTheScreenWithAllChosen) {
  OpenDemo();
  // Of a subject, and of a whole section.
  for (const auto& [form, subject] : {std::pair{"frmNotaSeccionAlumno1", "Matemáticas (2º ESO A)"},
                                      std::pair{"frmNotaManual1", ""}}) {
    std::vector<std::int32_t> chosen;
    robot_.On(form, [&chosen](qt::FormWindow& window) {
      for (const auto* const name : {"cboSecciones", "cboEvaluaciones", "cboMateria"})
        if (auto* const list = dynamic_cast<ComboBox*>(window.Model().Find(name)))
          chosen.push_back(list->SelectedData());
      window.close();
    });
    InDialog<zendria::StateDialog>("estadoEvaluacion", "estado", [&text = subject](auto& dialog) {
      auto* const section = Child(dialog.Tree().topLevelItem(1), "3º ESO A");
      section->setExpanded(true);
      Q_EMIT dialog.Tree().itemActivated(*text == '\0' ? section : Child(section, text), 0);
    });
    EXPECT_EQ(chosen, (*subject == '\0' ? Data{5, 2} : Data{5, 2, 20})) << form;
  }
}

TEST_F(OversightTest, TheHistoryShowsTheNewestFirstAndSaysWhenItIsOff) {
  {
    zendria::HistoryDialog off(school_);
    EXPECT_TRUE(off.Notice().text().contains("no está activado"));
  }
  GradeHistory(school_).Activate();
  school_.Execute("UPDATE EvaluacionPte SET CodNota=6 WHERE IDEvaluacionPte=3");
  school_.Execute("UPDATE EvaluacionPte SET CodNota=7 WHERE IDEvaluacionPte=3");
  zendria::HistoryDialog dialog(school_);
  ASSERT_EQ(dialog.List().topLevelItemCount(), 2);
  const auto& newest = *dialog.List().topLevelItem(0);
  EXPECT_EQ(newest.text(1), "Domínguez Álvarez, Marina");
  EXPECT_EQ(newest.text(4), "Nota");
  EXPECT_EQ(newest.text(5), dialog.List().topLevelItem(1)->text(6));
  EXPECT_EQ(newest.text(7), "—");
  dialog.Words().setText("dominguez");
  EXPECT_EQ(dialog.List().topLevelItemCount(), 2);
  dialog.Words().setText("nadie");
  EXPECT_EQ(dialog.List().topLevelItemCount(), 0);
  dialog.Words().clear();
  dialog.From().setDate(QDate::currentDate().addDays(1));
  EXPECT_EQ(dialog.List().topLevelItemCount(), 0);
}

TEST_F(OversightTest, ReportsGoIntoAPdfWithAPageForEachStudent) {
  zendria::ReportDialog dialog(school_, "IES Ejemplo", 0);
  ASSERT_EQ(dialog.Sections().count(), 7) << "and all of them";
  dialog.Sections().setCurrentIndex(dialog.Sections().findText("3º ESO A"));
  EXPECT_EQ(dialog.Students().count(), 6) << "all, and each of five";
  const auto file = folder_.filePath("informe.pdf");
  EXPECT_EQ(dialog.SavePdf(file), 5);
  EXPECT_EQ(Content(file.toStdString()).substr(0, 5), "%PDF-");
  EXPECT_FALSE(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther));
  dialog.Students().setCurrentIndex(1);
  EXPECT_EQ(dialog.SavePdf(file), 1);
  dialog.Blank().setChecked(true);
  EXPECT_EQ(dialog.SavePdf(file), 1);
}

TEST_F(OversightTest, APdfThatCantBeWrittenIsToldWhateverStandsThere) {
  zendria::ReportDialog dialog(school_, "IES Ejemplo", 0);
  ASSERT_TRUE(QDir(folder_.path()).mkdir("informe.pdf"));
  static_cast<void>(MakeFile("informe.pdf/algo", QByteArray(5000, 'x')));
  for (const auto* const place : {"informe.pdf", "no/hay/informe.pdf"})
    EXPECT_THAT(NoticeOf([&] { EXPECT_EQ(dialog.SavePdf(folder_.filePath(place)), 0); }),
                StartsWith("No se puede escribir"));
  EXPECT_TRUE(QDir(folder_.path()).entryList({".parcial-*"}, QDir::Files | QDir::Hidden).isEmpty());
}

TEST_F(OversightTest, NothingOnPaperIsWiderThanThePage) {
  SectionReport report{"IES Ejemplo", "03/03/2025", "3º ESO A", {}, {}};
  for (auto i = 1; i <= 5; ++i) report.evaluations.push_back({i, "Evaluación", false});
  report.students.push_back({1, std::string(200, 'x'), {}});
  for (auto i = 1; i <= 40; ++i) {
    ReportSubject subject{std::string(200, 'm'), std::string(200, 'p'), {}};
    for (auto at = 1; at <= 5; ++at)
      subject.grades[at] = {"10", "Sobresaliente", "Sobresaliente", "Notable", "", ""};
    report.students.front().subjects.push_back(subject);
  }
  QTextDocument document;
  const QSizeF page(774, 527);
  zendria::LayOutReport(document, QString::fromStdString(ReportHtml(report)), page);
  EXPECT_LE(document.size().width(), page.width());
  EXPECT_EQ(document.toPlainText().count(QString(200, 'm')), 40);
  for (auto block = document.begin(); block.isValid(); block = block.next())
    for (int line = 0; line < block.layout()->lineCount(); ++line) {
      const auto room = document.documentLayout()->blockBoundingRect(block).width();
      EXPECT_LE(block.layout()->lineAt(line).naturalTextWidth(), room + 1);
    }
}

TEST_F(OversightTest, ARoleIsShownWhatItMayGradeInReportsAndHistory) {
  const auto tutor = demo_.Number("SELECT CodTutor FROM Seccion WHERE IDSeccion=5");
  zendria::ReportDialog all(school_, "IES Ejemplo", 0);
  zendria::ReportDialog hers(school_, "IES Ejemplo", tutor);
  zendria::ReportDialog none(school_, "IES Ejemplo", -1);
  EXPECT_NE(hers.Sections().findText("3º ESO A"), -1);
  EXPECT_LT(hers.Sections().count(), all.Sections().count());
  EXPECT_EQ(none.Sections().count(), 0);
  GradeHistory(school_).Activate();
  school_.Execute("UPDATE EvaluacionPte SET CodNota=CodNota+1 WHERE CodNumEvaluacion=1");
  const auto shown = [this](std::int32_t staff) {
    return zendria::HistoryDialog(school_, staff, nullptr).List().topLevelItemCount();
  };
  EXPECT_EQ(shown(-1), 0);
  EXPECT_GT(shown(tutor), 0);
  EXPECT_LT(shown(tutor), shown(0));
}

TEST_F(OversightTest, ATeacherDoesNotImport) {
  OpenDemo();
  EXPECT_TRUE(window_->findChild<QAction*>("importarRegistro")->isEnabled());
  school_.Execute("UPDATE Usuario SET CodPerfil=3, AdminSistema=0 WHERE IDUsuario=1");
  OpenDemo();
  EXPECT_FALSE(window_->findChild<QAction*>("importarRegistro")->isEnabled());
  EXPECT_TRUE(window_->findChild<QAction*>("historialNotas")->isEnabled());
}

TEST_F(OversightTest, TheHistoryGoesByThisComputersDaysAndKeepsItsNotice) {
  const auto zone = qgetenv("TZ");
  qputenv("TZ", "Etc/GMT+11");
  tzset();
  GradeHistory history(school_);
  history.Activate();
  // Of the third of March in UTC, and of the second here.
  school_.Execute(
      "INSERT INTO HistorialNotas (Momento, Columna, CodAlumno, CodMatDet, "
      "CodNumEvaluacion) VALUES ('2025-03-03 05:00:00.000','CodNota',29,20,1)");
  history.Deactivate();
  zendria::HistoryDialog dialog(school_);
  dialog.From().setDate(QDate(2025, 3, 3));
  EXPECT_EQ(dialog.List().topLevelItemCount(), 0);
  dialog.From().setDate(QDate(2025, 3, 2));
  EXPECT_EQ(dialog.List().topLevelItemCount(), 1);
  dialog.To().setDate(QDate(2025, 3, 2));
  ASSERT_EQ(dialog.List().topLevelItemCount(), 1);
  EXPECT_EQ(dialog.List().topLevelItem(0)->text(0), "02/03/2025 18:00:00");
  dialog.Words().setText("nadie");
  EXPECT_TRUE(dialog.Notice().text().contains("desactivado"))
      << dialog.Notice().text().toStdString();
  zone.isNull() ? qunsetenv("TZ") : qputenv("TZ", zone);
  tzset();
}

TEST_F(OversightTest, AWidthThatWasSetAndATreeThatCantBeReadStay) {
  zendria::StateDialog dialog(school_, all_);
  auto& tree = dialog.Tree();
  Child(tree.topLevelItem(1), "3º ESO A")->setExpanded(true);
  tree.header()->resizeSection(1, 333);
  dialog.Refresh();
  EXPECT_EQ(tree.columnWidth(1), 333);
  school_.Execute("ALTER TABLE EvaluacionActaPte RENAME TO Otra");
  EXPECT_NE(NoticeOf([&] { dialog.Refresh(); }), "");
  auto* const section = Child(tree.topLevelItem(1), "3º ESO A");
  ASSERT_NE(section, nullptr) << "what was read before stands";
  EXPECT_TRUE(section->isExpanded());
}

TEST_F(OversightTest, AFileIsLookedUpAndThenImported) {
  const auto file = MakeFile("registro.csv",
                             "alumno;sección;materia;curso;evaluaciones\n"
                             "32;3º ESO A;Matemáticas;2º ESO B;todas\n"
                             "9999;3º ESO A;Matemáticas;2º ESO B;todas\n");
  OpenDemo();
  const auto pending = [this] { return demo_.Number("SELECT COUNT(*) FROM AlumnoPte_MatDet"); };
  const auto before = pending();
  InDialog<zendria::ImportDialog>("importarRegistro", "importar", [&](auto& dialog) {
    EXPECT_FALSE(dialog.ImportButton().isEnabled());
    dialog.Choose(file);
    EXPECT_TRUE(dialog.List().item(0)->text().startsWith("No encaja. Línea 3: "));
    EXPECT_FALSE(dialog.ImportButton().isEnabled()) << "not all fits";
    EXPECT_EQ(pending(), before);
    dialog.WhatFits().setChecked(true);
    dialog.ImportButton().click();
    EXPECT_TRUE(dialog.Notice().text().startsWith("Importadas 1 materias"));
    EXPECT_FALSE(dialog.ImportButton().isEnabled()) << "done";
    dialog.reject();
  });
  EXPECT_EQ(pending(), before + 1);
  // The screens are this program's own again.
  CloseNext("frmPendientes");
  Play(123);
}

TEST_F(OversightTest, AFailedReadingIsToldOnceAndStopsTheClock) {
  zendria::StateDialog dialog(school_, all_);
  school_.Execute("ALTER TABLE BloqueoPte RENAME TO Otra");
  EXPECT_TRUE(dialog.Clock().isActive());
  EXPECT_THAT(NoticeOf([&] { dialog.Refresh(); }), HasSubstr("BloqueoPte"));
  EXPECT_FALSE(dialog.Clock().isActive());
  school_.Execute("ALTER TABLE Otra RENAME TO BloqueoPte");
  dialog.Refresh();
  EXPECT_TRUE(dialog.Clock().isActive());
}

TEST_F(OversightTest, TheClockStandsWhileAFailureIsRead) {
  zendria::StateDialog dialog(school_, all_);
  auto& section = *Child(dialog.Tree().topLevelItem(1), "3º ESO A");
  school_.Execute("ALTER TABLE BloqueoPte RENAME TO Otra");
  auto told = 0;
  const auto meanwhile = [&](QWidget& box) {
    EXPECT_FALSE(dialog.Clock().isActive()) << told;
    ++told;
    dynamic_cast<QDialog&>(box).accept();
  };
  robot_.OnDialog("aviso", meanwhile);
  section.setExpanded(true);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(section.childCount(), 0);
  robot_.OnDialog("aviso", meanwhile);
  dialog.Refresh();
  robot_.OnDialog("aviso", meanwhile);
  zendria::StateDialog failed(school_, all_);
  EXPECT_EQ(told, 3);
  EXPECT_FALSE(failed.Clock().isActive());
  school_.Execute("ALTER TABLE Otra RENAME TO BloqueoPte");
  section.setExpanded(false);
  section.setExpanded(true);
  EXPECT_GT(section.childCount(), 0) << "tried again";
}

TEST_F(OversightTest, TheHistoryOfACellNamesItsEvaluation) {
  HistoryFilter cell;
  cell.evaluation = 2;
  const zendria::HistoryDialog dialog(school_, cell, "una", nullptr);
  EXPECT_EQ(dialog.findChild<QComboBox*>()->currentText(), "2ª Evaluación");
}

TEST_F(OversightTest, ASectionOfAnyNameNamesItsPdf) {
  school_.Execute("UPDATE Seccion SET Descripcion='A/B' WHERE IDSeccion=5");
  zendria::ReportDialog dialog(school_, "IES Ejemplo", 0);
  dialog.Sections().setCurrentIndex(dialog.Sections().findText("A/B", Qt::MatchContains));
  QString name;
  robot_.OnDialog<QFileDialog>("ficheroPdf", [&name](auto& asked) {
    name = asked.template findChild<QLineEdit*>("fileNameEdit")->text();
    asked.reject();
  });
  Button(dialog, "Guardar &PDF…").click();
  EXPECT_TRUE(name.endsWith("A-B.pdf")) << name.toStdString();
  EXPECT_FALSE(name.contains(u'/')) << "no folder of its own";
}

TEST_F(OversightTest, AReportOnAFullDiskIsTold) {
  zendria::ReportDialog dialog(school_, "IES Ejemplo", 0);
  std::optional<LongestFile> full;
  PrintInto(folder_.filePath("informe.pdf"), [&full](auto&) { full.emplace(2000); });
  const auto text = NoticeOf([&] { Button(dialog, "&Imprimir…").click(); });
  full.reset();
  EXPECT_THAT(text, StartsWith("No se ha podido escribir «"));
}

}  // namespace
}  // namespace quorvane::test

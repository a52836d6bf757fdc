// What the report's dialog makes of what is chosen in it, by its own buttons.

#include <QDir>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QProgressDialog>
#include <gtest/gtest.h>

#include "apps/escuela/report/ReportText.h"
#include "apps/zendria/ReportDialog.h"
#include "apps/zendria/SectionPdfs.h"
#include "tests/zendria/DemoHost.h"
#include "tests/zendria/TextPrinter.h"

namespace quorvane::test {
namespace {

class ReportDialogTest : public DemoHost {
 protected:
  /// Opens the dialog from the menu, and does that in it.
  void InReport(const std::function<void(zendria::ReportDialog&)>& step) {
    OpenDemo();
    InDialog<zendria::ReportDialog>("informePendientes", "informe", [&step](auto& dialog) {
      step(dialog);
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
  }
  static void Press(zendria::ReportDialog& dialog, const char* button) {
    QTest::mouseClick(dialog.findChild<QAbstractButton*>(button), Qt::LeftButton);
  }
  /// By the keyboard.
  static void Choose(zendria::ReportDialog& dialog, const char* list, const QString& text) {
    auto* const box = dialog.findChild<QComboBox*>(list);
    ASSERT_TRUE(box->isEnabled()) << list;
    QTest::keyClick(box, Qt::Key_Home);
    for (int row = 0; row < box->count() && box->currentText() != text; ++row)
      QTest::keyClick(box, Qt::Key_Down);
    EXPECT_EQ(box->currentText(), text);
  }
  static void ChooseAllSections(zendria::ReportDialog& dialog) {
    QTest::keyClick(&dialog.Sections(), Qt::Key_End);
    EXPECT_EQ(dialog.Sections().currentText(), "Todas las secciones");
  }
  static void TickBlank(zendria::ReportDialog& dialog) {
    QTest::keyClick(&dialog.Blank(), Qt::Key_Space);
    EXPECT_TRUE(dialog.Blank().isChecked());
  }
  /// The texts of the pages that the button shows beforehand, a text a page.
  QStringList Previewed(zendria::ReportDialog& dialog) {
    QStringList pages;
    robot_.OnDialog<QPrintPreviewDialog>("vistaPrevia", [&pages](auto& shown) {
      TextPrinter paper;
      Q_EMIT shown.paintRequested(&paper);
      for (const auto& page : paper.Pages()) pages.append(page.join(u' '));
      QTest::keyClick(&shown, Qt::Key_Escape);
    });
    Press(dialog, "vistaPrevia");
    return pages;
  }
  /// Answers the next question for a file or a folder.
  void Name(const char* question, const QString& path) {
    robot_.OnDialog(question, [path](QWidget& dialog) {
      auto* const name = dialog.findChild<QLineEdit*>("fileNameEdit");
      name->setText(path);
      QTest::keyClick(name, Qt::Key_Return);
    });
  }
  QStringList Pdfs(const QString& folder) const {
    return QDir(folder_.filePath(folder)).entryList(QDir::Files);
  }
  /// A folder of the test's own.
  QString Folder(const QString& name) const {
    EXPECT_TRUE(QDir(folder_.path()).mkdir(name));
    return folder_.filePath(name);
  }
};

TEST_F(ReportDialogTest, ABlankSheetIsOfASubjectAsWellAsOfASection) {
  InReport([this](auto& dialog) {
    Choose(dialog, "seccion", "3º ESO A");
    EXPECT_FALSE(dialog.Subjects().isEnabled());
    TickBlank(dialog);
    const auto section = Previewed(dialog);
    ASSERT_FALSE(section.isEmpty());
    EXPECT_TRUE(section.front().contains("materias pendientes. 3º ESO A. "));
    Press(dialog, "porMateria");
    EXPECT_FALSE(dialog.Sections().isEnabled());
    Choose(dialog, "materia", "Matemáticas (2º ESO A)");
    const auto subject = Previewed(dialog);
    ASSERT_EQ(subject.size(), 1);
    const auto& page = subject.front();
    EXPECT_TRUE(page.contains("Hoja de notas")) << page.toStdString();
    EXPECT_TRUE(page.contains("Observación"));
    EXPECT_EQ(page.count("Matemáticas (2º ESO A)"),
              1 + demo_.Number("SELECT COUNT(*) FROM AlumnoPte_MatDet WHERE CodMatDet=20"))
        << page.toStdString();
    EXPECT_FALSE(page.contains("Música"));
    Name("ficheroPdf", folder_.filePath("hoja.pdf"));
    Press(dialog, "guardarPdf");
  });
  EXPECT_EQ(PdfPages(folder_.filePath("hoja.pdf")), 1);
}

TEST_F(ReportDialogTest, ASubjectIsOfThoseThatArePendingAndInItsReportToo) {
  InReport([this](auto& dialog) {
    EXPECT_EQ(dialog.Subjects().count(),
              demo_.Number("SELECT COUNT(DISTINCT CodMatDet) FROM AlumnoPte_MatDet"));
    Press(dialog, "porMateria");
    Choose(dialog, "materia", "Matemáticas (2º ESO A)");
    const auto pages = Previewed(dialog);
    EXPECT_EQ(pages.size(), 2) << "one of each student";
    EXPECT_TRUE(pages.join(u' ').contains("Domínguez Álvarez, Marina"));
    EXPECT_TRUE(pages.join(u' ').contains("Ortega García, Javier"));
  });
}

TEST_F(ReportDialogTest, AllSectionsComeOutInOneRunBehindEachOther) {
  InReport([this](auto& dialog) {
    ChooseAllSections(dialog);
    EXPECT_FALSE(dialog.Students().isEnabled());
    const auto pages = Previewed(dialog);
    EXPECT_EQ(pages.size(), demo_.Number("SELECT COUNT(DISTINCT CodAlumno) FROM AlumnoPte_MatDet"));
    TickBlank(dialog);
    const auto sheets = Previewed(dialog);
    EXPECT_GE(sheets.size(), 6);
    for (int section = 0; section < 6; ++section) {
      const auto place = "materias pendientes. " + dialog.Sections().itemText(section) + ". ";
      EXPECT_EQ(sheets.filter(place).size(), 1) << place.toStdString();
      EXPECT_FALSE(pages.filter(place).isEmpty()) << place.toStdString();
    }
    PrintInto(folder_.filePath("todas.pdf"));
    Press(dialog, "enPapel");
    EXPECT_EQ(PdfPages(folder_.filePath("todas.pdf")), sheets.size());
    Name("carpetaPdf", Folder("todas"));
    Press(dialog, "guardarPdf");
    EXPECT_EQ(dialog.Notice().text(), "Escritas 6 de 6 secciones en " + folder_.filePath("todas"));
  });
  const auto files = Pdfs("todas");
  EXPECT_EQ(files.size(), 6);
  EXPECT_TRUE(files.contains("3º ESO A.pdf"));
  for (const auto& file : files) EXPECT_GE(PdfPages(folder_.filePath("todas/" + file)), 1);
}

TEST_F(ReportDialogTest, ASectionThatCantBeMadeIsNamedAndTheOthersComeOut) {
  demo_.Sql(
      "UPDATE EvaluacionPte SET CodNota='no' WHERE CodAlumnoPte_MatDet IN (SELECT "
      "IDAlumnoPte_MatDet FROM AlumnoPte_MatDet INNER JOIN Alumno ON IDAlumno=CodAlumno WHERE "
      "CodSeccion=5)");
  const auto folder = Folder("todas");
  static_cast<void>(MakeFile("todas/4º ESO A.pdf", "de antes"));
  std::string told;
  InReport([&](auto& dialog) {
    ChooseAllSections(dialog);
    ReadNotice(told);
    const auto pages = Previewed(dialog);
    EXPECT_THAT(told, StartsWith("No se han podido hacer: 3º ESO A. Las demás"));
    EXPECT_TRUE(pages.filter("pendientes. 3º ESO A. ").isEmpty());
    EXPECT_FALSE(pages.filter("pendientes. 4º ESO A. ").isEmpty());
    ReadNotice(told);
    Name("carpetaPdf", folder);
    Press(dialog, "guardarPdf");
    EXPECT_THAT(told, AllOf(StartsWith("No se han podido hacer: 3º ESO A, 4º ESO A. Las demás"),
                            HasSubstr("4º ESO A.pdf: el archivo ya existe")));
    EXPECT_EQ(dialog.Notice().text(), "Escritas 4 de 6 secciones en " + folder);
  });
  EXPECT_EQ(Pdfs("todas").size(), 5);
  EXPECT_EQ(PdfPages(folder + "/4º ESO A.pdf"), -1) << "what stood there stands";
}

TEST_F(ReportDialogTest, WhatIsCancelledLeavesNothing) {
  QWidget window;
  const ReportReader reader(demo_.Db(), "IES Ejemplo", "03/03/2025");
  const auto folder = folder_.filePath("todas");
  auto made = 0;
  const auto run = zendria::WriteSectionPdfs(&window, reader, folder, [&](const auto& report) {
    if (++made == 3) window.findChild<QProgressDialog*>()->cancel();
    return QString::fromStdString(BlankSheetHtml(report));
  });
  EXPECT_EQ(made, 3);
  EXPECT_EQ(run.sections, 0U);
  EXPECT_FALSE(QDir(folder).exists());
}

TEST_F(ReportDialogTest, WhoMayGradeNothingIsOfferedNothing) {
  const zendria::ReportDialog none(demo_.Db(), "IES Ejemplo", -1);
  for (const auto* const button : {"vistaPrevia", "enPapel", "guardarPdf"})
    EXPECT_FALSE(none.findChild<QAbstractButton*>(button)->isEnabled()) << button;
  EXPECT_EQ(none.findChild<QLabel*>("resultado")->text(),
            "Ningún alumno tiene materias pendientes.");
  const auto teacher = demo_.Number("SELECT CodProfesor FROM Profesor_Pte WHERE CodMatDet=20");
  zendria::ReportDialog hers(demo_.Db(), "IES Ejemplo", teacher);
  EXPECT_NE(hers.Subjects().findText("Matemáticas (2º ESO A)"), -1);
  EXPECT_LT(hers.Subjects().count(), zendria::ReportDialog(demo_.Db(), "", 0).Subjects().count());
}

}  // namespace
}  // namespace quorvane::test

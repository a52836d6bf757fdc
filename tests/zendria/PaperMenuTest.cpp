// Grids and lists into a spreadsheet's file and onto paper, from their menu.

#include <QContextMenuEvent>
#include <QDate>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenu>
#include <QPrintDialog>
#include <QPrinter>
#include <gtest/gtest.h>
#include <optional>

#include "apps/zendria/PaperSheet.h"
#include "apps/zendria/SheetCsv.h"
#include "apps/zendria/SheetPrinter.h"
#include "platform/controls/Control.h"
#include "tests/device/Device.h"
#include "tests/zendria/RescueTest.h"
#include "tests/zendria/TextPrinter.h"

namespace quorvane::test {
namespace {

using zendria::CsvOf;
using zendria::Sheet;

TEST(SheetCsvTest, QuotesWhatASpreadsheetWouldTakeApart) {
  const Sheet sheet{.headings = {"Alumno", "Nota"},
                    .rows = {{"Díaz; Marta", "7,5"}, {"dice \"no\"", " a"}, {"a\nb", ""}}};
  EXPECT_EQ(CsvOf(sheet, u';').toStdString(),
            "\xEF\xBB\xBF"
            "Alumno;Nota\r\n\"Díaz; Marta\";7,5\r\n\"dice \"\"no\"\"\";\" a\"\r\n\"a\nb\";\r\n");
  EXPECT_EQ(CsvOf({.rows = {{"7,5"}}}, u',').toStdString(), "\xEF\xBB\xBF\"7,5\"\r\n");
}

TEST(SheetCsvTest, PartsCellsAsTheCountryDoes) {
  EXPECT_EQ(zendria::CsvSeparator(QLocale("es_ES")), u';');
  EXPECT_EQ(zendria::CsvSeparator(QLocale("es_MX")), u',');
}

/// A list of so many rows, the first of them with a text that wraps.
Sheet ManyRows(int count) {
  Sheet sheet{.title = "Notas", .lines = {"2º ESO A"}, .headings = {"Alumno", "Observación"}};
  for (int row = 0; row < count; ++row)
    sheet.rows.push_back({QStringLiteral("Alumno %1").arg(row),
                          row == 0 ? QString("trabaja y mejora ").repeated(60) : QString()});
  return sheet;
}

TEST(SheetPrinterTest, PutsAllRowsOnPagesAndThoseThatWereAskedFor) {
  const QTemporaryDir folder;
  const auto file = folder.filePath("x.pdf");
  const auto print = [&file](const Sheet& sheet, int from, int to) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(file);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setFromTo(from, to);
    EXPECT_TRUE(zendria::PrintSheet(sheet, printer));
    return PdfPages(file);
  };
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(QPageSize(QPageSize::A4));
  EXPECT_EQ(zendria::PagesOf(ManyRows(0), printer), 1);
  const auto pages = zendria::PagesOf(ManyRows(150), printer);
  EXPECT_GE(pages, 3);
  EXPECT_LE(pages, 6);
  EXPECT_EQ(print(ManyRows(150), 0, 0), pages);
  EXPECT_EQ(print(ManyRows(150), 2, 3), 2);
  EXPECT_EQ(print(ManyRows(1), 0, 0), 1);
}

TEST(SheetPrinterTest, PutsTitleLinesHeadingsDateAndNumberOnEachPage) {
  TextPrinter printer;
  ASSERT_TRUE(zendria::PrintSheet(ManyRows(150), printer));
  const auto& pages = printer.Pages();
  ASSERT_GE(pages.size(), 3U);
  qsizetype rows = 0;
  for (std::size_t at = 0; at < pages.size(); ++at) {
    const auto& texts = pages[at];
    SCOPED_TRACE(texts.join(u'|').toStdString());
    EXPECT_EQ(texts.mid(0, 4), QStringList({"Notas", "2º ESO A", "Alumno", "Observación"}));
    EXPECT_EQ(texts.mid(texts.size() - 2),
              QStringList({QDate::currentDate().toString("dd/MM/yyyy"),
                           QStringLiteral("Página %1 de %2").arg(at + 1).arg(pages.size())}));
    rows += texts.filter("Alumno ").size();
  }
  EXPECT_EQ(rows, 150);
}

class PaperMenuTest : public RescueTest {
 protected:
  PaperMenuTest() { QLocale::setDefault(QLocale("es_ES")); }
  ~PaperMenuTest() override { QLocale::setDefault(before_); }

  /// What is printed of that control above its rows.
  static std::string Above(const Window& window, const char* control, const QString& place = {}) {
    const auto sheet = zendria::PaperSheet(*window.Model().Find(control), place);
    if (!sheet) return "nothing";
    TextPrinter printer;
    EXPECT_TRUE(zendria::PrintSheet(*sheet, printer));
    return printer.Pages().front().mid(0, 1 + sheet->lines.size()).join(u'|').toStdString();
  }
  /// Opens the menu of that control as the right button does; null without one.
  static QMenu* Open(const Window& window, const char* control) {
    auto* const view = dynamic_cast<QAbstractItemView*>(window.Widget(control));
    auto* const on = view == nullptr ? window.Widget(control) : view->viewport();
    const QPoint where(5, 5);
    QContextMenuEvent event(QContextMenuEvent::Mouse, where, on->mapToGlobal(where));
    QApplication::sendEvent(on, &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
  }
  /// Chooses that entry of it by the keyboard.
  static void ChooseOn(const Window& window, const char* control, const char* entry) {
    auto* const menu = Open(window, control);
    ASSERT_NE(menu, nullptr);
    auto* const action = menu->findChild<QAction*>(entry);
    ASSERT_NE(action, nullptr);
    menu->setActiveAction(action);
    QTest::keyClick(menu, Qt::Key_Return);
    QCoreApplication::processEvents();
  }
  /// The next file that is asked for.
  void SaveAs(const QString& file) {
    robot_.OnDialog("guardarCsv", [file](QWidget& dialog) {
      auto* const name = dialog.findChild<QLineEdit*>("fileNameEdit");
      EXPECT_TRUE(name->text().endsWith(".csv"));
      name->setText(file);
      QTest::keyClick(name, Qt::Key_Return);
    });
  }
  static std::string Csv(const std::string& text) { return "\xEF\xBB\xBF" + text; }

  const QLocale before_;
  const QString file_ = folder_.filePath("notas.csv");
};

TEST_F(PaperMenuTest, AGridIsSavedAsItIsSeen) {
  Visit(kByStudent, [this](Window& window) {
    Robot::Grade(window, 0, 1, "7");
    SaveAs(file_);
    ChooseOn(window, "rtvNotasAlumno", "guardarCsv");
  });
  EXPECT_EQ(FileBytes(file_).toStdString(),
            Csv("Materia;Nota;Observación\r\nLengua (1º ESO);7;\r\n"));
  EXPECT_FALSE(QFile::permissions(file_) & (QFile::ReadGroup | QFile::ReadOther));
}

TEST_F(PaperMenuTest, SoAreTheListsOfStepOne) {
  robot_.On("frmNotaManual1", [this](Window& window) {
    Robot::Pick(window, "cboTipoEnsenanza", "ESO");
    SaveAs(file_);
    ChooseOn(window, "cboCursos", "guardarCsv");
    Robot::Click(window, "cmdNotaManual1(1)");
  });
  Play(124);
  EXPECT_EQ(FileBytes(file_).toStdString(), Csv("Curso\r\n1º ESO\r\n2º ESO\r\n3º ESO\r\n"));
}

TEST_F(PaperMenuTest, AboveAListOfStepOneStandsWhatWasChosenBeforeIt) {
  robot_.On("frmNotaSeccionAlumno1", [](Window& window) {
    PickSection(window);
    const auto title = window.Model().Caption();
    EXPECT_EQ(Above(window, "cboCursos"), title + "|Curso");
    EXPECT_EQ(Above(window, "cboSecciones"), title + "|2º ESO|Sección");
    EXPECT_EQ(Above(window, "cboEvaluaciones"), title + "|2º ESO A|Evaluación");
    EXPECT_EQ(Above(window, "cboMateria"), title + "|2º ESO A · 1ª Evaluación|Materia");
    Robot::Click(window, "cmdNotaManual1(1)");
  });
  Play(127);
}

TEST_F(PaperMenuTest, AboveAGridStandsWhatStandsOverTheForm) {
  Visit(kBySubject, [this](Window& window) {
    const auto place = window.findChild<QLabel*>("dondeEstoy")->text();
    EXPECT_TRUE(place.startsWith("2º ESO A · 1ª Evaluación · Materia 1 de 2: Lengua"));
    EXPECT_EQ(Above(window, "rtvNotasAlumno", place),
              window.Model().Caption() + '|' + place.toStdString());
    // The menu takes it from there itself.
    robot_.OnDialog("guardarCsv", [](QWidget& dialog) {
      EXPECT_TRUE(dialog.findChild<QLineEdit*>("fileNameEdit")
                      ->text()
                      .startsWith("2º ESO A - 1ª Evaluación - Materia 1 de 2"));
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ChooseOn(window, "rtvNotasAlumno", "guardarCsv");
  });
}

TEST_F(PaperMenuTest, AFileThatCanNotBeWrittenIsTold) {
  std::string text;
  Visit(kByStudent, [this, &text](Window& window) {
    SaveAs("/proc/notas.csv");
    ReadNotice(text);
    ChooseOn(window, "rtvNotasAlumno", "guardarCsv");
  });
  EXPECT_THAT(text, StartsWith("No se ha podido escribir «/proc/notas.csv»"));
}

TEST_F(PaperMenuTest, EveryGridAndListThatCanBeReachedHasIt) {
  std::vector<std::string> seen;
  const auto look = [&seen](Window& window) {
    for (const auto* const control : window.Model().Controls()) {
      const auto kind = control->Kind();
      const auto lists =
          kind == "Retivo" || kind == "MSFlexGrid" || kind == "ListBox" || kind == "ComboBox";
      if (!lists || !control->Usable()) continue;
      SCOPED_TRACE(window.Model().Name() + '.' + control->Name());
      const auto* const menu = Open(window, control->Name().c_str());
      ASSERT_NE(menu, nullptr);
      EXPECT_NE(menu->findChild<QAction*>("guardarCsv"), nullptr);
      EXPECT_NE(menu->findChild<QAction*>("imprimir"), nullptr);
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      seen.push_back(control->Name());
    }
  };
  const auto on = [this, &look](const char* form, const std::vector<Robot::Deed>& deeds) {
    const auto act = Doing(deeds);
    robot_.On(form, [look, act](Window& window) {
      look(window);
      act(window);
    });
  };
  on("frmPendientes",
     {{"cboTEnsenanza", "ESO"}, {"cboCurso", "2"}, {"cboSeccion", "A"}, "cmdAceptar"});
  on("frmAlumnoPendiente", {"cmdListar", {"msgAlumnos", 0}, "cmdPropiedades", "cmdCancelar"});
  on("frmAlumnos", {"cmdCancelar"});
  on("frmAlumnoMateria", {"cmdAgregar", {"msgMaterias", 0}, "cmdPropiedades", "cmdCancelar"});
  on("frmMateriaPend", {"cmdCancelar"});
  on("frmMateriaEv", {"cmdCancelar"});
  Play(123);
  on("frmNotaSeccionAlumno1", {"cmdNotaManual1(1)"});
  Play(127);
  Visit(kByStudent.Final(), look);
  for (const auto* const one : {"cboTEnsenanza", "msgAlumnos", "lstDisponibles", "lstSeleccionados",
                                "msgMaterias", "cboTipoEnsenanza", "cboAlumnos", "rtvNotasAlumno"})
    EXPECT_THAT(seen, Contains(one));
}

TEST_F(PaperMenuTest, AGridIsPrintedIntoAPdf) {
  Visit(kBySubject, [this](Window& window) {
    PrintInto(folder_.filePath("notas.pdf"),
              [](const QPrintDialog& dialog) { EXPECT_EQ(dialog.maxPage(), 1); });
    ChooseOn(window, "rtvNotasAlumno", "imprimir");
  });
  EXPECT_EQ(PdfPages(folder_.filePath("notas.pdf")), 1);
}

TEST_F(PaperMenuTest, APdfThatAFullDiskCutsShortIsTold) {
  std::string text;
  Visit(kBySubject, [this, &text](Window& window) {
    std::optional<LongestFile> full;
    PrintInto(folder_.filePath("notas.pdf"), [&full](auto&) { full.emplace(2000); });
    ReadNotice(text);
    ChooseOn(window, "rtvNotasAlumno", "imprimir");
  });
  EXPECT_THAT(text, StartsWith("No se ha podido escribir «"));
  EXPECT_EQ(QFileInfo(folder_.filePath("notas.pdf")).size(), 2000);
}

}  // namespace
}  // namespace quorvane::test

// Where the grades go that a screen has left without saving, and how the user gets at them.

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <optional>
#include <sys/stat.h>

#include "apps/zendria/SchoolPlace.h"
#include "tests/device/Device.h"
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

class RescueFileTest : public RescueTest {
 protected:
  /// One grade is typed, and can't be saved.
  const Step gradeAndAccept = Doing({{0, 1, "7"}, "cmdAceptar"});

  /// The path of the only file.
  [[nodiscard]] std::string TheFile() const {
    return (Folder() + '/' + Files().value(0)).toStdString();
  }
  /// No folder can be made where the files go.
  void BlockFolder() const { QFile(Folder()).open(QIODevice::WriteOnly); }
};

TEST_F(RescueFileTest, AFailedSaveLeavesTheGradesInAFileThatTheErrorNames) {
  FullAt(1);
  const auto text =
      Fail(Doing({{0, 1, "7"}, "cmdSiguiente", {1, 1, "3"}, {1, 5, "Mejora"}, "cmdAceptar"}));
  ASSERT_EQ(Files().size(), 1);
  EXPECT_THAT(text, AllOf(StartsWith("Error -2147467259: database or disk is full\n"),
                          HasSubstr("3 notas"), HasSubstr('\n' + TheFile() + '\n')));
  EXPECT_THAT(Cells(),
              ElementsAre(Line(kJorge, kLengua, "Nota", "7"), Line(kMarta, kMates, "Nota", "3"),
                          Line(kMarta, kMates, "Observación", "Mejora")));
}

TEST_F(RescueFileTest, TheFileIsTheUsersAloneWhateverTheMask) {
  FullAt(1);
  const auto mask = umask(0);
  Fail(gradeAndAccept);
  umask(0277);
  school_.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
  AnswerDraft("descartarlas");
  Fail(Doing({{0, 1, "8"}, "cmdAceptar"}));
  umask(mask);
  ASSERT_EQ(Files().size(), 2) << "the first was not overwritten";
  for (const auto& file : Files()) EXPECT_EQ(Mode(Folder() + '/' + file), 0600U);
  EXPECT_EQ(Mode(Folder()), 0700U);
}

TEST_F(RescueFileTest, TheFileTellsAllThatIsNeededToTypeThemAgain) {
  FullAt(1);
  Fail(gradeAndAccept);
  const auto name = QFileInfo(school_.Path().c_str()).completeBaseName();
  ASSERT_EQ(Files().size(), 1);
  EXPECT_THAT(Files()[0].toStdString(),
              testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2}-[0-9]{6}-" + name.toStdString() +
                                    "\\.txt"));
  auto content = QString::fromUtf8(Content());
  content.replace(QRegularExpression("Fecha: \\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d:\\d\\d\n"),
                  "Fecha: F\n");
  EXPECT_EQ(content.toStdString(),
            "Notas sin guardar\n"
            "Escuela: " +
                school_.Path() +
                "\n"
                "Pantalla: Por alumno (frmNotaManual)\n"
                "Tipo de enseñanza: ESO\n"
                "Curso: 2º ESO\n"
                "Sección: A\n"
                "Evaluación: 1ª Evaluación\n"
                "Usuario: Dirección\n"
                "Fecha: F\n"
                "Error -2147467259: database or disk is full\n"
                "\n"
                "1 Abad Rey, Jorge\tLengua (1º ESO)\tNota\t7\n");
}

TEST_F(RescueFileTest, ADiskThatIsReallyFullLosesNothing) {
  std::optional<LongestFile> full;
  const auto text = Fail([&full](Window& window) {
    Robot::Grade(window, 0, 1, "7");
    full.emplace(2048);  // less than a page of the school, more than the grades
    Robot::Click(window, "cmdAceptar");
  });
  full.reset();
  EXPECT_THAT(text, HasSubstr("No queda espacio en el disco"));
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "7")));
}

/// While it lives, the folder for temporary files is another.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const QString& path) : before_(qgetenv("TMPDIR")) {
    qputenv("TMPDIR", path.toUtf8());
  }
  ~TemporaryFolder() { qputenv("TMPDIR", before_); }
  TemporaryFolder(TemporaryFolder&&) = delete;

 private:
  QByteArray before_;
};

TEST_F(RescueFileTest, WithoutItsFolderTheFileGoesAmongTheTemporaryOnes) {
  BlockFolder();
  ASSERT_TRUE(QDir(folder_.path()).mkdir("tmp"));
  const TemporaryFolder temporary(folder_.filePath("tmp"));
  FullAt(1);
  const auto text = Fail(gradeAndAccept);
  const QDir tmp(folder_.filePath("tmp"));
  const auto made = tmp.entryList({"zendria-*"}, QDir::Dirs);
  ASSERT_EQ(made.size(), 1);
  EXPECT_EQ(Mode(tmp.filePath(made[0])), 0700U);
  const QDir folder(tmp.filePath(made[0]));
  const auto files = folder.entryList(QDir::Files | QDir::Hidden);
  ASSERT_EQ(files.size(), 1);
  EXPECT_EQ(Mode(folder.filePath(files[0])), 0600U);
  EXPECT_THAT(text, HasSubstr('\n' + folder.filePath(files[0]).toStdString() + '\n'));
}

TEST_F(RescueFileTest, WhereNoFileCanBeWrittenTheBoxShowsTheGrades) {
  BlockFolder();
  const TemporaryFolder temporary(MakeFile("tmp", "no folder"));
  FullAt(1);
  StepOne(kByStudent);
  robot_.On("frmNotaManual", gradeAndAccept);
  robot_.OnDialog<QMessageBox>("aviso", [](auto& box) {
    EXPECT_TRUE(box.informativeText().contains("no se ha podido escribir ningún fichero"))
        << box.informativeText().toStdString();
    // Closed whatever it holds, lest the test hang.
    const auto grades = box.template findChildren<QPlainTextEdit*>("notas");
    EXPECT_EQ(grades.size(), 1);
    for (auto* const text : grades) {
      EXPECT_TRUE(text->isVisible());
      EXPECT_GE(text->height(), 5 * text->fontMetrics().height());
      EXPECT_THAT(CellsOf(text->toPlainText().toUtf8()),
                  ElementsAre(Line(kJorge, kLengua, "Nota", "7")));
    }
    box.accept();
  });
  Play(124);
}

TEST_F(RescueFileTest, AButtonOfTheBoxShowsTheGrades) {
  FullAt(1);
  StepOne(kByStudent);
  robot_.On("frmNotaManual", gradeAndAccept);
  robot_.OnDialog("notasSinGuardar", [this](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>("fichero")->text().toStdString(), TheFile());
    EXPECT_EQ(dialog.findChild<QPlainTextEdit*>()->toPlainText().toUtf8(), Content());
    QTest::mouseClick(dialog.findChild<QPushButton*>("copiarNotas"), Qt::LeftButton);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toUtf8(), Content());
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  robot_.OnDialog("aviso", [](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QPlainTextEdit*>("notas"), nullptr) << "the file has them";
    QTest::mouseClick(dialog.findChild<QPushButton*>("mostrarNotas"), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    // What goes to support names the file, and no student.
    QTest::mouseClick(dialog.findChild<QPushButton*>("copiar"), Qt::LeftButton);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  Play(124);
  EXPECT_THAT(
      QGuiApplication::clipboard()->text().toStdString(),
      AllOf(HasSubstr("\nNotas sin guardar: 1, en " + TheFile() + '\n'), Not(HasSubstr("Abad"))));
}

// Texts of the database may hold anything; a cell stays a line of four.
TEST_F(RescueFileTest, TabsAndLineBreaksInTextsAreBlanks) {
  school_.Sql("UPDATE Alumno SET Nombre='Jor'||char(9)||'ge'||char(10)||'Luis' WHERE IDAlumno=3");
  FullAt(1);
  Fail(gradeAndAccept);
  EXPECT_THAT(Cells(), ElementsAre(Line("1 Abad Rey, Jor ge Luis", kLengua, "Nota", "7")));
}

constexpr const char* kDoubt = "alguna de estas notas puede estar guardada";

// What was written into a file that has lost its name is lost with it.
TEST_F(RescueFileTest, OfASchoolThatIsGoneAllIsKept) {
  const QString elsewhere = SchoolFile() + ".aparte";
  FullAt(2);
  Fail([&](Window& window) {
    Robot::Grade(window, 0, 1, "7");
    ASSERT_TRUE(QFile::rename(SchoolFile(), elsewhere));
    Robot::Click(window, "cmdAceptar");
  });
  ASSERT_TRUE(QFile::rename(elsewhere, SchoolFile()));
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "7")));
  EXPECT_TRUE(Content().contains(kDoubt)) << Content().toStdString();
}

TEST_F(RescueFileTest, OfASchoolThatWasReplacedAllIsKept) {
  const QString elsewhere = SchoolFile() + ".aparte";
  school_.Sql("VACUUM INTO '" + elsewhere.toStdString() + "'");
  FullAt(2);
  Fail([&](Window& window) {
    Robot::Grade(window, 0, 1, "7");
    for (const auto* const ending : {"", "-wal", "-shm"}) QFile::remove(SchoolFile() + ending);
    ASSERT_TRUE(QFile::rename(elsewhere, SchoolFile()));
    Robot::Click(window, "cmdAceptar");
  });
  EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "7")));
  EXPECT_TRUE(Content().contains(kDoubt));
}

// What a server said that it wrote, it has, though nobody can ask it any more.
TEST_F(RescueFileTest, OfAServerThatIsGoneOnlyWhatItDidNotAcknowledge) {
  const auto place = folder_.filePath("servidor");
  ASSERT_TRUE(QFile::link(SchoolFile(), place));
  ASSERT_TRUE(window_->OpenSchool(zendria::OdbcPlace("Driver=SQLite3;Database=" + place), 1));
  FullAt(3);
  Fail([&](Window& window) {
    Robot::Grade(window, 0, 1, "7");
    Robot::Click(window, "cmdSiguiente");
    Robot::Grade(window, 0, 1, "");
    Robot::Grade(window, 1, 1, "9");
    // Who connects from now on finds nothing.
    ASSERT_TRUE(QFile::remove(place));
    ASSERT_TRUE(QFile::link(MakeFile("nada", "no database"), place));
    Robot::Click(window, "cmdAceptar");
  });
  EXPECT_THAT(Cells(), ElementsAre(Line(kMarta, kMates, "Nota", "9")));
  EXPECT_TRUE(Content().contains(kDoubt));
}

}  // namespace
}  // namespace quorvane::test

// The school's file is deleted or replaced while the host has it open.

#include <QAction>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <filesystem>

#include "adapters/sqlite/SqliteConnection.h"
#include "frame/cConfiguracion.h"
#include "tests/sqlite/RunRows.h"
#include "tests/support/Opened.h"
#include "tests/support/TestConnection.h"
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

namespace fs = std::filesystem;

constexpr auto kLongEnough = 1100;  // ms, for a look to be trusted no more

const QString kAdvice =
    "Si el fichero se ha movido o ha cambiado de nombre, devuélvalo a su sitio y vuelva a abrir la "
    "pantalla. Si no, abra la escuela de nuevo (menú Escuela, «Abrir…»), mire qué falta y "
    "repítalo.";

class LostFileTest : public RescueTest {
 protected:
  LostFileTest() {
    // The journal of the schools that the project makes.
    school_.Sql("PRAGMA journal_mode=WAL");
    fs::copy_file(school_.Path(), Other());
    before_ = school_.Rows(kGrades);
    gradeBefore_ = school_.Rows(kGrade);
  }

  [[nodiscard]] std::string Away() const {
    return folder_.filePath("apartada.sqlite").toStdString();
  }
  [[nodiscard]] std::string Other() const { return folder_.filePath("otra.sqlite").toStdString(); }

  void Delete() const { fs::remove(school_.Path()); }
  void Move() const { fs::rename(school_.Path(), Away()); }
  /// The other school is larger, so that pages of this one in it would break it.
  void Replace() {
    Move();
    {
      Opened<sqlite::SqliteConnection> other(Other(), "");
      other.ExecuteScript("PRAGMA journal_mode=DELETE");
      for (int i = 1000; i < 1400; ++i)
        other.Execute("INSERT INTO Curso (IDCurso, Descripcion) VALUES (" + std::to_string(i) +
                      ", '" + std::string(1000, 'x') + "')");
    }
    other_ = BytesOf(Other());
    fs::rename(Other(), school_.Path());
  }
  static QByteArray BytesOf(const std::string& path) {
    return FileBytes(QString::fromStdString(path));
  }

  [[nodiscard]] QString Heading(const QString& what) const {
    return "Error -2147467259: Se ha perdido el archivo " + SchoolFile() + ": " + what +
           "; hasta entonces no se guarda nada.\n";
  }
  [[nodiscard]] std::string Told(const QString& what, const QString& rescued = {}) const {
    const auto told =
        Heading(what) +
        "La pantalla se ha cerrado. Lo que ya se había escrito está en el fichero que se abrió, "
        "no en el que pueda haber ahora en su sitio.\n\n" +
        rescued + kAdvice +
        "\n\nSi estaba introduciendo notas, sus materias pueden haber quedado bloqueadas: "
        "véalas en el menú Ver, Publicaciones y bloqueos.";
    return told.toStdString();
  }
  /// What the message says of the grade that wasn't saved.
  [[nodiscard]] QString Rescued() const {
    return "La nota que había cambiado y no se ha guardado está en este fichero:\n" + Folder() +
           '/' + Files().value(0) + "\n\n";
  }

  /// Opens the grades by student up to step two; there `lose` happens, and a grade is saved. Holds
  /// that what happened to the file is told, that the file has none of the grade, and a rescue has.
  void ExpectRescued(const std::function<void()>& lose, const QString& what) {
    std::vector<std::string> lost;
    const auto told = Fail([&](Window& window) {
      Robot::Grade(window, 0, 1, "7");
      QTest::qWait(kLongEnough);
      lose();
      Robot::Click(window, "cmdAceptar");
      lost = RunRows(*cConfiguracion::Instancia().conLocalCentro, kGrade);
    });
    EXPECT_EQ(told, Told(what, Rescued()));
    EXPECT_THAT(Cells(), ElementsAre(Line(kJorge, kLengua, "Nota", "7")));
    EXPECT_EQ(lost, gradeBefore_);
  }

  static std::vector<std::string> GradesIn(const std::string& path) {
    Opened<TestConnection> school(path, "");
    return RunRows(school, kGrades);
  }

  static constexpr const char* kGrades =
      "SELECT CodAlumnoPte_MatDet, CodNumEvaluacion, Evaluado, CodNota FROM EvaluacionPte";
  // As the module asks, on its own connection.
  static constexpr const char* kGrade =
      "SELECT Evaluado, CodNota, CodNotaActitud, CodNotaObservacion, CodNotaConcepto, CodNotaProcedimiento FROM EvaluacionPte WHERE CodNumEvaluacion=1 AND CodAlumnoPte_MatDet=1";
  std::vector<std::string> before_;  ///< the grades
  std::vector<std::string> gradeBefore_;
  QByteArray other_;  ///< the file that took the place
};

const QString kDeleted =
    "se ha borrado, movido o cambiado de nombre. Devuélvalo a su sitio, o recupere una copia y "
    "abra la escuela de nuevo";
const QString kReplaced =
    "otro ha ocupado su sitio. Abra la escuela de nuevo para trabajar con el que hay ahora, o "
    "devuelva el anterior a su sitio";

TEST_F(LostFileTest, NoScreenIsOpenedOnADeletedSchool) {
  Delete();
  EXPECT_EQ(NoticeOf(124), Told(kDeleted));
  EXPECT_EQ(NoticeOf(124), Told(kDeleted)) << "and so on";
}

TEST_F(LostFileTest, NoScreenIsOpenedOnASchoolInItsPlaceUntilThatIsOpened) {
  Replace();
  EXPECT_EQ(NoticeOf(124), Told(kReplaced));
  QFile log(SchoolFile() + "-wal");
  ASSERT_TRUE(log.open(QIODevice::Append) && log.write("de antes") > 0 && log.flush());
  const auto untouched = BytesOf(school_.Path());
  const auto& file = school_.Path();
  EXPECT_EQ(Refusal(SchoolFile()),
            "Junto a «" + file + "» está todavía «" + file +
                "-wal», el diario del fichero que había antes, que estropearía este al abrirlo. "
                "Salga de Zendria en todos los ordenadores, quite «" +
                file + "-wal» y «" + file + "-shm» y ábralo de nuevo.\n");
  EXPECT_EQ(BytesOf(school_.Path()), untouched);
  for (const auto* ending : {"-wal", "-shm"}) fs::remove(school_.Path() + ending);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  LeaveStepOne(kByStudent);
  Play(124);
}

TEST_F(LostFileTest, SavingIntoADeletedSchoolIsTold) {
  ExpectRescued([this] { Delete(); }, kDeleted);
  EXPECT_FALSE(fs::exists(school_.Path()));
}

TEST_F(LostFileTest, SavingIntoAReplacedSchoolIsToldAndReachesNeither) {
  ExpectRescued([this] { Replace(); }, kReplaced);
  EXPECT_EQ(GradesIn(Away()), before_);
  EXPECT_EQ(BytesOf(school_.Path()), other_) << "what took the place is not touched at all";
}

TEST_F(LostFileTest, WhatIsPutBackIsWorkedOnAgain) {
  ExpectRescued([this] { Move(); }, kDeleted);
  fs::rename(Away(), school_.Path());
  school_.Sql("DELETE FROM BloqueoPte;DELETE FROM PublicacionPte");
  AnswerDraft("ahoraNo");
  Use(kByStudent, Doing({{0, 1, "7"}, "cmdAceptar"}));
  EXPECT_THAT(GradesIn(school_.Path()), Contains("1|1|-1|107"));
}

// A program that closes the last connection it knows of takes the log away: what was written to it
// then would have no name either.
TEST_F(LostFileTest, OpeningTheSchoolTwiceLeavesNoProgramToThinkItIsTheLast) {
  school_.Sql("INSERT INTO PublicacionPte VALUES (7, 1, 2, 4, 1)");
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  ASSERT_TRUE(QFile::exists(SchoolFile() + "-wal"));
  EXPECT_EQ(QProcess::execute(QUORVANE_ESCUELA, {"bloqueos", SchoolFile()}), 0);
  EXPECT_TRUE(QFile::exists(SchoolFile() + "-wal"));
}

TEST_F(LostFileTest, TheLocksOfADeletedSchoolAreNotShown) {
  Delete();
  const auto told = NoticeOf([this] {
    for (auto* const action : window_->findChildren<QAction*>())
      if (action->text() == "&Publicaciones y bloqueos…") action->trigger();
  });
  EXPECT_EQ(told, (Heading(kDeleted) + kAdvice).toStdString());
}

}  // namespace
}  // namespace quorvane::test

// Grades that were typed and not saved come back when the form opens again.

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <array>
#include <csignal>
#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "apps/escuela/ProcessMark.h"
#include "tests/support/Matchers.h"
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

/// A grade form and the way to it.
struct Flow {
  std::uint8_t node;
  const char* form;
  const char* evaluation;
  const char* list = nullptr;  ///< what step one asks for besides
  const char* entry = nullptr;
};

/// A program of the same user's that runs until the object goes.
class OtherProgram {
 public:
  OtherProgram() {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    process_ = fork();
    if (process_ == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      const auto start = ProcessMark::Own().start;
      if (write(ends[1], &start, sizeof start) != sizeof start) _exit(1);
      for (;;) pause();
    }
    EXPECT_EQ(read(ends[0], &start_, sizeof start_), static_cast<ssize_t>(sizeof start_));
    for (const auto end : ends) close(end);
  }
  ~OtherProgram() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  OtherProgram(OtherProgram&&) = delete;

  /// That draft becomes one that it keeps.
  void Own(const QString& path) const {
    auto draft = QJsonDocument::fromJson(FileBytes(path)).object();
    auto program = draft["programa"].toObject();
    program["proceso"] = QString::number(process_);
    program["inicio"] = QString::number(start_);
    draft["programa"] = program;
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(draft).toJson());
  }

 private:
  pid_t process_ = 0;
  std::uint64_t start_ = 0;
};

class GradeDraftTest : public RescueTest {
 protected:
  static constexpr Flow kByStudent{124, "frmNotaManual", "1"};

  /// Ends the form as a failure of its own does, and removes the locks that it leaves.
  void Break(const Flow& flow, const Step& act) {
    Open(flow);
    robot_.On(flow.form, [act](Window& window) {
      act(window);
      throw std::bad_alloc();
    });
    NoticeOf(flow.node);
    EXPECT_TRUE(robot_.Done());
    EXPECT_THAT(robot_.unexpected, ElementsAre());
    school_.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
  }
  void Break(const Step& act) { Break(kByStudent, act); }
  void Open(const Flow& flow) {
    auto stepOne = std::string(flow.form);
    if (stepOne.ends_with("Final")) stepOne.resize(stepOne.size() - 5);
    StepOne(stepOne + "1", flow.evaluation, flow.list, flow.entry);
  }
  /// Opens the form, acts on it until it goes, and leaves step one.
  void Use(const Flow& flow, const Step& act) {
    Open(flow);
    robot_.On(flow.form, act);
    auto stepOne = std::string(flow.form);
    if (stepOne.ends_with("Final")) stepOne.resize(stepOne.size() - 5);
    LeaveStepOne(stepOne + "1");
    Play(flow.node);
    EXPECT_THAT(robot_.unexpected, ElementsAre());
  }
  void Use(const Step& act) { Use(kByStudent, act); }

  [[nodiscard]] QString Drafts() const { return folder_.filePath("borradores"); }
  [[nodiscard]] QStringList DraftFiles() const {
    return QDir(Drafts()).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
  }
  [[nodiscard]] QString TheDraft() const { return Drafts() + '/' + DraftFiles().value(0); }
  [[nodiscard]] static mode_t Mode(const QString& path) {
    struct stat status {};
    return stat(path.toUtf8().constData(), &status) == 0 ? status.st_mode & 07777U : 0;
  }
  /// By student, in the order of the pending rows.
  [[nodiscard]] Lines Stored() const {
    return school_.Rows(
        "SELECT CodNota FROM EvaluacionPte WHERE CodNumEvaluacion=1 ORDER BY CodAlumnoPte_MatDet");
  }
  /// Reads what is left out, and closes the list.
  void ReadLeft(QString& text) {
    robot_.OnDialog("notasCambiadas", [&text](QWidget& dialog) {
      text = dialog.findChild<QPlainTextEdit*>("notas")->toPlainText();
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
  }

  const Step threeGrades_ = Doing({{0, 1, "7"}, "cmdSiguiente", {0, 1, "8"}, {1, 1, "9"}});
};

TEST_F(GradeDraftTest, WhatWasTypedIsPutInAgainAndSavedAsEver) {
  Break(threeGrades_);
  ASSERT_EQ(DraftFiles().size(), 1);
  EXPECT_EQ(Mode(TheDraft()), 0600U);
  EXPECT_EQ(Mode(Drafts()), 0700U);
  QString text;
  AnswerDraft("ponerlas", &text);
  Use([](Window& window) {
    const auto& grid = dynamic_cast<QTableView&>(*window.Widget("rtvNotasAlumno"));
    EXPECT_EQ(dynamic_cast<QComboBox&>(*window.Widget("cboAlumnos")).currentIndex(), 0);
    EXPECT_EQ(grid.model()->index(0, 1).data().toString(), "7");
    Robot::Click(window, "cmdAceptar");
  });
  EXPECT_TRUE(QRegularExpression("^Hay 3 notas sin guardar de las? \\d?\\d:\\d\\d\\. ¿Ponerlas\\?$")
                  .match(text)
                  .hasMatch())
      << text.toStdString();
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
  EXPECT_EQ(DraftFiles(), QStringList());
  // Nothing is asked any more.
  Use(Doing({"cmdCancelar"}));
}

TEST_F(GradeDraftTest, InEachOfTheEightForms) {
  school_.Sql("UPDATE Curso SET RE_AC=-1");
  for (const auto& flow :
       {Flow{124, "frmNotaManual", "2"}, Flow{125, "frmNotaMateria", "1"},
        Flow{127, "frmNotaSeccionAlumno", "1", "cboMateria", "Lengua"},
        Flow{126, "frmNotaSeccionMateria", "1", "cboAlumno", "D"},
        Flow{124, "frmNotaManualFinal", "Final"}, Flow{125, "frmNotaMateriaFinal", "Final"},
        Flow{127, "frmNotaSeccionAlumnoFinal", "Final", "cboMateria", "Lengua"},
        Flow{126, "frmNotaSeccionMateriaFinal", "Final", "cboAlumno", "D"}}) {
    SCOPED_TRACE(flow.form);
    school_.Sql(
        "UPDATE EvaluacionPte SET CodNota=0; UPDATE EvaluacionActaPte SET CodNota=0, RE_AC_DIV=0");
    const auto isFinal = std::string(flow.form).ends_with("Final");
    std::vector<Robot::Deed> deeds{{0, 1, "7"}, "cmdSiguiente", {0, 1, "9"}};
    // A measure is offered to a subject with a grade alone.
    const auto measures = std::string(flow.form).ends_with("MateriaFinal");
    if (measures) deeds.emplace_back(0, 6, "Ref");
    Break(flow, Doing(deeds));
    AnswerDraft("ponerlas");
    Use(flow, Doing({"cmdAceptar"}));
    const auto* const table = isFinal ? "EvaluacionActaPte" : "EvaluacionPte";
    EXPECT_EQ(school_.Rows(std::string("SELECT CodNota FROM ") + table +
                           " WHERE CodNota<>0 ORDER BY CodNota"),
              (Lines{"107", "109"}));
    EXPECT_EQ(school_.Numero("SELECT SUM(RE_AC_DIV) FROM EvaluacionActaPte"), measures ? 1 : 0);
    EXPECT_EQ(DraftFiles(), QStringList());
  }
}

TEST_F(GradeDraftTest, WhatOthersHaveChangedIsListedWithBothValuesAndLeftAlone) {
  Break(threeGrades_);
  school_.Sql(
      "UPDATE EvaluacionPte SET CodNota=103 WHERE CodNumEvaluacion=1 AND CodAlumnoPte_MatDet=2;"
      "DELETE FROM EvaluacionPte WHERE CodAlumnoPte_MatDet=3");
  QString text;
  QString left;
  AnswerDraft("ponerlas", &text);
  ReadLeft(left);
  Use(Doing({"cmdAceptar"}));
  EXPECT_TRUE(text.contains("Hay una nota sin guardar")) << text.toStdString();
  EXPECT_TRUE(text.contains("otras 2 que no se pondrán")) << text.toStdString();
  EXPECT_EQ(left.toStdString(), std::string(kMarta) + '\t' + kLengua +
                                    "\tNota\tsuya: 8\tahora: 3\n" + kMarta + '\t' + kMates +
                                    "\tNota\tsuya: 9\tya no está\n");
  EXPECT_EQ(Stored(), (Lines{"107", "103", "0"}));
  EXPECT_EQ(DraftFiles(), QStringList()) << "they were told, once";
}

TEST_F(GradeDraftTest, WhatIsTypedBeforeTheQuestionOverwritesNoneOfIt) {
  Break(threeGrades_);
  for (const auto* const answer : {"ahoraNo", "ponerlas"}) {
    screen_.FormReady = [ask = screen_.FormReady](Window& window) {
      if (window.Model().Name() == "frmNotaManual") Robot::Grade(window, 0, 1, "6");
      QCoreApplication::processEvents();
      ask(window);
    };
    QString text;
    AnswerDraft(answer, &text);
    const auto save = answer == std::string("ponerlas");
    Use(Doing({save ? "cmdAceptar" : "cmdCancelar"}));
    EXPECT_TRUE(text.startsWith("Hay 2 notas")) << text.toStdString();
    EXPECT_EQ(DraftFiles().size(), save ? 0 : 1);
  }
  EXPECT_EQ(Stored(), (Lines{"106", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, NothingThatWasTypedForSomethingElseAnswersTheQuestion) {
  Break(threeGrades_);
  // As the desktop brings them, to the window that is just going and to the one that loads.
  const auto press = [](Window& window) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
      qt_handleKeyEvent(window.windowHandle(), type, Qt::Key_Return, Qt::NoModifier);
  };
  screen_.FormReady = [press, ask = screen_.FormReady](Window& window) {
    if (window.Model().Name() == "frmNotaManual") press(window);
    ask(window);
  };
  auto letters = false;
  robot_.OnDialog("borrador", [&letters](QWidget& dialog) {
    for (const auto* const name : {"ponerlas", "descartarlas", "ahoraNo"}) {
      auto* const button = dialog.findChild<QPushButton*>(name);
      const auto letter = button->shortcut()[0].key();
      QTest::keyClick(&dialog, letter);
      letters = letters || button->isDown();
    }
    QTest::mouseClick(dialog.findChild<QWidget*>("ahoraNo"), Qt::LeftButton);
  });
  robot_.On("frmNotaManual1", [press](Window& window) {
    Doing({{"cboTipoEnsenanza", "ESO"},
           {"cboCursos", "2"},
           {"cboSecciones", "A"},
           {"cboEvaluaciones", "1"}})(window);
    press(window);
    Robot::Click(window, "cmdNotaManual1(0)");
  });
  robot_.On("frmNotaManual", {"cmdCancelar"});
  LeaveStepOne("frmNotaManual1");
  Play(124);
  EXPECT_FALSE(letters);
  EXPECT_EQ(DraftFiles().size(), 1);
}

TEST_F(GradeDraftTest, AFormThatGoesBeforeTheQuestionDropsWhatWasTypedInItAlone) {
  Break(threeGrades_);
  const auto ask = screen_.FormReady;
  screen_.FormReady = [&ask](Window& window) {
    if (window.Model().Name() == "frmNotaManual") {
      Robot::Grade(window, 0, 1, "6");
      Robot::Click(window, "cmdCancelar");
    }
    ask(window);
  };
  Open(kByStudent);
  LeaveStepOne("frmNotaManual1");
  Play(124);
  screen_.FormReady = ask;
  AnswerDraft("ponerlas");
  Use(Doing({"cmdAceptar"}));
  EXPECT_EQ(Stored(), (Lines{"105", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, ASchoolHasOneWhateverPathItIsReachedBy) {
  Break(threeGrades_);
  const auto link = folder_.filePath("enlace.sqlite");
  ASSERT_TRUE(QFile::link(SchoolFile(), link));
  ASSERT_TRUE(window_->OpenSchool(link, 1));
  AnswerDraft("ahoraNo");
  Use(Doing({{0, 1, "6"}, "cmdAceptar"}));
  ASSERT_TRUE(window_->OpenSchool(QDir().relativeFilePath(SchoolFile()), 1));
  AnswerDraft("ponerlas");
  Use(Doing({"cmdAceptar"}));
  EXPECT_EQ(Stored(), (Lines{"106", "108", "109", "0"}));
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, WhatSomebodyHoldsStaysInTheDraftUntilTheFormHasItAgain) {
  Break(threeGrades_);
  school_.Bloquea(1, 1, 3112, 2, 77);
  QString text;
  AnswerDraft("ponerlas", &text);
  Use(Doing({"cmdAceptar"}));
  EXPECT_TRUE(text.startsWith("Hay 2 notas")) << text.toStdString();
  EXPECT_TRUE(
      text.endsWith("Otra más sigue en el borrador, porque su materia no está ahora en esta "
                    "pantalla.\nMatemáticas (1º ESO A): la está calificando Ana Ruiz Soto."))
      << text.toStdString();
  EXPECT_EQ(Stored(), (Lines{"107", "108", "0", "0"}));
  // Nothing else is left: neither answer to what can't be answered yet, nor a save, drops it.
  AnswerDraft("ahoraNo", &text);
  Use(Doing({{0, 1, "6"}, "cmdAceptar"}));
  EXPECT_TRUE(text.startsWith("Hay una nota sin guardar")) << text.toStdString();
  EXPECT_TRUE(text.contains("Sigue en el borrador")) << text.toStdString();
  EXPECT_TRUE(text.endsWith("la está calificando Ana Ruiz Soto.")) << text.toStdString();
  school_.Sql("DELETE FROM BloqueoPte");
  AnswerDraft("ponerlas");
  Use(Doing({"cmdAceptar"}));
  EXPECT_EQ(Stored(), (Lines{"106", "108", "109", "0"}));
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, WhatSomebodyHoldsGoesWithTheRestOfADraftOnlyWhereThereIsNoRest) {
  Break(threeGrades_);
  school_.Bloquea(1, 1, 3112, 2, 77);
  AnswerDraft("descartarlas");
  Use(Doing({"cmdCancelar"}));
  EXPECT_EQ(DraftFiles().size(), 1);
  AnswerDraft("descartarlas");
  Use(Doing({"cmdCancelar"}));
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, WhatItsHolderHasSavedJustSoIsNotOffered) {
  Break(threeGrades_);
  school_.Bloquea(1, 1, 3112, 2, 77);
  school_.Sql("UPDATE EvaluacionPte SET CodNota=109 WHERE CodAlumnoPte_MatDet=3");
  QString text;
  AnswerDraft("ponerlas", &text);
  Use(Doing({"cmdAceptar"}));
  EXPECT_TRUE(text.endsWith("¿Ponerlas?")) << text.toStdString();
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, WhereOthersHaveChangedAllOfItNothingIsPutIn) {
  Break(Doing({{0, 1, "7"}}));
  school_.Sql("UPDATE EvaluacionPte SET CodNota=103");
  QString text;
  QString left;
  AnswerDraft("ponerlas", &text);
  ReadLeft(left);
  Use(Doing({"cmdCancelar"}));
  EXPECT_TRUE(text.contains("¿Verla?")) << text.toStdString();
  EXPECT_TRUE(left.contains("suya: 7\tahora: 3")) << left.toStdString();
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, AGradeThatTheListHasNoMoreIsToldAsThat) {
  Break(Doing({"cmdSiguiente", {1, 1, "9"}}));
  school_.Sql("UPDATE Nota SET NotaExcepcional=1 WHERE IDNota=109");
  QString left;
  AnswerDraft("ponerlas");
  ReadLeft(left);
  Use(Doing({"cmdAceptar"}));
  EXPECT_EQ(left.toStdString(), std::string(kMarta) + '\t' + kMates +
                                    "\tNota\tsuya: 9\tesa nota ya no se ofrece; ahora: (en "
                                    "blanco)\n");
  EXPECT_EQ(Stored(), (Lines{"105", "105", "0", "0"}));
}

TEST_F(GradeDraftTest, WhatTheFailedSaveHadWrittenIsNotOffered) {
  FullAt(3);
  StepOne("frmNotaManual1", "1");
  robot_.On("frmNotaManual", [this](Window& window) {
    threeGrades_(window);
    Robot::Click(window, "cmdAceptar");
  });
  NoticeOf(124);
  school_.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte; DROP TRIGGER lleno");
  QString text;
  AnswerDraft("ponerlas", &text);
  Use(Doing({"cmdAceptar"}));
  EXPECT_TRUE(text.contains("Hay una nota")) << text.toStdString();
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, SavingAndGivingUpDropItAndSoDoesTheX) {
  const std::vector<Step> ways{Doing({"cmdAceptar"}), Doing({"cmdCancelar"}),
                               [](Window& window) { window.close(); }};
  for (const auto& leave : ways) {
    Use([this, &leave](Window& window) {
      Robot::Grade(window, 0, 1, "7");
      EXPECT_EQ(DraftFiles().size(), 1);
      Robot::Grade(window, 0, 1, "5");
      QCoreApplication::processEvents();
      EXPECT_EQ(DraftFiles(), QStringList()) << "it is as it was";
      Robot::Grade(window, 0, 1, "7");
      leave(window);
    });
    EXPECT_EQ(DraftFiles(), QStringList());
    school_.Sql("UPDATE EvaluacionPte SET CodNota=105");
  }
}

TEST_F(GradeDraftTest, NotNowKeepsItButForWhatIsTypedAnew) {
  Break(threeGrades_);
  AnswerDraft("ahoraNo");
  Use(Doing({"cmdCancelar"}));
  AnswerDraft("ahoraNo");
  Use(Doing({{0, 1, "10"}, "cmdAceptar"}));
  EXPECT_EQ(Stored(), (Lines{"110", "105", "0", "0"}));
  QString text;
  AnswerDraft("ponerlas", &text);
  Use(Doing({"cmdAceptar"}));
  EXPECT_TRUE(text.startsWith("Hay 2 notas")) << text.toStdString();
  EXPECT_EQ(Stored(), (Lines{"110", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, InAYearThatCanNotBeChangedItIsNotOfferedAndStays) {
  Break(threeGrades_);
  auto* const year = window_->findChild<QAction*>("añoActivo");
  ASSERT_NE(year, nullptr);
  for (const auto* const form : {"frmNotaManual", "frmNotaManualFinal"}) {
    year->setChecked(false);
    Use({124, form, std::string(form).ends_with("Final") ? "Final" : "1"}, [](Window& window) {
      EXPECT_FALSE(window.Widget("cmdAceptar")->isEnabled());
      Robot::Grade(window, 0, 1, "4");
      Robot::Click(window, "cmdCancelar");
    });
    EXPECT_EQ(DraftFiles().size(), 1);
  }
  year->setChecked(true);
  AnswerDraft("ponerlas");
  Use(Doing({"cmdAceptar"}));
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, TheNextProgramSweepsWhatAKilledOneLeftUnfinished) {
  for (const auto& folder : {Drafts(), Folder()}) {
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile file(folder + "/.notas-aB3xyz");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addDays(-1),
                                 QFileDevice::FileModificationTime));
  }
  UseScreens(zendria::PendingScreens());
  EXPECT_EQ(DraftFiles(), QStringList());
  EXPECT_EQ(Files(), QStringList());
}

TEST_F(GradeDraftTest, AProgramThatRunsKeepsItsOwnAndLeavesItWhenItGoes) {
  std::optional<OtherProgram> other(std::in_place);
  Break(threeGrades_);
  const auto theirs = Drafts() + '/' + DraftFiles().value(0).section(u'-', 0, 0) + "-otro.json";
  ASSERT_TRUE(QFile::rename(TheDraft(), theirs));
  other->Own(theirs);
  const auto before = FileBytes(theirs);
  Use([this](Window& window) {
    Robot::Grade(window, 0, 1, "4");
    EXPECT_EQ(DraftFiles().size(), 2);
    Robot::Click(window, "cmdCancelar");
  });
  EXPECT_EQ(DraftFiles().size(), 1);
  Break(Doing({{0, 1, "3"}}));
  EXPECT_EQ(FileBytes(theirs), before);
  other.reset();
  QString text;
  AnswerDraft("ponerlas", &text);
  Use(Doing({"cmdAceptar"}));
  EXPECT_TRUE(text.startsWith("Hay 3 notas")) << text.toStdString();
  EXPECT_EQ(Stored(), (Lines{"103", "108", "109", "0"})) << "of two of a cell the later";
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, NotWantedItGoes) {
  Break(threeGrades_);
  AnswerDraft("descartarlas");
  Use([this](Window& window) {
    EXPECT_EQ(DraftFiles(), QStringList());
    Robot::Click(window, "cmdAceptar");
  });
  EXPECT_EQ(Stored(), (Lines{"105", "105", "0", "0"}));
}

TEST_F(GradeDraftTest, OtherFormsChoicesAndUsersHaveDraftsOfTheirOwn) {
  Break(threeGrades_);
  Use({124, "frmNotaManual", "2"}, Doing({{0, 1, "6"}, "cmdCancelar"}));
  Use({125, "frmNotaMateria", "1"}, Doing({"cmdCancelar"}));
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  Use(Doing({"cmdCancelar"}));
  EXPECT_EQ(DraftFiles().size(), 1);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  AnswerDraft("ponerlas");
  Use(Doing({"cmdAceptar"}));
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, WhatIsNoDraftIsToldAndSetAside) {
  Break(threeGrades_);
  const auto path = TheDraft();
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const auto whole = file.readAll();
  const auto put = [&path](const QByteArray& content) {
    QFile damaged(path);
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write(content);
  };
  const std::vector<std::function<void()>> faults{
      [&] { put(""); },
      [&] { put(whole.left(whole.size() / 2)); },
      [&] { put(QByteArray(whole).replace("\"usuario\": 1", "\"usuario\": 2")); },
      [&] { put(QByteArray(whole).replace("\"columna\": 1", "\"columna\": \"1\"")); },
      [&] { ASSERT_TRUE(QFile::link(SchoolFile(), path)); },
      [&] { ASSERT_TRUE(QDir().mkdir(path)); },
      [&] { ASSERT_EQ(mkfifo(path.toUtf8().constData(), 0600), 0); },
  };
  qsizetype aside = 0;
  for (const auto& fault : faults) {
    SCOPED_TRACE(aside);
    QFile::remove(path);
    fault();
    QString text;
    robot_.OnDialog("borradorRoto", [&text](QWidget& dialog) {
      text = dynamic_cast<QMessageBox&>(dialog).informativeText();
      QTest::keyClick(&dialog, Qt::Key_Return);
    });
    Use(Doing({{0, 1, "7"}, "cmdCancelar"}));
    EXPECT_TRUE(text.contains(Drafts())) << text.toStdString();
    EXPECT_EQ(DraftFiles().size(), ++aside);
    EXPECT_FALSE(DraftFiles().contains(QFileInfo(path).fileName()));
  }
  EXPECT_EQ(Stored(), (Lines{"105", "105", "0", "0"}));
}

TEST_F(GradeDraftTest, AFailureWhilePuttingInLosesNothing) {
  Break(threeGrades_);
  robot_.OnDialog("borrador", [this](QWidget& dialog) {
    // The list of a cell can't be read.
    school_.Sql("ALTER TABLE TipoNota RENAME TO Apartado");
    QTest::mouseClick(dialog.findChild<QWidget*>("ponerlas"), Qt::LeftButton);
  });
  Open(kByStudent);
  const auto failure = NoticeOf(124);
  EXPECT_TRUE(failure.contains("no such table")) << failure.toStdString();
  school_.Sql(
      "ALTER TABLE Apartado RENAME TO TipoNota; DELETE FROM PublicacionPte; DELETE FROM BloqueoPte");
  AnswerDraft("ponerlas");
  Use(Doing({"cmdAceptar"}));
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
}

}  // namespace
}  // namespace quorvane::test

// Grades that were typed and not saved come back when the form opens again.

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPlainTextEdit>
#include <QPushButton>
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
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

using testing::MatchesRegex;

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
  /// Ends the form as a failure of its own does, and removes the locks that it leaves.
  void Break(const Step& act, const Flow& flow = kByStudent) {
    Fail(flow, [act](Window& window) {
      act(window);
      throw std::bad_alloc();
    });
    RemoveLocks();
  }
  void RemoveLocks() const { school_.Sql("DELETE FROM PublicacionPte; DELETE FROM BloqueoPte"); }
  using RescueTest::Use;
  void Use(const Step& act) { Use(kByStudent, act); }
  /// Opens the form by student, and presses that in it; what its draft is answered with before,
  /// and gives what that asked.
  std::string Answer(const char* answer, const std::vector<Robot::Deed>& deeds) {
    std::string text;
    AnswerDraft(answer, &text);
    Use(Doing(deeds));
    return text;
  }
  /// Does that where the form by student has loaded, before it asks.
  void BeforeTheQuestion(const Step& act) {
    screen_.FormReady = [act, ask = screen_.FormReady](Window& window) {
      if (window.Model().Name() == kByStudent.form) act(window);
      ask(window);
    };
  }

  [[nodiscard]] QString Drafts() const { return folder_.filePath("borradores"); }
  [[nodiscard]] QStringList DraftFiles() const { return Entries(Drafts()); }
  [[nodiscard]] QString TheDraft() const { return Drafts() + '/' + DraftFiles().value(0); }
  /// By student, in the order of the pending rows.
  [[nodiscard]] Lines Stored() const {
    return school_.Rows(
        "SELECT CodNota FROM EvaluacionPte WHERE CodNumEvaluacion=1 ORDER BY CodAlumnoPte_MatDet");
  }
  /// Reads what is left out, and closes the list.
  void ReadLeft(std::string& text) {
    robot_.OnDialog("notasCambiadas", [&text](QWidget& dialog) {
      text = dialog.findChild<QPlainTextEdit*>("notas")->toPlainText().toStdString();
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
  std::string text;
  AnswerDraft("ponerlas", &text);
  Use([](Window& window) {
    EXPECT_EQ(dynamic_cast<QComboBox&>(*window.Widget("cboAlumnos")).currentIndex(), 0);
    EXPECT_EQ(Robot::CellText(window, 0, 1), "7");
    Robot::Click(window, "cmdAceptar");
  });
  EXPECT_THAT(
      text, MatchesRegex("Hay 3 notas sin guardar de las? [0-9]?[0-9]:[0-9][0-9]\\. ¿Ponerlas\\?"));
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
  EXPECT_EQ(DraftFiles(), QStringList());
  // Nothing is asked any more.
  Use(Doing({"cmdCancelar"}));
}

TEST_F(GradeDraftTest, InEachOfTheEightForms) {
  school_.Sql("UPDATE Curso SET RE_AC=-1");
  for (const auto& flow :
       {kByStudent.In("2"), kBySubject, kOfSubject, kOfStudent, kByStudent.Final(),
        kBySubject.Final(), kOfSubject.Final(), kOfStudent.Final()}) {
    SCOPED_TRACE(flow.form);
    school_.Sql(
        "UPDATE EvaluacionPte SET CodNota=0; UPDATE EvaluacionActaPte SET CodNota=0, RE_AC_DIV=0");
    std::vector<Robot::Deed> deeds{{0, 1, "7"}, "cmdSiguiente", {0, 1, "9"}};
    // A measure is offered to a subject with a grade alone.
    const auto measures = flow.form.ends_with("MateriaFinal");
    if (measures) deeds.emplace_back(0, 6, "Ref");
    Break(Doing(deeds), flow);
    AnswerDraft("ponerlas");
    Use(flow, Doing({"cmdAceptar"}));
    const std::string table = flow.form.ends_with("Final") ? "EvaluacionActaPte" : "EvaluacionPte";
    EXPECT_EQ(school_.Rows("SELECT CodNota FROM " + table + " WHERE CodNota<>0 ORDER BY CodNota"),
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
  std::string left;
  ReadLeft(left);
  EXPECT_THAT(Answer("ponerlas", {"cmdAceptar"}),
              AllOf(HasSubstr("Hay una nota sin guardar"), HasSubstr("otras 2 que no se pondrán")));
  EXPECT_EQ(left, Line(kMarta, kLengua, "Nota", "suya: 8\tahora: 3\n") +
                      Line(kMarta, kMates, "Nota", "suya: 9\tya no está\n"));
  EXPECT_EQ(Stored(), (Lines{"107", "103", "0"}));
  EXPECT_EQ(DraftFiles(), QStringList()) << "they were told, once";
}

TEST_F(GradeDraftTest, WhatIsTypedBeforeTheQuestionOverwritesNoneOfIt) {
  Break(threeGrades_);
  BeforeTheQuestion([](Window& window) {
    Robot::Grade(window, 0, 1, "6");
    QCoreApplication::processEvents();
  });
  EXPECT_THAT(Answer("ahoraNo", {"cmdCancelar"}), StartsWith("Hay 2 notas"));
  EXPECT_EQ(DraftFiles().size(), 1);
  EXPECT_THAT(Answer("ponerlas", {"cmdAceptar"}), StartsWith("Hay 2 notas"));
  EXPECT_EQ(DraftFiles().size(), 0);
  EXPECT_EQ(Stored(), (Lines{"106", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, NothingThatWasTypedForSomethingElseAnswersTheQuestion) {
  Break(threeGrades_);
  // As the desktop brings them, to the window that is just going and to the one that loads.
  const auto press = [](Window& window) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
      qt_handleKeyEvent(window.windowHandle(), type, Qt::Key_Return, Qt::NoModifier);
  };
  BeforeTheQuestion(press);
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
    PickSection(window);
    press(window);
    Robot::Click(window, "cmdNotaManual1(0)");
  });
  robot_.On("frmNotaManual", {"cmdCancelar"});
  LeaveStepOne(kByStudent);
  Play(124);
  EXPECT_FALSE(letters);
  EXPECT_EQ(DraftFiles().size(), 1);
}

TEST_F(GradeDraftTest, AFormThatGoesBeforeTheQuestionDropsWhatWasTypedInItAlone) {
  Break(threeGrades_);
  const auto ask = screen_.FormReady;
  BeforeTheQuestion(Doing({{0, 1, "6"}, "cmdCancelar"}));
  StepOne(kByStudent);
  LeaveStepOne(kByStudent);
  Play(124);
  screen_.FormReady = ask;
  Answer("ponerlas", {"cmdAceptar"});
  EXPECT_EQ(Stored(), (Lines{"105", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, ASchoolHasOneWhateverPathItIsReachedBy) {
  Break(threeGrades_);
  const auto link = folder_.filePath("enlace.sqlite");
  ASSERT_TRUE(QFile::link(SchoolFile(), link));
  ASSERT_TRUE(window_->OpenSchool(link, 1));
  Answer("ahoraNo", {{0, 1, "6"}, "cmdAceptar"});
  ASSERT_TRUE(window_->OpenSchool(QDir().relativeFilePath(SchoolFile()), 1));
  Answer("ponerlas", {"cmdAceptar"});
  EXPECT_EQ(Stored(), (Lines{"106", "108", "109", "0"}));
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, WhatSomebodyHoldsStaysInTheDraftUntilTheFormHasItAgain) {
  Break(threeGrades_);
  school_.Bloquea(1, 1, 3112, 2, 77);
  EXPECT_THAT(
      Answer("ponerlas", {"cmdAceptar"}),
      AllOf(StartsWith("Hay 2 notas"),
            EndsWith("Otra más sigue en el borrador, porque su materia no está ahora en esta "
                     "pantalla.\nMatemáticas (1º ESO A): la está calificando Ana Ruiz Soto.")));
  EXPECT_EQ(Stored(), (Lines{"107", "108", "0", "0"}));
  // Nothing else is left: neither answer to what can't be answered yet, nor a save, drops it.
  EXPECT_THAT(Answer("ahoraNo", {{0, 1, "6"}, "cmdAceptar"}),
              AllOf(StartsWith("Hay una nota sin guardar"), HasSubstr("Sigue en el borrador"),
                    EndsWith("la está calificando Ana Ruiz Soto.")));
  school_.Sql("DELETE FROM BloqueoPte");
  Answer("ponerlas", {"cmdAceptar"});
  EXPECT_EQ(Stored(), (Lines{"106", "108", "109", "0"}));
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, WhatSomebodyHoldsGoesWithTheRestOfADraftOnlyWhereThereIsNoRest) {
  Break(threeGrades_);
  school_.Bloquea(1, 1, 3112, 2, 77);
  Answer("descartarlas", {"cmdCancelar"});
  EXPECT_EQ(DraftFiles().size(), 1);
  Answer("descartarlas", {"cmdCancelar"});
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, WhatItsHolderHasSavedJustSoIsNotOffered) {
  Break(threeGrades_);
  school_.Bloquea(1, 1, 3112, 2, 77);
  school_.Sql("UPDATE EvaluacionPte SET CodNota=109 WHERE CodAlumnoPte_MatDet=3");
  EXPECT_THAT(Answer("ponerlas", {"cmdAceptar"}), EndsWith("¿Ponerlas?"));
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, WhereOthersHaveChangedAllOfItNothingIsPutIn) {
  Break(Doing({{0, 1, "7"}}));
  school_.Sql("UPDATE EvaluacionPte SET CodNota=103");
  std::string left;
  ReadLeft(left);
  EXPECT_THAT(Answer("ponerlas", {"cmdCancelar"}), HasSubstr("¿Verla?"));
  EXPECT_THAT(left, HasSubstr("suya: 7\tahora: 3"));
  EXPECT_EQ(DraftFiles(), QStringList());
}

TEST_F(GradeDraftTest, AGradeThatTheListHasNoMoreIsToldAsThat) {
  Break(Doing({"cmdSiguiente", {1, 1, "9"}}));
  school_.Sql("UPDATE Nota SET NotaExcepcional=1 WHERE IDNota=109");
  std::string left;
  ReadLeft(left);
  Answer("ponerlas", {"cmdAceptar"});
  EXPECT_EQ(left, Line(kMarta, kMates, "Nota",
                       "suya: 9\tesa nota ya no se ofrece; ahora: (en blanco)\n"));
  EXPECT_EQ(Stored(), (Lines{"105", "105", "0", "0"}));
}

TEST_F(GradeDraftTest, WhatTheFailedSaveHadWrittenIsNotOffered) {
  FullAt(3);
  Fail([this](Window& window) {
    threeGrades_(window);
    Robot::Click(window, "cmdAceptar");
  });
  RemoveLocks();
  school_.Sql("DROP TRIGGER lleno");
  EXPECT_THAT(Answer("ponerlas", {"cmdAceptar"}), HasSubstr("Hay una nota"));
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, SavingAndGivingUpDropItAndSoDoesTheX) {
  for (const auto& leave : {Doing({"cmdAceptar"}), Doing({"cmdCancelar"}),
                            Step([](Window& window) { window.close(); })}) {
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
  Answer("ahoraNo", {"cmdCancelar"});
  Answer("ahoraNo", {{0, 1, "10"}, "cmdAceptar"});
  EXPECT_EQ(Stored(), (Lines{"110", "105", "0", "0"}));
  EXPECT_THAT(Answer("ponerlas", {"cmdAceptar"}), StartsWith("Hay 2 notas"));
  EXPECT_EQ(Stored(), (Lines{"110", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, InAYearThatCanNotBeChangedItIsNotOfferedAndStays) {
  Break(threeGrades_);
  auto* const year = window_->findChild<QAction*>("añoActivo");
  ASSERT_NE(year, nullptr);
  for (const auto& flow : {kByStudent, kByStudent.Final()}) {
    year->setChecked(false);
    Visit(flow, [](Window& window) {
      EXPECT_FALSE(window.Widget("cmdAceptar")->isEnabled());
      Robot::Grade(window, 0, 1, "4");
    });
    EXPECT_EQ(DraftFiles().size(), 1);
  }
  year->setChecked(true);
  Answer("ponerlas", {"cmdAceptar"});
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
  Visit(kByStudent, [this](Window& window) {
    Robot::Grade(window, 0, 1, "4");
    EXPECT_EQ(DraftFiles().size(), 2);
  });
  EXPECT_EQ(DraftFiles().size(), 1);
  Break(Doing({{0, 1, "3"}}));
  EXPECT_EQ(FileBytes(theirs), before);
  other.reset();
  EXPECT_THAT(Answer("ponerlas", {"cmdAceptar"}), StartsWith("Hay 3 notas"));
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
  Use(kByStudent.In("2"), Doing({{0, 1, "6"}, "cmdCancelar"}));
  Use(kBySubject, Doing({"cmdCancelar"}));
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  Use(Doing({"cmdCancelar"}));
  EXPECT_EQ(DraftFiles().size(), 1);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 1));
  Answer("ponerlas", {"cmdAceptar"});
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
}

TEST_F(GradeDraftTest, WhatIsNoDraftIsToldAndSetAside) {
  Break(threeGrades_);
  const auto path = TheDraft();
  const auto whole = FileBytes(path);
  ASSERT_NE(whole, "unreadable");
  const auto put = [&](const QByteArray& content) {
    return MakeFile("borradores/" + QFileInfo(path).fileName(), content) == path;
  };
  const std::vector<std::function<bool()>> faults{
      [&] { return put(""); },
      [&] { return put(whole.left(whole.size() / 2)); },
      [&] { return put(QByteArray(whole).replace("\"usuario\": 1", "\"usuario\": 2")); },
      [&] { return put(QByteArray(whole).replace("\"columna\": 1", "\"columna\": \"1\"")); },
      [&] { return QFile::link(SchoolFile(), path); },
      [&] { return QDir().mkdir(path); },
      [&] { return mkfifo(path.toUtf8().constData(), 0600) == 0; },
  };
  qsizetype aside = 0;
  for (const auto& fault : faults) {
    SCOPED_TRACE(aside);
    QFile::remove(path);
    ASSERT_TRUE(fault());
    robot_.OnDialog<QMessageBox>("borradorRoto", [this](auto& box) {
      EXPECT_THAT(box.informativeText().toStdString(), HasSubstr(Drafts().toStdString()));
      QTest::keyClick(&box, Qt::Key_Return);
    });
    Use(Doing({{0, 1, "7"}, "cmdCancelar"}));
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
  StepOne(kByStudent);
  EXPECT_THAT(NoticeOf(124), HasSubstr("no such table"));
  school_.Sql("ALTER TABLE Apartado RENAME TO TipoNota");
  RemoveLocks();
  Answer("ponerlas", {"cmdAceptar"});
  EXPECT_EQ(Stored(), (Lines{"107", "108", "109", "0"}));
}

}  // namespace
}  // namespace quorvane::test

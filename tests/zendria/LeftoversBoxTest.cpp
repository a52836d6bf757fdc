// What a program that died has left open, as the user hears of it.

#include <QDir>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/zendria/LeftoversBox.h"
#include "apps/zendria/LocksDialog.h"
#include "apps/zendria/OwnPublications.h"
#include "tests/support/Opened.h"
#include "tests/zendria/RescueTest.h"

namespace quorvane::test {
namespace {

class LeftoversBoxTest : public RescueTest {
 protected:
  LeftoversBoxTest() : notes_(PublicationNotes::Beside(school_.Path())) {}

  /// A program of that user has opened a grade form, and has been killed.
  void Crash(int user, int publication) {
    const auto values = std::to_string(publication) + ",1," + std::to_string(user) + ",4,1)";
    const auto child = fork();
    if (child == 0) {
      zendria::OwnPublications publications(notes_);
      publications.User(user);
      publications.Told("INSERT INTO Publicacionpte  VALUES (" + values);
      publications.Told("SELECT 1");
      _exit(0);
    }
    waitpid(child, nullptr, 0);
    school_.Sql("INSERT INTO Publicacionpte  VALUES (" + values);
    school_.Bloquea(1, 1, 3111, user, publication);
  }
  [[nodiscard]] std::vector<Leftovers::Left> Now(int user) const {
    Opened<sqlite::SqliteConnection> school(school_.Path(), "");
    return Leftovers(school, notes_).Of(user);
  }
  [[nodiscard]] int Publications() const {
    return school_.Numero("SELECT COUNT(*) FROM PublicacionPte");
  }
  [[nodiscard]] QStringList NoteFiles() const {
    const QFileInfo school(SchoolFile());
    return school.dir().entryList({school.fileName() + "-*.abierta"});
  }

  PublicationNotes notes_;
};

TEST_F(LeftoversBoxTest, WhoSignsInIsOfferedToRemoveWhatHisDeadProgramLeft) {
  Crash(2, 7);
  Crash(3, 8);
  std::string text;
  Answer("restos", "&Quitar", &text);
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  EXPECT_THAT(text, AllOf(StartsWith("Una pantalla de notas suya quedó abierta"),
                          HasSubstr("\n7, 1ª Evaluación: Lengua (A). La abrió Zendria el "),
                          HasSubstr("que ya no está en marcha.")));
  EXPECT_EQ(school_.Rows("SELECT IDPublicacionPte FROM PublicacionPte"), Lines{"8"});
  EXPECT_EQ(school_.Rows("SELECT CodPublicacion FROM BloqueoPte"), Lines{"8"});
  EXPECT_FALSE(window_->findChild<QLabel*>("abiertas")->isVisible());
  EXPECT_EQ(NoteFiles().size(), 1) << "the other user's";
}

TEST_F(LeftoversBoxTest, WhatIsLeftStandsOnThePage) {
  Crash(2, 7);
  Answer("restos", "&Dejar");
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  EXPECT_EQ(Publications(), 1);
  EXPECT_TRUE(LabelText("abiertas").startsWith("7, 1ª Evaluación: Lengua (A). "));
  // Removed by hand, it is neither there nor noted any more.
  robot_.OnDialog<zendria::LocksDialog>("bloqueos", [](auto& dialog) {
    dialog.RemoveButton().click();
    dialog.accept();
  });
  Answer("pregunta", "&Quitar");
  window_->ShowLocks();
  EXPECT_EQ(Publications(), 0);
  EXPECT_EQ(LabelText("abiertas"), "");
  EXPECT_TRUE(NoteFiles().isEmpty());
}

TEST_F(LeftoversBoxTest, WhatNobodyKnowsIsToldAndNotOffered) {
  school_.Sql("INSERT INTO PublicacionPte VALUES (7,1,2,4,1)");
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  EXPECT_EQ(LabelText("abiertas"), "7, 1ª Evaluación. No se sabe qué programa la abrió.");
}

TEST_F(LeftoversBoxTest, AScreenThatIsOpenIsNotedAndNotOffered) {
  ASSERT_TRUE(window_->OpenSchool(SchoolFile(), 2));
  Visit(kByStudent, [this](const Window&) {
    EXPECT_EQ(Publications(), 1);
    EXPECT_EQ(NoteFiles().size(), 1);
    EXPECT_TRUE(zendria::LeftoversText(Now(2)).endsWith("que sigue en marcha."));
  });
  EXPECT_EQ(Publications(), 0);
  EXPECT_TRUE(NoteFiles().isEmpty());
}

// Its locks stay in the school: they are a dead program's as soon as this one ends.
TEST_F(LeftoversBoxTest, AScreenThatFailedStaysNoted) {
  FullAt(1);
  Fail(Doing({{0, 1, "7"}, "cmdAceptar"}));
  EXPECT_EQ(Publications(), 1);
  EXPECT_EQ(NoteFiles().size(), 1);
  ASSERT_EQ(Now(1).size(), 1U);
  EXPECT_EQ(Now(1)[0].holder, Leftovers::Holder::Running);
}

}  // namespace
}  // namespace quorvane::test

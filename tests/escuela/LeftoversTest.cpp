// Which of a user's publications a program that is gone has left.

#include <filesystem>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

#include "apps/escuela/Leftovers.h"
#include "tests/escuela/OpenSchool.h"
#include "tests/escuela/Tool.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using Holder = Leftovers::Holder;
using Entry = PublicationNotes::Entry;

constexpr std::int32_t kUser = 2;  // who has publication 1 in the sample school
constexpr std::int64_t kThen = 1'700'000'000;

class LeftoversTest : public testing::Test {
 protected:
  /// A program that has noted these and is gone.
  void Dead(const std::vector<Entry>& entries) {
    const auto child = fork();
    if (child == 0) {
      notes_.WriteOwn(entries);
      _exit(0);
    }
    waitpid(child, nullptr, 0);
  }
  /// Puts another text in the place of one in the notes.
  void Forge(const std::string& was, const std::string& becomes) {
    for (const auto& file : NoteFiles()) {
      auto text = Content(file);
      const auto at = text.find(was);
      ASSERT_NE(at, std::string::npos) << text;
      text.replace(at, was.size(), becomes);
      std::ofstream(file) << text;
    }
  }
  [[nodiscard]] std::vector<std::string> NoteFiles() const {
    std::vector<std::string> files;
    const auto folder = std::filesystem::path(school_.Path()).parent_path();
    for (const auto& file : std::filesystem::directory_iterator(folder))
      if (file.path().string().ends_with(".abierta")) files.push_back(file.path());
    return files;
  }
  [[nodiscard]] Holder HolderNow() {
    const auto left = leftovers_.Of(kUser);
    EXPECT_EQ(left.size(), 1U);
    return left.empty() ? Holder::NoteLess : left[0].holder;
  }
  [[nodiscard]] std::size_t Remove() { return leftovers_.RemoveGone(kUser, leftovers_.Of(kUser)); }

  OpenSchool school_;
  PublicationNotes notes_ = PublicationNotes::Beside(school_.Path());
  Leftovers leftovers_{school_.Db(), notes_};
  const Entry entry_{1, kUser, kThen};
};

TEST_F(LeftoversTest, WhatNoProgramHasNotedStays) {
  EXPECT_EQ(HolderNow(), Holder::NoteLess);
  EXPECT_EQ(Remove(), 0U);
  EXPECT_EQ(HolderNow(), Holder::NoteLess);
  EXPECT_TRUE(leftovers_.Of(1).empty()) << "of another user";
}

TEST_F(LeftoversTest, WhatADeadProgramHasNotedGoesWithItsLocksAndItsNote) {
  Dead({entry_});
  const auto left = leftovers_.Of(kUser);
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].holder, Holder::Gone);
  EXPECT_EQ(left[0].since, kThen);
  EXPECT_EQ(left[0].computer, ComputerName());
  EXPECT_THAT(left[0].publication.subjects, SizeIs(2));
  EXPECT_EQ(Remove(), 1U);
  EXPECT_EQ(school_.Count("PublicacionPte") + school_.Count("BloqueoPte"), 0);
  EXPECT_THAT(NoteFiles(), IsEmpty());
}

TEST_F(LeftoversTest, WhatALivingProgramHasNotedStays) {
  notes_.WriteOwn({entry_});
  EXPECT_EQ(HolderNow(), Holder::Running);
  EXPECT_EQ(Remove(), 0U);
  // The number has passed on to somebody who lives: the dead one's word counts for nothing.
  Dead({entry_});
  EXPECT_EQ(NoteFiles().size(), 2U);
  EXPECT_EQ(HolderNow(), Holder::Running);
  EXPECT_EQ(Remove(), 0U);
  notes_.WriteOwn({});
  EXPECT_EQ(HolderNow(), Holder::Gone);
}

TEST_F(LeftoversTest, WhoReachesTheSchoolByALinkOrAnotherPathIsSeenToo) {
  Dead({entry_});
  const TempFolder elsewhere;
  const std::filesystem::path school = school_.Path();
  std::filesystem::create_symlink(school, elsewhere / "enlace.sqlite");
  for (const auto& path :
       {elsewhere / "enlace.sqlite", std::filesystem::relative(school).string()}) {
    const auto notes = PublicationNotes::Beside(path);
    EXPECT_EQ(notes.Read().size(), 1U);
    notes.WriteOwn({entry_});
    EXPECT_EQ(HolderNow(), Holder::Running) << path;
    notes.WriteOwn({});
    EXPECT_EQ(HolderNow(), Holder::Gone) << path;
  }
}

TEST_F(LeftoversTest, AProcessNumberThatIsGivenAgainIsAnotherProgram) {
  notes_.WriteOwn({entry_});
  const auto own = ProcessMark::Own();
  const auto process = "proceso " + std::to_string(own.process) + " ";
  Forge(process + std::to_string(own.start), process + std::to_string(own.start - 1));
  EXPECT_EQ(HolderNow(), Holder::Gone);
}

TEST_F(LeftoversTest, NothingOutlivesTheSystemsEnd) {
  notes_.WriteOwn({entry_});
  Forge(ProcessMark::Own().boot, "0123");
  EXPECT_EQ(HolderNow(), Holder::Gone);
}

TEST_F(LeftoversTest, NothingIsKnownOfAnotherComputerOrContainer) {
  Dead({entry_});
  Forge("equipo ", "equipo otro");
  EXPECT_EQ(HolderNow(), Holder::Elsewhere);
  Forge("equipo otro", "equipo ");
  EXPECT_EQ(HolderNow(), Holder::Gone);
  Forge("espacio pid", "espacio otro");
  EXPECT_EQ(HolderNow(), Holder::Elsewhere);
  EXPECT_EQ(Remove(), 0U);
}

TEST_F(LeftoversTest, AnothersNoteOrOneThatMakesNoSenseSaysNothing) {
  Dead({{1, 1, kThen}, {7, kUser, kThen}});
  EXPECT_EQ(HolderNow(), Holder::NoteLess) << "noted for another user";
  Forge("publicacion 1 1 ", "publicacion 1 2 ");
  EXPECT_EQ(HolderNow(), Holder::Gone);
  Forge("proceso ", "proceso x");
  EXPECT_EQ(HolderNow(), Holder::NoteLess);
}

TEST_F(LeftoversTest, WhatHasChangedSinceItWasSeenStays) {
  Dead({entry_});
  const auto seen = leftovers_.Of(kUser);
  school_.Sql("DELETE FROM BloqueoPte WHERE CodPublicacion=1");
  EXPECT_EQ(leftovers_.RemoveGone(kUser, seen), 0U);
  EXPECT_EQ(HolderNow(), Holder::Gone);
}

TEST_F(LeftoversTest, NotesWithoutAPublicationAreTidiedAway) {
  Dead({{9, kUser, kThen}});
  notes_.WriteOwn({{8, kUser, kThen}});
  leftovers_.Tidy();
  EXPECT_EQ(NoteFiles().size(), 1U) << "the living program's stays";
  Dead({entry_});
  leftovers_.Tidy();
  EXPECT_EQ(NoteFiles().size(), 2U);
}

// Its number may be given to anybody next.
TEST_F(LeftoversTest, WhatIsRemovedByHandIsStruckOut) {
  Dead({entry_, {9, kUser, kThen}});
  EXPECT_EQ(Escuela("bloqueos " + school_.Path() + " --borrar 1").status, 0);
  school_.Sql("INSERT INTO PublicacionPte VALUES (1,0,2,4,2)");
  EXPECT_EQ(HolderNow(), Holder::NoteLess);
  EXPECT_EQ(NoteFiles().size(), 1U) << "what else it says stands";
}

}  // namespace
}  // namespace quorvane::test

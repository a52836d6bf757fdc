#include <fstream>

#include "apps/escuela/SchoolFile.h"
#include "platform/RuntimeError.h"
#include "tests/support/Matchers.h"
#include "tests/support/RunCommand.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

const auto kNothing = [](Connection&) {};

std::string ErrorOf(const std::string& path, const std::function<void(Connection&)>& fill) {
  try {
    MakeSchoolFile(path, fill);
  } catch (const RuntimeError& error) {
    return error.Description();
  }
  return "no error";
}

class SchoolFileTest : public testing::Test {
 protected:
  const TempFolder folder;
  const std::string path = folder / "a.sqlite";
};

TEST_F(SchoolFileTest, MakesTheFileAndLeavesNothingBesideIt) {
  EXPECT_EQ(ErrorOf(path, kNothing), "no error");
  EXPECT_EQ(folder.Files(), 1U);
}

TEST_F(SchoolFileTest, NeverTouchesAFileThatIsThere) {
  std::ofstream(path) << "de otro";
  EXPECT_EQ(ErrorOf(path, kNothing), "No se puede crear " + path + ": el archivo ya existe");
  EXPECT_EQ(Content(path), "de otro");
  EXPECT_EQ(folder.Files(), 1U);
}

TEST_F(SchoolFileTest, NeverTouchesAFileThatComesMeanwhile) {
  EXPECT_THAT(ErrorOf(path, [&](Connection&) { std::ofstream(path) << "de otro"; }),
              HasSubstr("el archivo ya existe"));
  EXPECT_EQ(Content(path), "de otro");
  EXPECT_EQ(folder.Files(), 1U);
}

TEST_F(SchoolFileTest, ALinkToNowhereIsAFileThatIsThere) {
  std::filesystem::create_symlink(folder / "nada", path);
  EXPECT_THAT(ErrorOf(path, kNothing), HasSubstr("el archivo ya existe"));
}

TEST_F(SchoolFileTest, AFailureLeavesNothing) {
  EXPECT_EQ(
      ErrorOf(path, [](Connection& school) { school.Execute("INSERT INTO Nada VALUES (1)"); }),
      "no such table: Nada");
  EXPECT_EQ(folder.Files(), 0U);
}

TEST_F(SchoolFileTest, TellsThatTheFolderIsMissing) {
  EXPECT_THAT(ErrorOf(folder / "falta/a.sqlite", kNothing), HasSubstr("la carpeta no existe"));
}

TEST_F(SchoolFileTest, HalfASchoolNeverBearsTheName) {
  MakeSchoolFile(path, [&](Connection&) { EXPECT_FALSE(std::filesystem::exists(path)); });
  EXPECT_TRUE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace quorvane::test

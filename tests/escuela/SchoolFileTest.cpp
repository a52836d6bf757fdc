#include <fstream>
#include <sstream>
#include <string>

#include "apps/escuela/SchoolFile.h"
#include "platform/RuntimeError.h"
#include "tests/support/Matchers.h"
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

TEST(SchoolFileTest, MakesTheFileAndLeavesNothingBesideIt) {
  const TempFolder folder;
  EXPECT_EQ(ErrorOf(folder / "a.sqlite", kNothing), "no error");
  EXPECT_EQ(folder.Files(), 1U);
}

TEST(SchoolFileTest, NeverTouchesAFileThatIsThere) {
  const TempFolder folder;
  const auto path = folder / "a.sqlite";
  std::ofstream(path) << "de otro";
  EXPECT_EQ(ErrorOf(path, kNothing), "No se puede crear " + path + ": el archivo ya existe");
  std::ostringstream content;
  content << std::ifstream(path).rdbuf();
  EXPECT_EQ(content.str(), "de otro");
  EXPECT_EQ(folder.Files(), 1U);
}

TEST(SchoolFileTest, NeverTouchesAFileThatComesMeanwhile) {
  const TempFolder folder;
  const auto path = folder / "a.sqlite";
  EXPECT_THAT(ErrorOf(path, [&](Connection&) { std::ofstream(path) << "de otro"; }),
              HasSubstr("el archivo ya existe"));
  EXPECT_EQ(std::filesystem::file_size(path), 7U);
  EXPECT_EQ(folder.Files(), 1U);
}

TEST(SchoolFileTest, ALinkToNowhereIsAFileThatIsThere) {
  const TempFolder folder;
  std::filesystem::create_symlink(folder / "nada", folder / "a.sqlite");
  EXPECT_THAT(ErrorOf(folder / "a.sqlite", kNothing), HasSubstr("el archivo ya existe"));
}

TEST(SchoolFileTest, AFailureLeavesNothing) {
  const TempFolder folder;
  EXPECT_EQ(ErrorOf(folder / "a.sqlite",
                    [](Connection& school) { school.Execute("INSERT INTO Nada VALUES (1)"); }),
            "no such table: Nada");
  EXPECT_EQ(folder.Files(), 0U);
}

TEST(SchoolFileTest, TellsThatTheFolderIsMissing) {
  const TempFolder folder;
  EXPECT_THAT(ErrorOf(folder / "falta/a.sqlite", kNothing), HasSubstr("la carpeta no existe"));
}

TEST(SchoolFileTest, HalfASchoolNeverBearsTheName) {
  const TempFolder folder;
  const auto path = folder / "a.sqlite";
  MakeSchoolFile(path, [&](Connection&) { EXPECT_FALSE(std::filesystem::exists(path)); });
  EXPECT_TRUE(std::filesystem::exists(path));
}

}  // namespace
}  // namespace quorvane::test

#include <fstream>
#include <sys/stat.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/DemoSchool.h"
#include "apps/escuela/SchoolFile.h"
#include "tests/device/Device.h"
#include "tests/support/Matchers.h"
#include "tests/support/Opened.h"

// The programs on a disk that is full or can't be written.

namespace quorvane::test {
namespace {

constexpr const char* kMakers[] = {"crear", "demo", "generar"};

std::string Maker(const std::string& name, const std::string& path) {
  return QUORVANE_ESCUELA " " + name + " " + path +
         (name == "generar" ? " --alumnos 2000 --semilla 1" : "");
}

/// A program that isn't the administrator's: permissions mean nothing to him.
std::string Unprivileged(const std::string& command) {
  return getuid() != 0 ? command : "setpriv --reuid=65534 --regid=65534 --clear-groups " + command;
}

class ToolsTest : public testing::Test {
 protected:
  void MakeDemo() {
    MakeSchoolFile(path_, [](Connection& school) { DemoSchool(school).Build(); });
  }
  static Outcome Escuela(const std::string& arguments) {
    return RunCommand(QUORVANE_ESCUELA " " + arguments);
  }

  TempFolder folder_;
  std::string path_ = folder_ / "escuela.sqlite";
};

TEST_F(ToolsTest, ASchoolThatFindsNoRoomIsRefusedAndLeavesNothing) {
  for (const std::string maker : kMakers)
    for (const auto bytes : {rlim_t{0}, rlim_t{4096}, rlim_t{40'960}, rlim_t{150'000}}) {
      SCOPED_TRACE(maker + " " + std::to_string(bytes));
      const LongestFile limit(bytes);
      EXPECT_THAT(RunCommand(Maker(maker, path_)), FieldsAre(1, HasSubstr("queda espacio en")));
      EXPECT_EQ(folder_.Files(), 0U);
    }
}

TEST_F(ToolsTest, TheSameOnADiskThatIsFull) {
  const TinyDisk disk("200k");
  if (!disk.Mounted()) GTEST_SKIP() << "only an administrator mounts a disk";
  for (const std::string maker : kMakers) {
    EXPECT_THAT(RunCommand(Maker(maker, disk.Path() + "a.sqlite")),
                FieldsAre(1, HasSubstr("queda espacio en")))
        << maker;
    EXPECT_TRUE(std::filesystem::is_empty(disk.Path())) << maker;
  }
}

TEST_F(ToolsTest, AFullDiskKeepsTheLocksAndTheSchoolAsTheyWere) {
  MakeDemo();
  const TinyDisk disk("420k");
  if (!disk.Mounted()) GTEST_SKIP() << "only an administrator mounts a disk";
  const auto path = disk.Path() + "escuela.sqlite";
  std::filesystem::copy_file(path_, path);
  disk.FillUp();
  for (const std::string order : {"comprobar ", "bloqueos ", "bloqueos --borrar 1 "}) {
    EXPECT_THAT(Escuela(order + path),
                FieldsAre(1, AllOf(HasSubstr("No se puede abrir la base de datos " + path),
                                   HasSubstr("queda espacio en"))))
        << order;
    EXPECT_EQ(Content(path), Content(path_)) << order;
  }
  disk.MakeRoom();
  EXPECT_EQ(Escuela("bloqueos --borrar 1 " + path).status, 0);
  EXPECT_EQ(Escuela("bloqueos " + path).text, "No hay publicaciones ni bloqueos\n");
}

TEST_F(ToolsTest, AFolderWithoutPermissionIsToldByItsName) {
  const auto folder = folder_ / "ajena";
  std::filesystem::create_directory(folder);
  chmod((folder_ / "").c_str(), 0755);
  chmod(folder.c_str(), 0555);
  const auto path = folder + "/a.sqlite";
  for (const std::string maker : kMakers) {
    const auto outcome = RunCommand(Unprivileged(Maker(maker, path)));
    if (outcome.status > 2) GTEST_SKIP() << "another user can't start it: " << outcome.text;
    EXPECT_THAT(outcome, FieldsAre(1, "quorvane-escuela: No se puede crear " + path +
                                          ": no tiene permiso para escribir en la carpeta\n"));
    EXPECT_TRUE(std::filesystem::is_empty(folder)) << maker;
  }
}

TEST_F(ToolsTest, ASchoolThatCantBeWrittenIsReadAndKeepsItsLocks) {
  MakeDemo();
  Opened<sqlite::SqliteConnection>(path_, "").ExecuteScript(
      "PRAGMA journal_mode=delete; INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
  chmod((folder_ / "").c_str(), 0555);
  chmod(path_.c_str(), 0444);
  const auto before = Content(path_);
  const auto shown = RunCommand(Unprivileged(QUORVANE_ESCUELA " bloqueos " + path_));
  if (shown.status > 2) GTEST_SKIP() << "another user can't start it: " << shown.text;
  EXPECT_THAT(shown, FieldsAre(0, StartsWith("Publicación 1")));
  EXPECT_THAT(RunCommand(Unprivileged(QUORVANE_ESCUELA " bloqueos --borrar 1 " + path_)),
              FieldsAre(1, HasSubstr("dé permiso de escritura sobre el archivo")));
  const TempFolder list;
  std::ofstream(list / "p.csv") << "alumno;sección;materia;curso;evaluaciones\n"
                                   "37;3º ESO B;Música;2º ESO B;todas\n";
  chmod((list / "").c_str(), 0755);
  for (const auto& order :
       {"importar " + path_ + " " + (list / "p.csv"), "reparar --con-publicaciones " + path_,
        "historial " + path_ + " activar"})
    EXPECT_THAT(RunCommand(Unprivileged(QUORVANE_ESCUELA " " + order)),
                FieldsAre(1, HasSubstr("permiso")))
        << order;
  EXPECT_EQ(RunCommand(Unprivileged(QUORVANE_ESCUELA " estado " + path_)).status, 0);
  EXPECT_EQ(Content(path_), before);
  EXPECT_EQ(folder_.Files(), 1U);
  chmod((folder_ / "").c_str(), 0755);
}

TEST_F(ToolsTest, ADiskThatCantBeWrittenIsToldByItsName) {
  const TinyDisk disk("1m");
  if (!disk.Mounted()) GTEST_SKIP() << "only an administrator mounts a disk";
  disk.ReadOnly(true);
  const auto path = disk.Path() + "a.sqlite";
  EXPECT_EQ(RunCommand(Maker("crear", path)).text,
            "quorvane-escuela: No se puede crear " + path + ": el disco es de solo lectura\n");
}

TEST_F(ToolsTest, AnOutputThatFindsNoRoomIsNoSuccess) {
  MakeDemo();
  const std::string full = " 2>&3 >/dev/full; } 3>&1";
  EXPECT_THAT(RunCommand("{ " QUORVANE_ESCUELA " bloqueos " + path_ + full),
              FieldsAre(1, HasSubstr("No se puede escribir la salida")));
  EXPECT_THAT(RunCommand("{ echo nodo 124 | " QUORVANE_GUION " --bd " + path_ + full),
              FieldsAre(2, HasSubstr("No se puede escribir la salida")));
}

TEST_F(ToolsTest, ATraceThatFindsNoRoomIsToldOnceAndDisturbsNothing) {
  MakeDemo();
  const std::string play = "echo 'nodo 124\ncerrar\nnodo 124' | ";
  const auto without = RunCommand(play + QUORVANE_GUION " --bd " + path_);
  const auto with = RunCommand(play + "{ QUORVANE_TRAZA=/dev/full " QUORVANE_GUION " --bd " +
                               path_ + " 2>" + (folder_ / "errores") + "; }");
  EXPECT_THAT(with, FieldsAre(without.status, without.text));
  EXPECT_EQ(
      Content(folder_ / "errores"),
      "No se puede escribir la traza /dev/full: compruebe su carpeta y que queda espacio en el "
      "disco\n");
}

}  // namespace
}  // namespace quorvane::test

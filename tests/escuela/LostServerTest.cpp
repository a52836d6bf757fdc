// A server that goes away in the middle of an order of the head of studies.

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>

#include "apps/escuela/history/GradeHistory.h"
#include "frame/schema/SchoolSchema.h"
#include "tests/escuela/AnySchool.h"
#include "tests/escuela/Tool.h"
#include "tests/servidor/Proxied.h"
#include "tests/support/Matchers.h"
#include "tests/support/TempFolder.h"

namespace quorvane::test {
namespace {

using Moment = TcpProxy::Moment;

/// All rows of the school, and what the history has beside them.
std::string Everything(const AnySchool& school) {
  std::string text;
  const auto add = [&](const std::string& table) {
    for (const auto& rows :
         school.Rows("SELECT string_agg(CAST(t AS text), ';' ORDER BY CAST(t AS text)) FROM " +
                     table + " t"))
      text += table + ": " + rows + "\n";
  };
  for (const auto& table : SchoolTables()) add(table.name);
  for (const auto& name : school.Rows("SELECT tgname FROM pg_trigger WHERE NOT tgisinternal "
                                      "UNION SELECT proname FROM pg_proc WHERE proname LIKE "
                                      "'historial%' ORDER BY 1"))
    text += name + "\n";
  if (GradeHistory(school.Db()).Kept()) add("(SELECT Columna, Antes FROM HistorialNotas)");
  return text;
}

class LostServerTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!OnServer()) GTEST_SKIP() << "no server";
    proxy_ = std::make_unique<TcpProxy>(ServerPort());
    std::ofstream(csv_) << "alumno;sección;materia;curso;evaluaciones;profesor\n"
                           "32;3º ESO A;Matemáticas;2º ESO B;todas;\n"
                           "37;3º ESO B;Música;2º ESO B;todas;\n";
  }

  /// What the orders find: something to mend, and nobody at work.
  static void Prepare(const AnySchool& school, bool history) {
    school.Rest();
    school.Sql("INSERT INTO Seccion_AlumnoPte VALUES (5,777777,0,0)");
    if (!history) return;
    GradeHistory(school.Db()).Activate();
    school.Sql("UPDATE EvaluacionPte SET CodNota=5 WHERE CodNumEvaluacion=1");
  }

  [[nodiscard]] Outcome Run(const AnySchool& school, const std::string& order,
                            const std::string& rest) const {
    return Escuela(order + " --odbc '" + StringThrough(*proxy_, OwnerString(school.Path())) + "' " +
                   rest);
  }

  /// How often it speaks to the server when nothing fails, and what is there afterwards.
  std::pair<std::size_t, std::string> Undisturbed(const std::string& order, const std::string& rest,
                                                  bool history) {
    const AnySchool school;
    Prepare(school, history);
    const auto before = proxy_->Bursts();
    EXPECT_EQ(Run(school, order, rest).status, 0);
    auto after = Everything(school);
    school.ForgetHistory();
    return {proxy_->Bursts() - before, after};
  }

  /// Lets the order lose its server at several places. `writes`: it changes the school.
  void Lose(const std::string& order, const std::string& rest, bool writes, bool history = false) {
    SCOPED_TRACE(order + " " + rest);
    const auto [bursts, after] = Undisturbed(order, rest, history);
    std::filesystem::remove_all(out_);
    const AnySchool school;
    Prepare(school, history);
    const auto before = Everything(school);
    ASSERT_EQ(before != after, writes);
    for (const auto passed : {bursts / 4, bursts / 2, bursts * 3 / 4, bursts - 1}) {
      SCOPED_TRACE(std::to_string(passed) + " of " + std::to_string(bursts));
      proxy_->Fail(TcpProxy::Fault::Reset, Moment::NextRequest, passed);
      const auto lost = Run(school, order, rest);
      EXPECT_TRUE(proxy_->HasFailed());
      // The last that a writer says is that it shall be kept.
      const auto unsure = writes && passed == bursts - 1;
      EXPECT_THAT(
          lost,
          FieldsAre(
              1, unsure ? testing::Matcher<std::string>(HasSubstr(": No se sabe si se ha escrito"))
                        : AnyOf(HasSubstr(": No se puede conectar con la base de datos: "),
                                HasSubstr(": Se ha perdido la conexión con la base de datos, y "
                                          "no se ha cambiado nada. Compruebe la red"))));
      EXPECT_EQ(Everything(school), before);
      EXPECT_FALSE(std::filesystem::exists(out_));
      EXPECT_EQ(folder_.Files(), 1U) << "no part of a report";
    }
    // Done, but the answer to that doesn't come.
    if (writes) {
      proxy_->Fail(TcpProxy::Fault::Reset, Moment::NextAnswer, bursts - 1);
      EXPECT_THAT(Run(school, order, rest),
                  FieldsAre(1, HasSubstr(": No se sabe si se ha escrito, porque la conexión se "
                                         "perdió")));
      EXPECT_EQ(Everything(school), after) << "all or nothing";
    }
    school.ForgetHistory();
  }

  TempFolder folder_;
  std::string csv_ = folder_ / "pendientes.csv";
  std::string out_ = folder_ / "informes";
  std::unique_ptr<TcpProxy> proxy_;
};

TEST_F(LostServerTest, AnImportIsWholeOrUndone) { Lose("importar", csv_, true); }

TEST_F(LostServerTest, ARepairIsWholeOrUndone) { Lose("reparar", "--con-copia-hecha", true); }

TEST_F(LostServerTest, TheHistoryIsSwitchedOnOrNot) { Lose("historial", "activar", true); }

TEST_F(LostServerTest, TheHistoryIsShortenedOrNot) {
  Lose("historial", "purgar --antes 2099-01-01", true, true);
}

TEST_F(LostServerTest, TheStateIsToldOrNot) { Lose("estado", "--detalle", false); }

TEST_F(LostServerTest, NoReportStaysWhereOthersCant) {
  Lose("informe", "--todas --salida " + out_, false);
}

}  // namespace
}  // namespace quorvane::test

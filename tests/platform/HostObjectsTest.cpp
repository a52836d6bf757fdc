#include <ctime>

#include "platform/controls/Form.h"
#include "platform/controls/Label.h"
#include "platform/host/CentroApi.h"
#include "platform/host/LocalTime.h"
#include "platform/host/ObjectFactory.h"
#include "platform/host/PersonSearch.h"
#include "platform/host/SessionValues.h"
#include "tests/platform/FailsWith.h"
#include "tests/support/KeepingConnection.h"

namespace quorvane::test {
namespace {

class OtherCentro : public CentroApi {
 public:
  std::string ObtenerHoraSistema(std::string& dataSource) override { return "de " + dataSource; }
};

TEST(HostComponentsTest, AreMadeByTheirProgIdWithoutRegardToCase) {
  const ObjectFactory factory;
  for (const auto* progId :
       {"ZendriaApi.cCentroApi", "ZENDRIAAPI.CCENTROAPI", "zendriaApi.CcentroApi"})
    EXPECT_NE(factory.Create<CentroApi>(progId), nullptr);
  EXPECT_NE(factory.Create<PersonSearch>("zendriabuscar.casignardatos"), nullptr);
}

TEST(HostComponentsTest, ThatNobodyRegisteredOrOfAnotherClass) {
  const ObjectFactory factory;
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(factory.Create("Zendria.Otro")); }), 429);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(factory.Create<PersonSearch>(CentroApi::kProgId)); }),
            13);
}

TEST(HostComponentsTest, DoNothingUntilAHostPutsItsOwn) {
  ObjectFactory factory;
  Form form("frmX");
  Label label(form, "lblX");
  label.Caption("un texto muy largo");
  std::string source = "maquina";
  std::int32_t personal = 4;
  std::int16_t id = 5;
  KeepingConnection connection("centro");
  const auto centro = factory.Create<CentroApi>(CentroApi::kProgId);
  centro->marcar_Obligatorios(form);
  centro->acortartextolabel(label);
  centro->DesbloquearNotas(connection, 1, personal, id, id);
  EXPECT_EQ(label.Caption(), "un texto muy largo");
  EXPECT_EQ(centro->ObtenerHoraSistema(source), "");
  EXPECT_FALSE(centro->notasactivas(connection, "", 1, personal, id, id));
  EXPECT_TRUE(connection.reached.empty());
  const auto search = factory.Create<PersonSearch>(PersonSearch::kProgId);
  search->pasarconexiones(&connection, &connection, &connection, &connection);
  search->ObtenerDatos(true, "");
  EXPECT_EQ(search->Buscar("Docente"), 0);

  factory.Register("zendriaapi.ccentroapi", [] { return std::make_unique<OtherCentro>(); });
  EXPECT_EQ(factory.Create<CentroApi>(CentroApi::kProgId)->ObtenerHoraSistema(source),
            "de maquina");
  factory.Reset();
  EXPECT_EQ(factory.Create<CentroApi>(CentroApi::kProgId)->ObtenerHoraSistema(source), "");
}

TEST(SessionTest, AnswersByNameWithoutRegardToCase) {
  SessionValues session;
  session.Set("IDUsuario", Value(7));
  EXPECT_EQ(std::get<Value>(session.Get("idusuario")).Long(), 7);
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(session.Get("IDPerfil")); }), 438);
  session.Remove("IDUSUARIO");
  EXPECT_EQ(ErrorOf([&] { static_cast<void>(session.Get("IDUsuario")); }), 438);
}

TEST(ConnectionTest, TellsItsObserverBeforeTheEngine) {
  KeepingConnection connection("borrado");
  std::vector<std::string> seen;
  connection.Observe([&seen](const Connection& which, const std::string& statement) {
    seen.push_back(which.Name() + " " + statement);
    if (statement == "dos") throw RuntimeError(ErrorNumber::StatementFailed, "fallo");
  });
  connection.Execute("uno");
  EXPECT_EQ(ErrorOf([&] { connection.Execute("dos"); }), -2147467259);
  EXPECT_THAT(seen, ElementsAre("borrado uno", "borrado dos"));
  EXPECT_THAT(connection.reached, ElementsAre("uno"));
  connection.Observe(nullptr);
  connection.Execute("tres");
  EXPECT_EQ(seen.size(), 2U);
}

TEST(ConnectionTest, ClosedTakesNoStatement) {
  KeepingConnection connection("centro");
  connection.Close();
  EXPECT_EQ(ErrorOf([&] { connection.Execute("uno"); }), 3704);
  connection.Open();
  connection.Execute("dos");
  EXPECT_THAT(connection.reached, ElementsAre("dos"));
}

TEST(LocalTimeTest, IsTheMomentInThePartsOfThisTimeZone) {
  constexpr std::time_t kMoment = 1774051200;  // some hour of the 20th or the 21st of March 2026
  auto parts = LocalTime(kMoment);
  EXPECT_EQ(parts.tm_year, 126);
  EXPECT_EQ(parts.tm_mon, 2);
  EXPECT_TRUE(parts.tm_mday == 20 || parts.tm_mday == 21) << parts.tm_mday;
  EXPECT_EQ(std::mktime(&parts), kMoment);
}

}  // namespace
}  // namespace quorvane::test

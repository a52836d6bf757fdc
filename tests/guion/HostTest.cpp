#include "adapters/guion/host/Host.h"
#include "adapters/guion/player/Guion.h"
#include "platform/RuntimeError.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/MessageBox.h"
#include "platform/host/PersonSearch.h"
#include "tests/guion/GuionTest.h"

namespace quorvane::test {
namespace {

class HostTest : public GuionTest {
 protected:
  [[nodiscard]] Value Member(const std::string& name) const {
    return std::get<Value>(session->Get(name));
  }
  [[nodiscard]] Connection* ConnectionMember(const std::string& name) const {
    return std::get<Connection*>(session->Get(name));
  }
  /// The days that the host answers a form whose button asks for one.
  Lines DaysIn(const std::string& script) {
    Lines days;
    frmPrueba::alPulsar = [&days] {
      std::string source = "maquina";
      days.push_back(Centro()->ObtenerHoraSistema(source));
    };
    told = Play("nodo 1\n" + script);
    return days;
  }
  static std::unique_ptr<CentroApi> Centro() {
    return Application::Instance().Objects().Create<CentroApi>("zendriaapi.CCENTROAPI");
  }

  Lines told;  ///< by the last script for days
};

TEST_F(HostTest, HandsInASessionWithEveryMember) {
  options.rutaBD = "centro.sqlite";
  Play("");
  for (const auto* member : {"RutaAplicacion", "RutaBD", "Activa", "Accion", "lngRowData",
                             "IDUsuario", "IDCentro", "IDCursoEscolar", "NombreUsuario",
                             "NombreCentro", "Pesetas", "RutaIcono", "IDPerfil", "SQLServer"})
    EXPECT_NO_THROW(static_cast<void>(Member(member).Text())) << member;
  EXPECT_EQ(ConnectionMember("conexionlocalCENTRO"), &centro);
  EXPECT_EQ(ConnectionMember("conexionBORRADOlocalCENTRO"), &borrado);
  EXPECT_EQ(ConnectionMember("conexionAppEntrada"), &entrada);
  EXPECT_EQ(Member("RutaBD").Text(), "centro.sqlite");
  EXPECT_EQ(Member("RutaIcono").Text(), "C:\\Zendria\\iconos\\zendria.ico");
  EXPECT_EQ(Member("IDUsuario").Integer(), 1);
  EXPECT_EQ(Member("IDPerfil").Integer(), 0);
  EXPECT_EQ(Member("IDCentro").Integer(), 1);
  EXPECT_TRUE(Member("Activa").Flag());
  EXPECT_FALSE(Member("SQLServer").Flag());
}

TEST_F(HostTest, SesionHandsInAnotherWithWhatItNames) {
  options.sqlServer = true;
  Play("sesion usuario=7 perfil=2\nsesion centro=3 activa=0");
  EXPECT_EQ(Member("IDUsuario").Integer(), 7);
  EXPECT_EQ(Member("IDPerfil").Integer(), 2);
  EXPECT_EQ(Member("IDCentro").Integer(), 3);
  EXPECT_FALSE(Member("Activa").Flag());
  EXPECT_TRUE(Member("SQLServer").Flag());
}

void ReadTheUser(const std::shared_ptr<const SessionObject>& handedIn) {
  static_cast<void>(std::get<Value>(handedIn->Get("IDUsuario")).Integer());
}

TEST_F(HostTest, AnErrorOfTheModuleAtTheSessionIsTold) {
  module.ObtenerDatos = ReadTheUser;
  EXPECT_EQ(Play("sesion usuario=70000\nsesion usuario=7"), Lines{"error 6 Desbordamiento"});
  EXPECT_EQ(status, 1);
}

TEST_F(HostTest, AnErrorAtTheSessionLeavesTheOpenForm) {
  module.ObtenerDatos = ReadTheUser;
  EXPECT_EQ(PlayIn("sesion usuario=70000\npulsar cmdAceptar"),
            (Lines{"error 6 Desbordamiento", "sql centro suceso cmdAceptar"}));
}

TEST_F(HostTest, PrintsTheCallsOfItsComponents) {
  frmPrueba::alPulsar = [this] {
    auto& form = FormInstance<frmPrueba>::Get();
    std::int32_t personal = 0;
    std::int16_t id = 0;
    Centro()->marcar_Obligatorios(form);
    Centro()->acortartextolabel(form.lblTexto);
    Centro()->DesbloquearNotas(centro, 1, personal, id, id);
  };
  EXPECT_EQ(PlayIn("pulsar cmdAccion"), (Lines{"host ZendriaApi.cCentroApi.marcar_Obligatorios",
                                               "host ZendriaApi.cCentroApi.acortartextolabel",
                                               "host ZendriaApi.cCentroApi.DesbloquearNotas"}));
}

TEST_F(HostTest, AnswersTheDayThatTheScriptTold) {
  options.hoy = "01/02/2026";
  EXPECT_THAT(
      DaysIn("pulsar cmdAccion\nhoy 3/4/2026\npulsar cmdAccion\nhoy \"\"\npulsar cmdAccion"),
      ElementsAre("01/02/2026", "3/4/2026", ""));
  EXPECT_EQ(told.back(), "host ZendriaApi.cCentroApi.ObtenerHoraSistema");
}

TEST_F(HostTest, AnswersTheServersDayUntilTheScriptTellsOne) {
  int asked = 0;
  options.hoyDelServidor = [&asked] { return std::to_string(++asked) + "/05/2026"; };
  EXPECT_THAT(DaysIn("pulsar cmdAccion\npulsar cmdAccion\nhoy \"\"\npulsar cmdAccion"),
              ElementsAre("1/05/2026", "2/05/2026", ""));
}

TEST_F(HostTest, AnswersNotasActivasFromNowOn) {
  std::vector<bool> answers;
  frmPrueba::alPulsar = [this, &answers] {
    std::int32_t personal = 0;
    std::int16_t id = 0;
    answers.push_back(Centro()->notasactivas(centro, "", 1, personal, id, id));
  };
  Play(
      "nodo 1\npulsar cmdAccion\nnotasactivas 1\npulsar cmdAccion\npulsar cmdAccion\n"
      "notasactivas 0\npulsar cmdAccion");
  EXPECT_EQ(answers, (std::vector<bool>{false, true, true, false}));
}

TEST_F(HostTest, FindsTheTeacherOnce) {
  std::vector<std::int32_t> found;
  frmPrueba::alPulsar = [this, &found] {
    const auto search =
        Application::Instance().Objects().Create<PersonSearch>(PersonSearch::kProgId);
    search->pasarconexiones(&centro, &borrado, &centro, &borrado);
    search->ObtenerDatos(true, "");
    found.push_back(search->Buscar("Docente"));
  };
  const auto lines = PlayIn("pulsar cmdAccion\ndocente 9\npulsar cmdAccion\npulsar cmdAccion");
  EXPECT_EQ(found, (std::vector<std::int32_t>{0, 9, 0}));
  EXPECT_EQ((Lines{lines.begin(), lines.begin() + 3}),
            (Lines{"host ZendriaBuscar.CAsignardatos.pasarconexiones",
                   "host ZendriaBuscar.CAsignardatos.ObtenerDatos",
                   "host ZendriaBuscar.CAsignardatos.Buscar"}));
}

TEST_F(HostTest, PrintsMessagesAndBeeps) {
  frmPrueba::alPulsar = [] {
    MessageBox("Año \"2\"\r\n\xFF", MessageIcon::Information);
    BeepAndMessage("No", MessageIcon::Exclamation);
    MessageBox("Mal", MessageIcon::Critical);
  };
  EXPECT_EQ(PlayIn("pulsar cmdAccion"),
            (Lines{R"(mensaje informacion "Zendria Escuela" "Año \"2\"\r\n)"
                   "\xEF\xBF\xBD\"",
                   "pitido", R"(mensaje exclamacion "Zendria Escuela" "No")",
                   R"(mensaje critico "Zendria Escuela" "Mal")"}));
}

TEST_F(HostTest, TheStatementOfThatNumberFailsBeforeTheEngine) {
  frmPrueba::alPulsar = [this] {
    borrado.Execute("uno");
    entrada.Execute("dos");
    centro.Execute("tres");
  };
  EXPECT_EQ(PlayIn("fallo 2\npulsar cmdAccion\nnodo 0"),
            (Lines{"sql borrado uno", "sql entrada dos", "error -2147467259 fallo", "vuelve 0"}));
  EXPECT_EQ(status, 1);
  EXPECT_EQ(borrado.reached, Lines{"uno"});
  EXPECT_TRUE(entrada.reached.empty());
}

TEST_F(HostTest, TheStatementsAfterTheFailedOneRunAgain) {
  frmPrueba::alPulsar = [this] {
    EXPECT_THROW(centro.Execute("uno"), RuntimeError);
    centro.Execute("dos");
  };
  EXPECT_EQ(PlayIn("fallo 1\npulsar cmdAccion"), (Lines{"sql centro uno", "sql centro dos"}));
  EXPECT_EQ(centro.reached.back(), "dos");
  EXPECT_EQ(status, 0);
}

TEST_F(HostTest, SqlIsAnotherUsersAndIsNotToldAsTheModules) {
  EXPECT_EQ(Play("fallo 1\nsql \"SELECT 1\"\nsql \"UPDATE x\"\nsql \"malo\""),
            (Lines{"fila [\"texto\",null]", "rechazo sql \"malo\": rechazada"}));
  EXPECT_EQ(otra.reached, (Lines{"SELECT 1", "UPDATE x", "malo"}));
  EXPECT_EQ(status, 0);
}

TEST_F(HostTest, MeasuresTextByItsCharacters) {
  std::int32_t width = 0;
  frmPrueba::alPulsar = [&width] { width = FormInstance<frmPrueba>::Get().TextWidth("Ñu 1"); };
  PlayIn("pulsar cmdAccion");
  EXPECT_EQ(width, 480);
}

}  // namespace
}  // namespace quorvane::test

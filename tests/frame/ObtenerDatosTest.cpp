#include <iterator>
#include <sstream>

#include "frame/Conexiones.h"
#include "frame/cAsignarDatos.h"
#include "frame/cConfiguracion.h"
#include "platform/host/Application.h"
#include "platform/host/SessionValues.h"
#include "tests/frame/TableConnection.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

using Names = std::vector<std::string>;

/// A session that notes which of its members are read.
class RecordingSession : public SessionValues {
 public:
  [[nodiscard]] SessionMember Get(const std::string& member) const override {
    read.push_back(member);
    return SessionValues::Get(member);
  }

  mutable Names read;
};

// The application's path alone is read twice.
const auto kOrder = [] {
  std::istringstream names(
      "RutaAplicacion RutaBD Activa Accion lngRowData conexionBORRADOlocalCENTRO "
      "conexionlocalCENTRO conexionAppEntrada IDUsuario IDCentro IDCursoEscolar NombreUsuario "
      "NombreCentro Pesetas RutaIcono IDPerfil RutaAplicacion SQLServer");
  return Names(std::istream_iterator<std::string>(names), {});
}();

constexpr const char* kConnections[] = {"conexionBORRADOlocalCENTRO", "conexionlocalCENTRO",
                                        "conexionAppEntrada"};

class ObtenerDatosTest : public testing::Test {
 protected:
  ObtenerDatosTest() {
    cConfiguracion::Instancia() = cConfiguracion();
    session->Set("RutaAplicacion", Value("C:\\Zendria"));
    session->Set("RutaBD", Value("C:\\datos\\centro.db"));
    session->Set("Activa", Value(-1));
    session->Set("Accion", Value(3));
    session->Set("lngRowData", Value(100000));
    session->Set("conexionBORRADOlocalCENTRO", &borrado);
    session->Set("conexionlocalCENTRO", &centro);
    session->Set("conexionAppEntrada", &entrada);
    session->Set("IDUsuario", Value(7));
    session->Set("IDCentro", Value(2));
    session->Set("IDCursoEscolar", Value(26));
    session->Set("NombreUsuario", Value("Ana"));
    session->Set("NombreCentro", Value("IES Uno"));
    session->Set("Pesetas", Value(-1));
    session->Set("RutaIcono", Value("C:\\Zendria\\iconos\\app.ico"));
    session->Set("IDPerfil", Value(4));
    session->Set("SQLServer", Value(-1));
  }

  [[nodiscard]] std::int32_t Error() const {
    return ErrorOf([this] { cAsignarDatos().ObtenerDatos(session); });
  }
  static const cConfiguracion& Configuracion() { return cConfiguracion::Instancia(); }

  TableConnection centro;
  TableConnection borrado;
  TableConnection entrada;
  std::shared_ptr<RecordingSession> session = std::make_shared<RecordingSession>();
};

TEST_F(ObtenerDatosTest, IsReadInOrderAndFillsTheConfigurationWithoutAStatement) {
  cAsignarDatos().ObtenerDatos(session);
  EXPECT_EQ(session->read, kOrder);
  const auto& filled = Configuracion();
  EXPECT_EQ(Application::Instance().HelpFile(), "C:\\Zendria\\zendria.chm");
  EXPECT_EQ(filled.RutaBD, "C:\\datos\\centro.db");
  EXPECT_TRUE(filled.Activa);
  EXPECT_EQ(filled.bytAccion, 3);
  EXPECT_EQ(filled.lngRowData, 100000);
  EXPECT_EQ(filled.conLocalBorradoCentro, &borrado);
  EXPECT_EQ(filled.conLocalCentro, &centro);
  EXPECT_EQ(filled.conLocalAppEntrada, &entrada);
  EXPECT_EQ(filled.intIDUsuario, 7);
  EXPECT_EQ(filled.intIdCentro, 2);
  EXPECT_EQ(filled.intIDCursoEscolar, 26);
  EXPECT_EQ(filled.strNombreUsuario, "Ana");
  EXPECT_EQ(filled.strNombreCentro, "IES Uno");
  EXPECT_TRUE(filled.blnPesetas);
  EXPECT_EQ(filled.RutaIcono, "C:\\Zendria\\iconos\\app.ico");
  EXPECT_EQ(filled.intIDPerfil, 4);
  EXPECT_EQ(filled.RutaAplicacion, "C:\\Zendria");
  EXPECT_TRUE(filled.SQLServer);
  EXPECT_EQ(filled.datossesion, session);
  // It has no course and no kind of teaching.
  EXPECT_EQ(filled.intCodCurso, 0);
  EXPECT_EQ(filled.intTipoEnsenanza, 0);
  for (const auto* connection : {&centro, &borrado, &entrada})
    EXPECT_TRUE(connection->statements.empty());
}

TEST_F(ObtenerDatosTest, HandedInAgainOverwritesAndResetsNothing) {
  cAsignarDatos().ObtenerDatos(session);
  cConfiguracion::Instancia().intCodCurso = 5;
  session->Set("IDUsuario", Value(8));
  session->Set("Activa", Value(0));
  cAsignarDatos().ObtenerDatos(session);
  EXPECT_EQ(Configuracion().intIDUsuario, 8);
  EXPECT_FALSE(Configuracion().Activa);
  EXPECT_EQ(Configuracion().intCodCurso, 5);
}

TEST_F(ObtenerDatosTest, EachMissingMemberIsAnErrorWhereItIsRead) {
  for (std::size_t i = 0; i < kOrder.size(); ++i) {
    if (i > 0 && kOrder[i] == kOrder[0]) continue;
    const auto kept = session->Get(kOrder[i]);
    session->Remove(kOrder[i]);
    session->read.clear();
    EXPECT_EQ(Error(), 438) << kOrder[i];
    EXPECT_EQ(session->read, Names(kOrder.begin(), kOrder.begin() + static_cast<int>(i) + 1));
    session->Set(kOrder[i], kept);
  }
  EXPECT_EQ(Error(), 0);
}

TEST_F(ObtenerDatosTest, WhatWasReadBeforeAMissingMemberStays) {
  session->Remove("conexionlocalCENTRO");
  EXPECT_EQ(Error(), 438);
  EXPECT_EQ(Configuracion().conLocalBorradoCentro, &borrado);
  EXPECT_EQ(Configuracion().lngRowData, 100000);
  EXPECT_EQ(Configuracion().conLocalCentro, nullptr);
  EXPECT_EQ(Configuracion().intIDUsuario, 0);
  EXPECT_EQ(Configuracion().datossesion, nullptr);
}

TEST_F(ObtenerDatosTest, AConnectionThatIsNoneAndOneInAValuesPlaceAreAMismatch) {
  for (const auto* member : kConnections) {
    const auto kept = session->Get(member);
    session->Set(member, Value("DSN=centro"));
    EXPECT_EQ(Error(), 13) << member;
    session->Set(member, kept);
  }
  session->Set("NombreUsuario", &centro);
  EXPECT_EQ(Error(), 13);
}

TEST_F(ObtenerDatosTest, AConnectionThatIsNothingIsKeptAndOnlyItsUseFails) {
  for (const auto* member : kConnections) session->Set(member, static_cast<Connection*>(nullptr));
  EXPECT_EQ(Error(), 0);
  EXPECT_EQ(Configuracion().conLocalBorradoCentro, nullptr);
  EXPECT_EQ(Configuracion().conLocalCentro, nullptr);
  EXPECT_EQ(Configuracion().datossesion, session);
  EXPECT_EQ(ErrorOf([] { Centro(); }), 91);
  EXPECT_EQ(ErrorOf([] { AppEntrada(); }), 91);
}

TEST_F(ObtenerDatosTest, ValuesHaveToFitTheirFields) {
  const std::pair<const char*, int> cases[] = {{"IDUsuario", 32768}, {"IDCentro", -32769},
                                               {"IDPerfil", 40000},  {"IDCursoEscolar", 99999},
                                               {"Accion", 256},      {"Accion", -1}};
  for (const auto& [member, value] : cases) {
    const auto kept = session->Get(member);
    session->Set(member, Value(value));
    EXPECT_EQ(Error(), 6) << member;
    session->Set(member, Value("x"));
    EXPECT_EQ(Error(), 13) << member;
    session->Set(member, kept);
  }
  session->Set("lngRowData", Value(std::int64_t{1} << 31));
  EXPECT_EQ(Error(), 6);
}

TEST_F(ObtenerDatosTest, NullsAreZeroFalseAndEmpty) {
  for (const auto* member : {"Activa", "Accion", "IDUsuario", "NombreUsuario", "RutaAplicacion"})
    session->Set(member, Value());
  EXPECT_EQ(Error(), 0);
  EXPECT_FALSE(Configuracion().Activa);
  EXPECT_EQ(Configuracion().intIDUsuario, 0);
  EXPECT_EQ(Application::Instance().HelpFile(), "\\zendria.chm");
}

TEST_F(ObtenerDatosTest, HasToBeThere) {
  EXPECT_EQ(ErrorOf([] { cAsignarDatos().ObtenerDatos(nullptr); }), 91);
}

}  // namespace
}  // namespace quorvane::test

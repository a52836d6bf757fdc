#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "frame/cDatosSesion.h"
#include "frame/modGeneral.h"
#include "tests/frame/TableConnection.h"
#include "tests/platform/FailsWith.h"

namespace quorvane::test {
namespace {

TEST(RowStatesTest, HaveTheirNumbers) {
  const cConstCol states;
  EXPECT_EQ(states.NoModificado, 0);
  EXPECT_EQ(states.NUEVO, 1);
  EXPECT_EQ(states.Modificado, 2);
  EXPECT_EQ(states.Eliminado, 3);
}

TEST(ConfigurationTest, IsOneInstance) {
  EXPECT_EQ(&cConfiguracion::Instancia(), &cConfiguracion::Instancia());
}

TEST(ConfigurationTest, WritesTrueAsTheEngineHasIt) {
  cConfiguracion configuracion;
  EXPECT_EQ(configuracion.NumeroVerdadero(), -1);
  configuracion.SQLServer = true;
  EXPECT_EQ(configuracion.NumeroVerdadero(), 1);
}

TEST(ConfigurationTest, KnowsTheFolderOfTheIcons) {
  cConfiguracion configuracion;
  EXPECT_EQ(configuracion.CarpetaIconos(), "");
  configuracion.RutaIcono = "C:\\Zendria\\iconos\\app.ico";
  EXPECT_EQ(configuracion.CarpetaIconos(), "C:\\Zendria\\iconos\\");
  configuracion.RutaIcono = "app.ico";
  EXPECT_EQ(configuracion.CarpetaIconos(), "");
}

TEST(RecordForHostsTest, IsEmptyAtFirstAndTakesAllItsFields) {
  cDatosSesion sesion;
  EXPECT_EQ(sesion.IDPerfil, 0);
  EXPECT_FALSE(sesion.Activa);
  sesion = {1, 2, "IES", 3, "Ana", 26, "2025/26", true, false, "centro.udl", "C:\\Zendria", true};
  EXPECT_EQ(sesion.IDCentro, 2);
  EXPECT_EQ(sesion.IDUsuario, 3);
  EXPECT_EQ(sesion.ValorCursoEscolar, "2025/26");
  EXPECT_EQ(sesion.CadenaUdlActiva, "centro.udl");
  EXPECT_TRUE(sesion.SQLServer);
}

class NextKeyTest : public testing::Test {
 protected:
  std::int32_t Next(std::vector<Value> column) {
    connection.column = std::move(column);
    return ObtenerSiguienteId(connection, nullptr,
                              "SELECT MAX(IDEvaluacionPte) FROM [EvaluacionPte]");
  }

  TableConnection connection;
};

TEST_F(NextKeyTest, IsAskedForInOneStatement) {
  Next({Value(1)});
  EXPECT_EQ(connection.statements,
            std::vector<std::string>{"SELECT MAX(IDEvaluacionPte) FROM [EvaluacionPte]"});
}

TEST_F(NextKeyTest, IsOneMoreThanTheLargestAndOneWithoutAny) {
  EXPECT_EQ(Next({}), 1);
  EXPECT_EQ(Next({Value()}), 1);
  EXPECT_EQ(Next({Value(41)}), 42);
  EXPECT_EQ(Next({Value(0)}), 1);
  EXPECT_EQ(Next({Value(-5)}), -4);
  EXPECT_EQ(Next({Value("41")}), 42);
}

TEST_F(NextKeyTest, FailsBeyondItsFieldAndAsTheStatementDoes) {
  EXPECT_EQ(ErrorOf([this] { Next({Value(2147483647)}); }), 6);
  EXPECT_EQ(ErrorOf([this] { Next({Value(std::int64_t{1} << 40)}); }), 6);
  connection.refuses = true;
  EXPECT_EQ(ErrorOf([this] { Next({}); }), -2147467259);
}

TEST_F(NextKeyTest, DoesntUseTheOtherConnection) {
  TableConnection other;
  connection.column = {Value(41)};
  EXPECT_EQ(ObtenerSiguienteId(connection, &other, "SELECT MAX(IDBloqueo) FROM [BloqueoPte]"), 42);
  EXPECT_TRUE(other.statements.empty());
}

TEST(GradeWidthTest, IsNotShownAtFirst) { EXPECT_FALSE(gblnMostrarAnchoNotas); }

}  // namespace
}  // namespace quorvane::test

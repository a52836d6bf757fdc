#include "selection/FechaNotas.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>

#include "frame/cConfiguracion.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/LocalTime.h"
#include "selection/LeerFecha.h"

namespace quorvane {
namespace {

bool UsuarioSinFechas(Connection& entrada) {
  entrada.Open();
  const auto usuario = entrada.Execute(
      Sql(" SELECT codpadre,idUsuario,adminsistema FROM Usuario WHERE  IDUsuario = {}",
          cConfiguracion::Instancia().intIDUsuario));
  return usuario.Fields("codpadre").Long() != 0 || usuario.Fields("AdminSistema").Flag();
}

}  // namespace

std::optional<Recordset> PeriodoDeEntrada(Connection& entrada, Connection& centro,
                                          std::int32_t seccion, std::int32_t evaluacion) {
  if (UsuarioSinFechas(entrada)) return std::nullopt;
  auto periodo = centro.Execute(Sql(
      " SELECT fechaInicio,fechaFin,codseccion  FROM FechaNotas WHERE  codseccion={}  AND codNumEvaluacion= {} ",
      seccion, evaluacion));
  if (periodo.Eof()) return std::nullopt;
  return periodo;
}

std::string FechaServidor(const Connection& centro) {
  auto origen = centro.DataSource();
  const auto api = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  auto fecha = api->ObtenerHoraSistema(origen);
  return fecha.empty() ? FechaLocal() : fecha;
}

std::string FechaLocal() {
  const auto local = LocalTime(std::time(nullptr));
  std::string text(sizeof "dd/mm/yyyy" - 1, ' ');
  std::strftime(text.data(), text.size() + 1, "%d/%m/%Y", &local);
  return text;
}

std::string FormatoFecha(const std::string& fecha) {
  const auto leida = LeerFecha(fecha);
  if (!leida) return fecha;
  std::array<char, 40> texto;
  std::snprintf(texto.data(), texto.size(), "%04d/%02u/%02u", static_cast<int>(leida->year()),
                static_cast<unsigned>(leida->month()), static_cast<unsigned>(leida->day()));
  return texto.data();
}

bool EnFecha(const std::string& fecha, const Recordset& periodo) {
  const auto& inicio = periodo.Fields("FechaInicio");
  const auto& fin = periodo.Fields("Fechafin");
  if (inicio.IsNull() || fin.IsNull()) return false;
  return fecha >= inicio.Text() && fecha <= fin.Text();
}

}  // namespace quorvane

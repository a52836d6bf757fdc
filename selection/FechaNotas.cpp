#include "selection/FechaNotas.h"

#include <chrono>
#include <ctime>
#include <regex>

#include "frame/cConfiguracion.h"
#include "platform/Application.h"
#include "platform/CentroApi.h"
#include "platform/Connection.h"
#include "platform/RuntimeError.h"

namespace quorvane {
namespace {

bool UsuarioSinFechas() {
  const auto& configuracion = cConfiguracion::Instancia();
  auto& entrada = *configuracion.conLocalAppEntrada;
  entrada.Open();
  const auto usuario =
      entrada.Execute(" SELECT codpadre,idUsuario,adminsistema FROM Usuario WHERE  IDUsuario = " +
                      std::to_string(configuracion.intIDUsuario));
  return usuario.Fields("codpadre").Long() != 0 || usuario.Fields("AdminSistema").Flag();
}

Recordset LeerFechaNotas(std::int32_t seccion, std::int32_t evaluacion) {
  return cConfiguracion::Instancia().conLocalCentro->Execute(
      " SELECT fechaInicio,fechaFin,codseccion  FROM FechaNotas WHERE  codseccion=" +
      std::to_string(seccion) + "  AND codNumEvaluacion= " + std::to_string(evaluacion) + " ");
}

}  // namespace

std::optional<Recordset> PeriodoDeEntrada(std::int32_t seccion, std::int32_t evaluacion) {
  if (UsuarioSinFechas()) return std::nullopt;
  auto periodo = LeerFechaNotas(seccion, evaluacion);
  if (periodo.Eof()) return std::nullopt;
  return periodo;
}

std::string FechaServidor() {
  auto origen = cConfiguracion::Instancia().conLocalCentro->DataSource();
  const auto api = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  auto fecha = api->ObtenerHoraSistema(origen);
  return fecha.empty() ? FechaLocal() : fecha;
}

std::string FechaLocal() {
  const auto now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  std::string text(sizeof "dd/mm/yyyy" - 1, ' ');
  std::strftime(text.data(), text.size() + 1, "%d/%m/%Y", &local);
  return text;
}

std::string FormatoFecha(const std::string& fecha) {
  static const std::regex kDayMonthYear("([0-9]{1,2})[/-]([0-9]{1,2})[/-]([0-9]{4})");
  std::smatch parts;
  if (!std::regex_match(fecha, parts, kDayMonthYear)) throw RuntimeError(ErrorNumber::TypeMismatch);
  const auto day = std::stoul(parts[1]);
  const auto month = std::stoul(parts[2]);
  const std::chrono::year_month_day date{std::chrono::year(std::stoi(parts[3])),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) throw RuntimeError(ErrorNumber::TypeMismatch);
  const auto twoDigits = [](const std::string& digits) {
    return digits.size() == 1 ? "0" + digits : digits;
  };
  return parts[3].str() + "/" + twoDigits(parts[2]) + "/" + twoDigits(parts[1]);
}

bool EnFecha(const std::string& fecha, const Recordset& periodo) {
  const auto& inicio = periodo.Fields("FechaInicio");
  const auto& fin = periodo.Fields("Fechafin");
  if (inicio.IsNull() || fin.IsNull()) return false;
  return fecha >= inicio.Text() && fecha <= fin.Text();
}

}  // namespace quorvane

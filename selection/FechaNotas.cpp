#include "selection/FechaNotas.h"

#include <chrono>
#include <ctime>

#include "frame/cConfiguracion.h"
#include "platform/RuntimeError.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/LocalTime.h"

namespace quorvane {
namespace {

bool UsuarioSinFechas(Connection& entrada) {
  entrada.Open();
  const auto usuario = entrada.Execute(
      Sql(" SELECT codpadre,idUsuario,adminsistema FROM Usuario WHERE  IDUsuario = {}",
          cConfiguracion::Instancia().intIDUsuario));
  return usuario.Fields("codpadre").Long() != 0 || usuario.Fields("AdminSistema").Flag();
}

/// The text, which has to be so many digits and nothing else.
std::string Cifras(const std::string& text, std::size_t least, std::size_t most) {
  if (text.size() < least || text.size() > most ||
      text.find_first_not_of("0123456789") != std::string::npos)
    throw RuntimeError(ErrorNumber::TypeMismatch);
  return text;
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
  const auto month = fecha.find_first_of("/-");
  const auto year = month == std::string::npos ? month : fecha.find_first_of("/-", month + 1);
  if (year == std::string::npos) throw RuntimeError(ErrorNumber::TypeMismatch);
  const auto dia = Cifras(fecha.substr(0, month), 1, 2);
  const auto mes = Cifras(fecha.substr(month + 1, year - month - 1), 1, 2);
  const auto anno = Cifras(fecha.substr(year + 1), 4, 4);
  const std::chrono::year_month_day date{std::chrono::year(std::stoi(anno)),
                                         std::chrono::month(static_cast<unsigned>(std::stoi(mes))),
                                         std::chrono::day(static_cast<unsigned>(std::stoi(dia)))};
  if (!date.ok()) throw RuntimeError(ErrorNumber::TypeMismatch);
  const auto twoDigits = [](const std::string& digits) {
    return digits.size() == 1 ? "0" + digits : digits;
  };
  return anno + "/" + twoDigits(mes) + "/" + twoDigits(dia);
}

bool EnFecha(const std::string& fecha, const Recordset& periodo) {
  const auto& inicio = periodo.Fields("FechaInicio");
  const auto& fin = periodo.Fields("Fechafin");
  if (inicio.IsNull() || fin.IsNull()) return false;
  return fecha >= inicio.Text() && fecha <= fin.Text();
}

}  // namespace quorvane

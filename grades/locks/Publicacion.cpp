#include "grades/locks/Publicacion.h"

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "grades/locks/MateriasBloqueo.h"
#include "grades/saving/Intentos.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"
#include "platform/host/MessageBox.h"

namespace quorvane {
namespace {

constexpr const char* kErrorInsertar = "Error al insertar la publicacion";

std::int16_t Usuario() { return cConfiguracion::Instancia().intIDUsuario; }

}  // namespace

bool Publicacion::YaAbierta(std::int32_t seccion, std::int32_t evaluacion) {
  const auto recordset = Centro().Execute(Sql(
      "SELECT IDPublicacionPte FROM PublicacionPte WHERE codPropietario={} AND CodSeccion={} AND CodNumEvaluacion={}",
      Usuario(), seccion, evaluacion));
  if (recordset.Eof()) return false;
  BeepAndMessage(
      "En la sección y evaluación seleccionadas se están introduciendo notas. "
      "No puede acceder a estos datos.",
      MessageIcon::Information);
  return true;
}

void Publicacion::InsertarPublicacion(std::int16_t gIDPersonal, std::int32_t evaluacion) {
  // Asked for nothing, but without the host's component no publication is written.
  const auto api = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  InsertarConIntentos(kErrorInsertar, [this, gIDPersonal, evaluacion] {
    const auto id = ObtenerSiguienteId(Centro(), cConfiguracion::Instancia().conLocalBorradoCentro,
                                       Sql("SELECT MAX(idpublicacionpte) FROM [publicacionpte]"));
    Centro().Execute(Sql("INSERT INTO Publicacionpte  VALUES ({},{},{},4,{})", id, gIDPersonal,
                         Usuario(), evaluacion));
    IDPublicacion = id;
    return 0;
  });
}

void Publicacion::InsertarBloqueo(std::int32_t codMatDet, std::int16_t gIDPersonal,
                                  std::int32_t evaluacion) const {
  const auto recordset = Centro().Execute(
      Sql("SELECT codProfesor FROM BloqueoPte WHERE CodMatDet={} AND CodNumEvaluacion={}",
          codMatDet, evaluacion));
  if (!recordset.Eof()) return;
  InsertarConIntentos(kErrorInsertar, [this, codMatDet, gIDPersonal, evaluacion] {
    Centro().Execute(Sql("INSERT INTO BloqueoPte  VALUES ({},{},{},{},{})", gIDPersonal, evaluacion,
                         codMatDet, Usuario(), IDPublicacion));
    return 0;
  });
}

void Publicacion::InsertarBloqueos(const std::string& strMateriasBloqueo, std::int16_t gIDPersonal,
                                   std::int32_t evaluacion) const {
  for (const auto codMatDet : MateriasDeLista(strMateriasBloqueo))
    InsertarBloqueo(codMatDet, gIDPersonal, evaluacion);
}

void Publicacion::BorrarPublicacion() const {
  Centro().Execute(Sql("DELETE FROM BloqueoPte WHERE codPublicacion={}", IDPublicacion));
  Centro().Execute(Sql("DELETE FROM PublicacionPte WHERE IDPublicacionPte={}", IDPublicacion));
}

void Publicacion::Devolver(std::int32_t seccion, std::int32_t evaluacion) const {
  auto api = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  auto idSeccion = ToInteger(seccion);
  auto idEvaluacion = ToInteger(evaluacion);
  auto idPersonal = PersonalDelPublicador(Centro());
  api->DesbloquearNotas(Centro(), cConfiguracion::Instancia().intIDUsuario, idPersonal, idSeccion,
                        idEvaluacion);
  Centro().Execute(Sql("DELETE FROM PublicacionPte WHERE IDPublicacionPte={}", IDPublicacion));
  api.reset();
  // The publication is gone by now: its second DELETE finds nothing.
  BorrarPublicacion();
}

}  // namespace quorvane

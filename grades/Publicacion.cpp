#include "grades/Publicacion.h"

#include "frame/Conexiones.h"
#include "frame/Usuario.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "grades/Intentos.h"
#include "grades/MateriasBloqueo.h"
#include "platform/Application.h"
#include "platform/CentroApi.h"
#include "platform/Connection.h"
#include "platform/MessageBox.h"

namespace quorvane {
namespace {

constexpr const char* kErrorInsertar = "Error al insertar la publicacion";

std::string Usuario() { return std::to_string(cConfiguracion::Instancia().intIDUsuario); }

}  // namespace

bool Publicacion::YaAbierta(std::int32_t seccion, std::int32_t evaluacion) {
  const auto recordset = Centro().Execute(
      "SELECT IDPublicacionPte FROM PublicacionPte WHERE codPropietario=" + Usuario() +
      " AND CodSeccion=" + std::to_string(seccion) +
      " AND CodNumEvaluacion=" + std::to_string(evaluacion));
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
                                       "publicacionpte", "idpublicacionpte");
    Centro().Execute("INSERT INTO Publicacionpte  VALUES (" + std::to_string(id) + "," +
                     std::to_string(gIDPersonal) + "," + Usuario() + ",4," +
                     std::to_string(evaluacion) + ")");
    IDPublicacion = id;
    return 0;
  });
}

void Publicacion::InsertarBloqueo(std::int32_t codMatDet, std::int16_t gIDPersonal,
                                  std::int32_t evaluacion) const {
  const auto recordset = Centro().Execute(
      "SELECT codProfesor FROM BloqueoPte WHERE CodMatDet=" + std::to_string(codMatDet) +
      " AND CodNumEvaluacion=" + std::to_string(evaluacion));
  if (!recordset.Eof()) return;
  InsertarConIntentos(kErrorInsertar, [this, codMatDet, gIDPersonal, evaluacion] {
    Centro().Execute("INSERT INTO BloqueoPte  VALUES (" + std::to_string(gIDPersonal) + "," +
                     std::to_string(evaluacion) + "," + std::to_string(codMatDet) + "," +
                     Usuario() + "," + std::to_string(IDPublicacion) + ")");
    return 0;
  });
}

void Publicacion::InsertarBloqueos(const std::string& strMateriasBloqueo, std::int16_t gIDPersonal,
                                   std::int32_t evaluacion) const {
  for (const auto codMatDet : MateriasDeLista(strMateriasBloqueo))
    InsertarBloqueo(codMatDet, gIDPersonal, evaluacion);
}

void Publicacion::BorrarPublicacion() const {
  const auto id = std::to_string(IDPublicacion);
  Centro().Execute("DELETE FROM BloqueoPte WHERE codPublicacion=" + id);
  Centro().Execute("DELETE FROM PublicacionPte WHERE IDPublicacionPte=" + id);
}

void Publicacion::Devolver(std::int32_t seccion, std::int32_t evaluacion) const {
  auto api = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  auto idSeccion = ToInteger(seccion);
  auto idEvaluacion = ToInteger(evaluacion);
  auto idPersonal = PersonalDelPublicador(Centro());
  api->DesbloquearNotas(Centro(), cConfiguracion::Instancia().intIDUsuario, idPersonal, idSeccion,
                        idEvaluacion);
  Centro().Execute("DELETE FROM PublicacionPte WHERE IDPublicacionPte=" +
                   std::to_string(IDPublicacion));
  api.reset();
  // The publication is gone by now: its second DELETE finds nothing.
  BorrarPublicacion();
}

}  // namespace quorvane

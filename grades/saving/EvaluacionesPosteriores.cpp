#include "grades/saving/EvaluacionesPosteriores.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "frame/modGeneral.h"
#include "grades/saving/Intentos.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"

namespace quorvane {
namespace {

Connection* Borrado() { return cConfiguracion::Instancia().conLocalBorradoCentro; }

/// `IDMateriaDetalles` of a subject in a section.
std::int32_t DetalleDe(Connection& centro, std::int32_t materia, std::int32_t seccion) {
  return centro
      .Execute(
          Sql("SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria={} AND CodSeccion={}",
              materia, seccion))
      .Fields("IDMateriaDetalles")
      .Long();
}

void ApuntarAlumno(Connection& centro, std::int32_t alumno, std::int32_t evaluacion,
                   const TextosAnadir& textos) {
  if (!centro
           .Execute(Sql(
               "SELECT CodAlumno FROM Alumno_NumEvaluacion WHERE CodAlumno={} AND CodNumEvaluacion={}",
               alumno, evaluacion))
           .Eof())
    return;
  InsertarConIntentos(textos.mensaje, [&] {
    const auto id = ObtenerSiguienteId(centro, Borrado(), Sql(textos.maximaInscripcion));
    centro.Execute(Sql("INSERT INTO Alumno_NumEvaluacion  VALUES ({},{},{},0,0,0,0,0,0)", id,
                       alumno, evaluacion));
    return 0;
  });
}

}  // namespace

void AnadirEnEvaluacionSiguiente(std::int32_t seccion, std::int32_t evaluacion, std::int32_t alumno,
                                 std::int32_t materia, std::int32_t objetivo,
                                 const TextosAnadir& textos) {
  // Asked for nothing, but without the host's component nothing is added.
  const auto api = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  auto& centro = Centro();
  const auto posteriores = centro.Execute(Sql(
      "SELECT IDNumEvaluacion, Orden FROM NumEvaluacion WHERE Orden > (SELECT Orden FROM NumEvaluacion WHERE IDNumEvaluacion={}) AND FINAL=0 AND IDNumEvaluacion IN (SELECT CodNumEvaluacion FROM Seccion_NumEvaluacion WHERE CodSeccion={}) ORDER BY Orden",
      evaluacion, seccion));
  if (posteriores.Eof()) return;
  const auto siguiente = posteriores.Fields("IDNumEvaluacion").Long();
  ApuntarAlumno(centro, alumno, siguiente, textos);

  const auto asociada = DetalleDe(centro, materia, seccion);
  const auto detalle = DetalleDe(centro, objetivo, seccion);
  const auto orden =
      centro
          .Execute(Sql(
              "SELECT Orden FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetalles={}",
              alumno, evaluacion, detalle))
          .Fields("Orden")
          .Long();
  if (!centro.Execute(Sql(textos.buscarObjetivo, alumno, siguiente, detalle)).Eof()) return;

  std::int32_t idObjetivo = 0;
  InsertarConIntentos(textos.mensaje, [&] {
    idObjetivo = ObtenerSiguienteId(centro, Borrado(), Sql(textos.maximoObjetivo));
    centro.Execute(Sql("INSERT INTO Alumno_MateriaDetalles  VALUES ({},{},{},{},{},{},-1,0)",
                       idObjetivo, alumno, detalle, asociada, siguiente, orden));
    return 0;
  });
  InsertarConIntentos(textos.mensaje, [&] {
    const auto id = ObtenerSiguienteId(centro, Borrado(), Sql(textos.maximasNotas));
    centro.Execute(Sql(textos.insertarNotas, id, idObjetivo, siguiente));
    return 0;
  });
}

void QuitarDeEvaluacionesPosteriores(std::int32_t seccion, std::int32_t evaluacion,
                                     std::int32_t alumno, std::int32_t materia,
                                     std::int32_t objetivo, SqlText<2> borrarNotas) {
  if (objetivo <= 0) return;
  auto& centro = Centro();
  auto posteriores = centro.Execute(Sql(
      "SELECT IDNumEvaluacion FROM NumEvaluacion WHERE Orden > (SELECT Orden FROM NumEvaluacion WHERE IDNumEvaluacion={}) AND FINAL=0 AND IDNumEvaluacion IN (SELECT CodNumEvaluacion FROM Seccion_NumEvaluacion WHERE CodSeccion={}) ORDER BY Orden",
      evaluacion, seccion));
  for (; !posteriores.Eof(); posteriores.MoveNext()) {
    const auto posterior = posteriores.Fields("IDNumEvaluacion").Long();
    const auto asociada = DetalleDe(centro, materia, seccion);
    const auto detalle = DetalleDe(centro, objetivo, seccion);
    const auto filas = centro.Execute(Sql(
        "SELECT IDAlumno_MateriaDetalles FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetallesAsociada={} AND CodMateriaDetalles={}",
        alumno, posterior, asociada, detalle));
    if (filas.Eof()) continue;
    centro.Execute(Sql(borrarNotas, filas.Fields("IDAlumno_MateriaDetalles").Long(), posterior));
    centro.Execute(Sql(
        "DELETE FROM Alumno_MateriaDetalles WHERE CodAlumno={} AND CodNumEvaluacion={} AND CodMateriaDetallesAsociada={} AND CodMateriaDetalles={}",
        alumno, posterior, asociada, detalle));
  }
}

}  // namespace quorvane

#include "grades/EvaluacionesPosteriores.h"

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "grades/Intentos.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/CentroApi.h"

namespace quorvane {
namespace {

Recordset Execute(const std::string& statement) { return Centro().Execute(statement); }

Recordset Posteriores(const std::string& columnas, std::int32_t seccion, std::int32_t evaluacion) {
  return Execute("SELECT " + columnas +
                 " FROM NumEvaluacion WHERE Orden > (SELECT Orden FROM NumEvaluacion WHERE "
                 "IDNumEvaluacion=" +
                 std::to_string(evaluacion) +
                 ") AND FINAL=0 AND IDNumEvaluacion IN (SELECT CodNumEvaluacion FROM "
                 "Seccion_NumEvaluacion WHERE CodSeccion=" +
                 std::to_string(seccion) + ") ORDER BY Orden");
}

std::string DetalleDe(std::int32_t materia, std::int32_t seccion) {
  return std::to_string(Execute("SELECT IDMateriaDetalles FROM MateriaDetalles WHERE CodMateria=" +
                                std::to_string(materia) +
                                " AND CodSeccion=" + std::to_string(seccion))
                            .Fields("IDMateriaDetalles")
                            .Long());
}

/// The rest of a statement on the objective's row, from its FROM on.
std::string FilaObjetivo(std::int32_t alumno, const std::string& idEvaluacion,
                         const std::string& asociada, const std::string& detalle) {
  return " FROM Alumno_MateriaDetalles WHERE CodAlumno=" + std::to_string(alumno) +
         " AND CodNumEvaluacion=" + idEvaluacion + " AND CodMateriaDetallesAsociada=" + asociada +
         " AND CodMateriaDetalles=" + detalle;
}

void Quitar(const std::string& fila, const std::string& idEvaluacion,
            const std::string& borrarNotas) {
  const auto objetivos = Execute("SELECT IDAlumno_MateriaDetalles" + fila);
  if (objetivos.Eof()) return;
  Execute(borrarNotas + " WHERE CodAlumno_MateriaDetalles=" +
          std::to_string(objetivos.Fields("IDAlumno_MateriaDetalles").Long()) +
          " AND CodNumEvaluacion=" + idEvaluacion);
  Execute("DELETE" + fila);
}

}  // namespace

std::int32_t SiguienteIdMax(const std::string& tabla, const std::string& campo) {
  const auto recordset = Execute("SELECT MAX(" + campo + ") AS IDMax FROM [" + tabla + "]");
  if (recordset.Eof() || recordset.Fields("IDMax").IsNull()) return 1;
  return Value(std::int64_t{recordset.Fields("IDMax").Long()} + 1).Long();
}

void AnadirEnEvaluacionSiguiente(std::int32_t seccion, std::int32_t evaluacion, std::int32_t alumno,
                                 std::int32_t materia, std::int32_t objetivo,
                                 const TextosAnadir& textos) {
  // Asked for nothing, but without the host's component nothing is added.
  const auto api = Application::Instance().Objects().Create<CentroApi>(CentroApi::kProgId);
  const auto posteriores = Posteriores("IDNumEvaluacion, Orden", seccion, evaluacion);
  if (posteriores.Eof()) return;
  const auto siguiente = std::to_string(posteriores.Fields("IDNumEvaluacion").Long());
  const auto codAlumno = std::to_string(alumno);

  if (Execute("SELECT CodAlumno FROM Alumno_NumEvaluacion WHERE CodAlumno=" + codAlumno +
              " AND CodNumEvaluacion=" + siguiente)
          .Eof())
    InsertarConIntentos(textos.mensaje, [&] {
      const auto id = textos.siguienteId("Alumno_NumEvaluacion", "IDAlumno_NumEvaluacion");
      Execute("INSERT INTO Alumno_NumEvaluacion VALUES (" + std::to_string(id) + "," + codAlumno +
              "," + siguiente + ",0,0,0,0,0,0)");
      return 0;
    });

  const auto asociada = DetalleDe(materia, seccion);
  const auto detalle = DetalleDe(objetivo, seccion);
  const auto enEvaluacion = [&](const std::string& columnas, const std::string& idEvaluacion) {
    return Execute("SELECT " + columnas +
                   " FROM Alumno_MateriaDetalles WHERE CodAlumno=" + codAlumno +
                   " AND CodNumEvaluacion=" + idEvaluacion + " AND CodMateriaDetalles=" + detalle);
  };
  const auto orden =
      std::to_string(enEvaluacion("Orden", std::to_string(evaluacion)).Fields("Orden").Long());
  if (!enEvaluacion(textos.columnasObjetivo, siguiente).Eof()) return;

  std::int32_t idObjetivo = 0;
  InsertarConIntentos(textos.mensaje, [&] {
    idObjetivo = textos.siguienteId("Alumno_MateriaDetalles", "IDAlumno_MateriaDetalles");
    Execute("INSERT INTO Alumno_MateriaDetalles VALUES (" + std::to_string(idObjetivo) + "," +
            codAlumno + "," + detalle + "," + asociada + "," + siguiente + "," + orden + ",-1,0)");
    return 0;
  });
  InsertarConIntentos(textos.mensaje, [&] {
    const auto id = textos.siguienteId("Evaluacion", "IDEvaluacion");
    Execute(textos.insertarNotas + std::to_string(id) + "," + std::to_string(idObjetivo) + "," +
            siguiente + ",0,0,0,0,0,0,0,0,0,0,0,0,0)");
    return 0;
  });
}

void QuitarDeEvaluacionesPosteriores(std::int32_t seccion, std::int32_t evaluacion,
                                     std::int32_t alumno, std::int32_t materia,
                                     std::int32_t objetivo, const std::string& borrarNotas) {
  if (objetivo <= 0) return;
  auto posteriores = Posteriores("IDNumEvaluacion", seccion, evaluacion);
  for (; !posteriores.Eof(); posteriores.MoveNext()) {
    const auto idEvaluacion = std::to_string(posteriores.Fields("IDNumEvaluacion").Long());
    const auto asociada = DetalleDe(materia, seccion);
    const auto detalle = DetalleDe(objetivo, seccion);
    Quitar(FilaObjetivo(alumno, idEvaluacion, asociada, detalle), idEvaluacion, borrarNotas);
  }
}

}  // namespace quorvane

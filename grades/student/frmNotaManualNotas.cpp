// The grades of `frmNotaManual`: from the database into its objects when it opens, and back when it
// saves.
#include "frame/ClaseMateria.h"
#include "frame/Conexiones.h"
#include "grades/NotasOrdinarias.h"
#include "grades/dialog/TrabajoNotas.h"
#include "grades/loading/CargaNotas.h"
#include "grades/loading/MateriasPendientes.h"
#include "grades/locks/MateriasBloqueo.h"
#include "grades/student/frmNotaManual.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

void frmNotaManual::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    if (auto filas = MateriasVisibles(Centro(), alumno->IDAlumno, PasoUno(), blnTutor))
      CargarMaterias(*alumno, *filas);
    if (alumno->colMateria.Count() == 0) colAlumnos.Remove(Key(alumno->IDAlumno));
  }
  CerrarLista(strMateriasBloqueo);
}

void frmNotaManual::CargarMaterias(cAlumno& alumno, Recordset& filas) {
  while (!filas.Eof()) {
    const auto clase = ClaseDeMateria(Centro(), filas.Fields("CodMatDet").Long());
    if (!clase) {
      const auto id = filas.Fields("IDAlumnoPte_MatDet").Long();
      filas.MoveNext();
      PurgarMateria(Centro(), id);
      continue;
    }
    if (ClaseMateria::SeCalifica(*clase)) CargarMateria(alumno, filas, *clase);
    filas.MoveNext();
  }
}

void frmNotaManual::CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase) {
  const auto codMatDet = fila.Fields("codMatdet").Long();
  AnotarMateria(strMateriasBloqueo, codMatDet);
  // Keyed by the pending row: the other forms key by the subject.
  auto materia = NuevaMateria(fila, fila.Fields("IDAlumnoPte_MatDet").Long());
  CargarNotasDeClase(Centro(), *materia, clase, PasoUno().evaluacion);
  AnadirMateria(Centro(), alumno, std::move(materia),
                DetallesDeClase(Centro(), fila, codMatDet, clase));
}

void frmNotaManual::cmdAceptar_Click() {
  EmpezarGrabacion(*this, "Grabando datos");
  if (!PasoUno().blnRecuperar)
    for (const auto& alumno : colAlumnos)
      for (const auto& materia : alumno->colMateria) GuardarMateria(*materia, PasoUno().evaluacion);
  Pantalla().MousePointer(Pointer::Default);
  cmdCancelar_Click();
}

void frmNotaManual::GuardarMateria(const cMateria& materia, std::int32_t evaluacion) const {
  if (materia.Nota <= 0) {
    GuardarSinNota(Centro(), materia, evaluacion);
    return;
  }
  if (NotaAprobada(Centro(), materia.Nota))
    GuardarNotas(
        Centro(),
        "UPDATE EvaluacionPte SET UltimaEvaluada=-1 ,Evaluado=-1,CodNota={},CodNotaActitud={}, CodNotaObservacion={},CodNotaConcepto={},CodNotaProcedimiento={} WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet = {}",
        materia, evaluacion);
  else
    GuardarNotas(
        Centro(),
        "UPDATE EvaluacionPte SET UltimaEvaluada=-1, Evaluado=-1,CodNota={},CodNotaActitud={}, CodNotaObservacion={},CodNotaConcepto={},CodNotaProcedimiento={} WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet = {}",
        materia, evaluacion);
  // Whatever later evaluation had the mark: this form takes it.
  Centro().Execute(Sql(
      "UPDATE EvaluacionPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion<>{} AND CodAlumnoPte_MatDet = {}",
      evaluacion, materia.CodAlumno_MateriaDetalles));
}

}  // namespace quorvane

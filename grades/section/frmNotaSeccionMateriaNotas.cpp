// The grades of `frmNotaSeccionMateria`: from the database into its objects when it opens, and back
// when it saves.
#include "frame/ClaseMateria.h"
#include "frame/Conexiones.h"
#include "grades/dialog/TrabajoNotas.h"
#include "grades/loading/CargaNotas.h"
#include "grades/loading/MateriasPendientes.h"
#include "grades/locks/MateriasBloqueo.h"
#include "grades/saving/GuardarConMarca.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/subject/CargaPorMateria.h"

namespace quorvane {

void frmNotaSeccionMateria::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    if (auto filas = MateriasVisibles(Centro(), alumno->IDAlumno, PasoUno(), blnTutor))
      CargarMaterias(*alumno, *filas);
    if (alumno->colMateria.Count() == 0) colAlumnos.Remove(Key(alumno->IDAlumno));
  }
  LlenarMaterias();
  CerrarLista(strMateriasBloqueo);
}

void frmNotaSeccionMateria::LlenarMaterias() {
  aryMaterias = ReunirMaterias(colAlumnos);
  if (aryMaterias.empty()) return;
  cboMaterias.Clear();
  std::int32_t numero = 0;
  for (const auto& materia : aryMaterias)
    cboMaterias.AddItem((materia.CodAsociada > 0 ? "     " : "") + materia.Nombre, ++numero);
  cboMaterias.ListIndex(0);
}

void frmNotaSeccionMateria::CargarMaterias(cAlumno& alumno, Recordset& filas) {
  while (!filas.Eof()) {
    const auto clase = ClaseDeMateria(Centro(), filas.Fields("CodMatDet").Long());
    if (!clase) {
      // A pending row has no such column: the purge ends here, before it deletes anything.
      const auto id = filas.Fields("IDAlumnoPte_MateriaDetalles").Long();
      filas.MoveNext();
      PurgarMateria(Centro(), id);
      continue;
    }
    if (ClaseMateria::SeCalifica(*clase)) CargarMateria(alumno, filas, *clase);
    filas.MoveNext();
  }
}

void frmNotaSeccionMateria::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                          std::int32_t clase) {
  CargarMateriaDeFila(*this, alumno, fila, clase);
}

void frmNotaSeccionMateria::cmdAceptar_Click() {
  EmpezarGrabacion(*this, "Grabando... Espere por favor");
  if (!PasoUno().blnRecuperar)
    for (const auto& alumno : colAlumnos)
      for (const auto& materia : alumno->colMateria)
        GuardarConMarca(
            Centro(), *materia, PasoUno().evaluacion,
            "UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet ={}");
  Pantalla().MousePointer(Pointer::Default);
  cmdCancelar_Click();
}

}  // namespace quorvane

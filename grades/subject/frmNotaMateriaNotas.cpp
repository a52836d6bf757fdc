// The grades of `frmNotaMateria`: from the database into its objects when it opens, and back when
// it saves.
#include "frame/ClaseMateria.h"
#include "frame/Conexiones.h"
#include "grades/dialog/TrabajoNotas.h"
#include "grades/loading/CargaNotas.h"
#include "grades/loading/MateriasPendientes.h"
#include "grades/locks/MateriasBloqueo.h"
#include "grades/saving/GuardarConMarca.h"
#include "grades/subject/CargaPorMateria.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"

namespace quorvane {

void frmNotaMateria::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    if (auto filas = MateriasVisibles(Centro(), alumno->IDAlumno, PasoUno(), blnTutor))
      CargarMaterias(*alumno, *filas);
    if (alumno->colMateria.Count() == 0) colAlumnos.Remove(Key(alumno->IDAlumno));
  }
  LlenarMaterias();
  CerrarLista(strMateriasBloqueo);
}

void frmNotaMateria::LlenarMaterias() {
  aryMaterias = ReunirMaterias(colAlumnos);
  if (aryMaterias.empty()) return;
  cboMaterias.Clear();
  CargarComboMaterias();
  cboMaterias.ListIndex(0);
}

void frmNotaMateria::CargarComboMaterias() {
  std::int32_t numero = 0;
  for (const auto& materia : aryMaterias) {
    if (materia.CodAsociada != 0) continue;
    cboMaterias.AddItem(materia.Nombre, ++numero);
    for (const auto& objetivo : aryMaterias)
      if (objetivo.IDMatDet == materia.IDMatDet && objetivo.CodAsociada > 0)
        cboMaterias.AddItem("     " + objetivo.Nombre, ++numero);
  }
}

void frmNotaMateria::CargarMaterias(cAlumno& alumno, Recordset& filas) {
  while (!filas.Eof()) {
    const auto clase = ClaseDeMateria(Centro(), filas.Fields("CodMatDet").Long());
    if (!clase) {
      const auto id = filas.Fields("IDAlumnoPte_MatDet").Long();
      filas.MoveNext();
      BorrarNotas(Centro(), id);
      // No such table: the purge ends here, and the row stays.
      Centro().Execute(
          Sql("DELETE FROM AlumnoPte_MateriaDetalles WHERE IDAlumnoPte_MatDet={}", id));
      continue;
    }
    if (ClaseMateria::SeCalifica(*clase)) CargarMateria(alumno, filas, *clase);
    filas.MoveNext();
  }
}

void frmNotaMateria::CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase) {
  CargarMateriaDeFila(*this, alumno, fila, clase);
}

void frmNotaMateria::cmdAceptar_Click() {
  EmpezarGrabacion(*this, "Grabando Datos...");
  if (!PasoUno().blnRecuperar)
    for (const auto& alumno : colAlumnos)
      for (const auto& materia : alumno->colMateria)
        GuardarConMarca(
            Centro(), *materia, PasoUno().evaluacion,
            "UPDATE EvaluacionPte SET UltimaEvaluada=-1 WHERE CodNumEvaluacion={} AND CodAlumnoPte_MatDet= {}");
  Pantalla().MousePointer(Pointer::Default);
  cmdCancelar_Click();
}

}  // namespace quorvane

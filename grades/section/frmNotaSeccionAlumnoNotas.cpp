// The grades of `frmNotaSeccionAlumno`: from the database into its objects when it opens, and back
// when it saves.
#include "frame/ClaseMateria.h"
#include "frame/Conexiones.h"
#include "grades/dialog/TrabajoNotas.h"
#include "grades/loading/Alumnos.h"
#include "grades/loading/CargaNotas.h"
#include "grades/loading/MateriasPendientes.h"
#include "grades/locks/MateriasBloqueo.h"
#include "grades/saving/GuardarConMarca.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "platform/controls/FormInstance.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {
namespace {

/// The chosen subject, or all that the student owes of a teacher's; nothing for one who grades
/// none.
std::optional<Recordset> MateriasDe(Connection& centro, std::int32_t idAlumno,
                                    const DatosPasoUno& pasoUno, bool blnTutor) {
  if (!VeLaSeccion(blnTutor)) return MateriasVisibles(centro, idAlumno, pasoUno, blnTutor);
  const auto elegida = FormInstance<frmNotaSeccionAlumno1>::Get().cboMateria.SelectedData();
  return MateriaDeAlumno(centro, idAlumno, elegida, pasoUno.evaluacion);
}

}  // namespace

void frmNotaSeccionAlumno::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    std::vector<std::int32_t> perdidas;
    if (auto filas = MateriasDe(Centro(), alumno->IDAlumno, PasoUno(), blnTutor))
      perdidas = CargarMaterias(*alumno, *filas);
    if (alumno->colMateria.Count() == 0) colAlumnos.Remove(Key(alumno->IDAlumno));
    for (const auto id : perdidas) PurgarMateria(Centro(), id);
  }
  CerrarLista(strMateriasBloqueo);
}

std::vector<std::int32_t> frmNotaSeccionAlumno::CargarMaterias(cAlumno& alumno, Recordset& filas) {
  std::vector<std::int32_t> perdidas;
  for (; !filas.Eof(); filas.MoveNext()) {
    const auto clase = ClaseDeMateria(Centro(), filas.Fields("CodMatDet").Long());
    if (!clase)
      perdidas.push_back(filas.Fields("IDAlumnoPte_MatDet").Long());
    else if (ClaseMateria::SeCalifica(*clase))
      CargarMateria(alumno, filas, *clase);
  }
  return perdidas;
}

void frmNotaSeccionAlumno::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                         std::int32_t clase) {
  const auto codMatDet = fila.Fields("codMatdet").Long();
  AnotarMateria(strMateriasBloqueo, codMatDet);
  auto materia = NuevaMateria(fila, codMatDet);
  CargarNotasDeClase(Centro(), *materia, clase, PasoUno().evaluacion);
  // By the subject for every kind: this form can load work centres.
  AnadirMateria(Centro(), alumno, std::move(materia), LeerDetalles(Centro(), codMatDet));
}

void frmNotaSeccionAlumno::cmdAceptar_Click() {
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

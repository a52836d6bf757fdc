// The grades of `frmNotaManual`: from the database into its objects when it opens, and back when
// it saves.
#include <memory>
#include <optional>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "grades/MateriasBloqueo.h"
#include "grades/MateriasPendientes.h"
#include "grades/NotasOrdinarias.h"
#include "grades/Seleccion.h"
#include "grades/student/frmNotaManual.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "selection/frmNotaManual1.h"

namespace quorvane {
namespace {

constexpr const char* kTabla = "EvaluacionPte";
constexpr std::int32_t kClaseOrdinaria = 1;
constexpr std::int32_t kClaseValores = 3;

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaManual1>::Get()); }

/// The pending subjects of a student that this user grades; nothing for one who grades none.
std::optional<Recordset> MateriasVisibles(std::int32_t idAlumno, bool tutor) {
  const auto paso = PasoUno();
  if (cConfiguracion::Instancia().intIDPerfil == 0 || tutor)
    return MateriasDeAlumno(idAlumno, paso.evaluacion, kTabla);
  if (paso.gIDPersonal >= 1)
    return MateriasDeProfesor(idAlumno, paso.evaluacion, paso.gIDPersonal, kTabla);
  return std::nullopt;
}

}  // namespace

void frmNotaManual::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    if (auto filas = MateriasVisibles(alumno->IDAlumno, blnTutor)) CargarMaterias(*alumno, *filas);
    if (alumno->colMateria.Count() == 0) colAlumnos.Remove(Key(alumno->IDAlumno));
  }
  CerrarLista(strMateriasBloqueo);
}

void frmNotaManual::CargarMaterias(cAlumno& alumno, Recordset& filas) {
  while (!filas.Eof()) {
    const auto clase = ClaseDeMateria(filas.Fields("CodMatDet").Long());
    if (!clase) {
      const auto id = filas.Fields("IDAlumnoPte_MatDet").Long();
      filas.MoveNext();
      PurgarMateria(id);
      continue;
    }
    if (*clase != kClaseValores) CargarMateria(alumno, filas, *clase);
    filas.MoveNext();
  }
}

void frmNotaManual::CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase) {
  auto materia = std::make_shared<cMateria>();
  const auto codMatDet = fila.Fields("codMatdet").Long();
  AnotarMateria(strMateriasBloqueo, codMatDet);
  materia->IDMatDetalle = fila.Fields("IDAlumnopte_MatDet").Long();
  materia->CodAlumno_MateriaDetalles = materia->IDMatDetalle;
  materia->MateriaExterna = false;
  materia->Estado = cConstCol().NoModificado;

  DetallesMateria detalles;
  if (clase == kClaseOrdinaria) {
    LeerNotas(*materia, PasoUno().evaluacion);
    // The answer isn't used, but a grade that is gone ends the load here.
    if (materia->Nota > 0) static_cast<void>(NotaAprobada(materia->Nota));
    detalles = LeerDetalles(codMatDet);
  } else {
    materia->Fct = true;
    // A pending row has no such column: subjects of these kinds can't be loaded here.
    detalles = LeerDetalles(fila.Fields("CodMateriaDetalles").Long());
  }
  materia->IDProfesor = detalles.CodPersonal;
  materia->IDProfesorAsociado = detalles.CodPersonalAsociado;
  materia->IDMateria = detalles.CodMateria;
  materia->IDseccion = detalles.CodSeccion;
  materia->Nombre = NombreMateria(detalles);
  const auto clave = Key(materia->IDMatDetalle);
  alumno.colMateria.Add(std::move(materia), clave);
}

void frmNotaManual::cmdAceptar_Click() {
  MostrarCarga(false);
  Enabled(false);
  MostrarAnimacion(fraAniCarga, aniCarga, "Grabando datos");
  auto& pantalla = Application::Instance().Screen();
  pantalla.DoEvents();
  pantalla.MousePointer(Pointer::Hourglass);
  if (!PasoUno().blnRecuperar)
    for (const auto& alumno : colAlumnos)
      for (const auto& materia : alumno->colMateria) GuardarMateria(*materia, PasoUno().evaluacion);
  pantalla.MousePointer(Pointer::Default);
  cmdCancelar_Click();
}

void frmNotaManual::GuardarMateria(const cMateria& materia, std::int32_t evaluacion) const {
  auto& centro = Centro();
  const auto id = std::to_string(materia.CodAlumno_MateriaDetalles);
  const auto asignaciones = AsignacionesNotas(materia) +
                            " WHERE CodNumEvaluacion=" + std::to_string(evaluacion) +
                            " AND CodAlumnoPte_MatDet = " + id;
  if (materia.Nota <= 0) {
    centro.Execute("UPDATE EvaluacionPte SET " + asignaciones);
    return;
  }
  if (NotaAprobada(materia.Nota))
    centro.Execute("UPDATE EvaluacionPte SET UltimaEvaluada=-1 ,Evaluado=-1," + asignaciones);
  else
    centro.Execute("UPDATE EvaluacionPte SET UltimaEvaluada=-1, Evaluado=-1," + asignaciones);
  centro.Execute("UPDATE EvaluacionPte SET UltimaEvaluada=0  WHERE CodNumEvaluacion<>" +
                 std::to_string(evaluacion) + " AND CodAlumnoPte_MatDet = " + id);
}

}  // namespace quorvane

// The grades of `frmNotaSeccionMateria`: from the database into its objects when it opens, and back
// when it saves.
#include <optional>
#include <string>

#include "frame/cConfiguracion.h"
#include "grades/GuardarConMarca.h"
#include "grades/MateriasBloqueo.h"
#include "grades/MateriasPendientes.h"
#include "grades/Seleccion.h"
#include "grades/section/frmNotaSeccionMateria.h"
#include "grades/subject/CargaPorMateria.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "selection/frmNotaSeccionMateria1.h"

namespace quorvane {
namespace {

constexpr const char* kTabla = "EvaluacionPte";
constexpr std::int32_t kClaseValores = 3;

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaSeccionMateria1>::Get()); }

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

void frmNotaSeccionMateria::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    if (auto filas = MateriasVisibles(alumno->IDAlumno, blnTutor)) CargarMaterias(*alumno, *filas);
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
    const auto clase = ClaseDeMateria(filas.Fields("CodMatDet").Long());
    if (!clase) {
      // A pending row has no such column: the purge ends here, before it deletes anything.
      const auto id = filas.Fields("IDAlumnoPte_MateriaDetalles").Long();
      filas.MoveNext();
      PurgarMateria(id);
      continue;
    }
    if (*clase != kClaseValores) CargarMateria(alumno, filas, *clase);
    filas.MoveNext();
  }
}

void frmNotaSeccionMateria::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                          std::int32_t clase) {
  CargarMateriaDeFila(alumno, fila, clase, PasoUno().evaluacion, strMateriasBloqueo);
}

void frmNotaSeccionMateria::cmdAceptar_Click() {
  MostrarCarga(false);
  Enabled(false);
  MostrarAnimacion(fraAniCarga, aniCarga, "Grabando... Espere por favor");
  auto& pantalla = Application::Instance().Screen();
  pantalla.DoEvents();
  pantalla.MousePointer(Pointer::Hourglass);
  if (!PasoUno().blnRecuperar)
    for (const auto& alumno : colAlumnos)
      for (const auto& materia : alumno->colMateria)
        GuardarConMarca(*materia, PasoUno().evaluacion, " =");
  pantalla.MousePointer(Pointer::Default);
  cmdCancelar_Click();
}

}  // namespace quorvane

// The grades of `frmNotaMateria`: from the database into its objects when it opens, and back when
// it saves.
#include <optional>
#include <string>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "grades/GuardarConMarca.h"
#include "grades/MateriasBloqueo.h"
#include "grades/MateriasPendientes.h"
#include "grades/Seleccion.h"
#include "grades/subject/CargaPorMateria.h"
#include "grades/subject/frmNotaMateria.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "selection/frmNotaMateria1.h"

namespace quorvane {
namespace {

constexpr const char* kTabla = "EvaluacionPte";
constexpr std::int32_t kClaseValores = 3;

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaMateria1>::Get()); }

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

void frmNotaMateria::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    if (auto filas = MateriasVisibles(alumno->IDAlumno, blnTutor)) CargarMaterias(*alumno, *filas);
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
    const auto clase = ClaseDeMateria(filas.Fields("CodMatDet").Long());
    if (!clase) {
      const auto id = filas.Fields("IDAlumnoPte_MatDet").Long();
      filas.MoveNext();
      BorrarNotas(id);
      // No such table: the purge ends here, and the row stays.
      Centro().Execute("DELETE FROM AlumnoPte_MateriaDetalles WHERE IDAlumnoPte_MatDet=" +
                       std::to_string(id));
      continue;
    }
    if (*clase != kClaseValores) CargarMateria(alumno, filas, *clase);
    filas.MoveNext();
  }
}

void frmNotaMateria::CargarMateria(cAlumno& alumno, const Recordset& fila, std::int32_t clase) {
  CargarMateriaDeFila(alumno, fila, clase, PasoUno().evaluacion, strMateriasBloqueo);
}

void frmNotaMateria::cmdAceptar_Click() {
  MostrarCarga(false);
  Enabled(false);
  MostrarAnimacion(fraAniCarga, aniCarga, "Grabando Datos...");
  auto& pantalla = Application::Instance().Screen();
  pantalla.DoEvents();
  pantalla.MousePointer(Pointer::Hourglass);
  if (!PasoUno().blnRecuperar)
    for (const auto& alumno : colAlumnos)
      for (const auto& materia : alumno->colMateria)
        GuardarConMarca(*materia, PasoUno().evaluacion, "= ");
  pantalla.MousePointer(Pointer::Default);
  cmdCancelar_Click();
}

}  // namespace quorvane

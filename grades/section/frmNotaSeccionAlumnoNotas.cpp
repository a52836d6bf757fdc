// The grades of `frmNotaSeccionAlumno`: from the database into its objects when it opens, and back
// when it saves.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frame/cConfiguracion.h"
#include "frame/cConstCol.h"
#include "grades/GuardarConMarca.h"
#include "grades/MateriasBloqueo.h"
#include "grades/MateriasPendientes.h"
#include "grades/NotasOrdinarias.h"
#include "grades/Seleccion.h"
#include "grades/section/frmNotaSeccionAlumno.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "selection/frmNotaSeccionAlumno1.h"

namespace quorvane {
namespace {

constexpr const char* kTabla = "EvaluacionPte";
constexpr std::int32_t kClaseOrdinaria = 1;
constexpr std::int32_t kClaseValores = 3;

Seleccion PasoUno() { return SeleccionDe(FormInstance<frmNotaSeccionAlumno1>::Get()); }

std::int32_t MateriaElegida() {
  return FormInstance<frmNotaSeccionAlumno1>::Get().cboMateria.SelectedData();
}

/// The chosen subject, or all that the student owes of a teacher's; nothing for one who grades
/// none.
std::optional<Recordset> MateriasVisibles(std::int32_t idAlumno, bool tutor) {
  const auto paso = PasoUno();
  if (cConfiguracion::Instancia().intIDPerfil == 0 || tutor)
    return MateriasDeAlumno(idAlumno, paso.evaluacion, kTabla,
                            "CodMatDet=" + std::to_string(MateriaElegida()) + " AND ");
  if (paso.gIDPersonal >= 1)
    return MateriasDeProfesor(idAlumno, paso.evaluacion, paso.gIDPersonal, kTabla);
  return std::nullopt;
}

}  // namespace

void frmNotaSeccionAlumno::CargarNotas() {
  strMateriasBloqueo = ListaMateriasBloqueo();
  for (const auto& alumno : colAlumnos.Snapshot()) {
    std::vector<std::int32_t> perdidas;
    if (auto filas = MateriasVisibles(alumno->IDAlumno, blnTutor))
      perdidas = CargarMaterias(*alumno, *filas);
    if (alumno->colMateria.Count() == 0) colAlumnos.Remove(Key(alumno->IDAlumno));
    for (const auto id : perdidas) PurgarMateria(id);
  }
  CerrarLista(strMateriasBloqueo);
}

std::vector<std::int32_t> frmNotaSeccionAlumno::CargarMaterias(cAlumno& alumno, Recordset& filas) {
  std::vector<std::int32_t> perdidas;
  for (; !filas.Eof(); filas.MoveNext()) {
    const auto clase = ClaseDeMateria(filas.Fields("CodMatDet").Long());
    if (!clase)
      perdidas.push_back(filas.Fields("IDAlumnoPte_MatDet").Long());
    else if (*clase != kClaseValores)
      CargarMateria(alumno, filas, *clase);
  }
  return perdidas;
}

void frmNotaSeccionAlumno::CargarMateria(cAlumno& alumno, const Recordset& fila,
                                         std::int32_t clase) {
  auto materia = std::make_shared<cMateria>();
  const auto codMatDet = fila.Fields("codMatdet").Long();
  AnotarMateria(strMateriasBloqueo, codMatDet);
  materia->IDMatDetalle = codMatDet;
  materia->CodAlumno_MateriaDetalles = fila.Fields("IDAlumnoPte_MatDet").Long();
  materia->MateriaExterna = false;
  materia->Estado = cConstCol().NoModificado;

  if (clase == kClaseOrdinaria) {
    LeerNotas(*materia, PasoUno().evaluacion);
    // The answer isn't used, but a grade that is gone ends the load here.
    if (materia->Nota > 0) static_cast<void>(NotaAprobada(materia->Nota));
  } else {
    materia->Fct = true;
  }
  const auto detalles = LeerDetalles(codMatDet);
  materia->IDProfesor = detalles.CodPersonal;
  materia->IDProfesorAsociado = detalles.CodPersonalAsociado;
  materia->IDMateria = detalles.CodMateria;
  materia->IDseccion = detalles.CodSeccion;
  materia->Nombre = NombreMateria(detalles);
  const auto clave = Key(materia->IDMatDetalle);
  alumno.colMateria.Add(std::move(materia), clave);
}

void frmNotaSeccionAlumno::cmdAceptar_Click() {
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

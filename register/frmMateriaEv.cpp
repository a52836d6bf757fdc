#include "register/frmMateriaEv.h"

#include <memory>

#include "frame/Conexiones.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/FormInstance.h"
#include "platform/data/Connection.h"
#include "platform/data/Sql.h"
#include "platform/data/Value.h"
#include "platform/host/MessageBox.h"
#include "register/AceptarCancelar.h"
#include "register/DualList.h"
#include "register/SelectedKey.h"
#include "register/frmAlumnoMateria.h"

namespace quorvane {
namespace {

constexpr int kMaximoFinales = 2;

/// What the final evaluations selected so far are.
enum class Clase { Ninguna, Final, Extraordinaria };

}  // namespace

frmMateriaEv::frmMateriaEv() : Form("frmMateriaEv") {
  Caption("Evaluaciones de la Materia Pendiente");
  Width(8040);
  Height(5085);
  Label1.Caption("Materia:");
  Label1.Place(120, 150, 960, 255);
  Label2.Place(1140, 150, 6660, 255);
  PonerDosListas(*this);
  lblDisponibles.Place(120, 540, 3000, 255);
  lstSeleccionados.Place(120, 840, 3000, 3030);
  cmdAgregarUno.Place(3240, 1080, 1440, 375);
  cmdAgregarTodos.Place(3240, 1560, 1440, 375);
  cmdEliminarUno.Place(3240, 2400, 1440, 375);
  cmdEliminarTodos.Place(3240, 2880, 1440, 375);
  lblSeleccionadas.Place(4800, 540, 3000, 255);
  lstDisponibles.Place(4800, 840, 3000, 3030);
  PonerAceptarCancelar(*this, 5070, 4185);
}

cMateria& frmMateriaEv::Materia() {
  const auto& alumnoMateria = FormInstance<frmAlumnoMateria>::Get();
  return *alumnoMateria.objAlumno->colMateria[SelectedKey(alumnoMateria.msgMaterias)];
}

void frmMateriaEv::Form_Load() {
  Icon(cConfiguracion::Instancia().RutaIcono);
  auto filas = Centro().Execute(Sql(
      "SELECT IDNumEvaluacion, Descripcion FROM NumEvaluacion  WHERE idnumevaluacion<>11  ORDER BY Final, Extraordinaria,Orden"));
  const auto& materia = Materia();
  for (; !filas.Eof(); filas.MoveNext()) {
    const auto id = filas.Fields("IDNumEvaluacion").Long();
    const auto elegida = materia.colEvaluaciones.Contains(Key(id)) &&
                         materia.colEvaluaciones[Key(id)]->Estado != estados_.Eliminado;
    auto& list = elegida ? lstSeleccionados : lstDisponibles;
    list.AddItem(filas.Fields("Descripcion").Text(), id);
  }
  Label2.Caption(materia.Nombre);
}

void frmMateriaEv::cmdAgregarUno_Click() { MoveSelected(lstDisponibles, lstSeleccionados); }

void frmMateriaEv::cmdAgregarTodos_Click() { MoveAll(lstDisponibles, lstSeleccionados); }

void frmMateriaEv::cmdEliminarUno_Click() { MoveSelected(lstSeleccionados, lstDisponibles); }

void frmMateriaEv::cmdEliminarTodos_Click() { MoveAll(lstSeleccionados, lstDisponibles); }

bool frmMateriaEv::Validar() {
  int finales = 0;
  auto clase = Clase::Ninguna;
  for (int i = 0; i < lstSeleccionados.ListCount(); ++i) {
    const auto fila = Centro().Execute(
        Sql("SELECT Extraordinaria, Final FROM NumEvaluacion WHERE IDNumEvaluacion={}",
            lstSeleccionados.ItemData(i)));
    if (!fila.Fields("final").Flag()) continue;
    if (++finales > kMaximoFinales) {
      BeepAndMessage("No puede seleccionar más de dos evaluaciones finales",
                     MessageIcon::Information);
      return false;
    }
    const auto esta = fila.Fields("Extraordinaria").Flag() ? Clase::Extraordinaria : Clase::Final;
    if (clase == Clase::Ninguna) clase = esta;
    if (clase != esta) {
      BeepAndMessage("Las evaluaciones deben ser del mismo tipo, finales o extraordinarias",
                     MessageIcon::Information);
      return false;
    }
  }
  return true;
}

void frmMateriaEv::cmdAceptar_Click() {
  if (!Validar()) return;
  auto& materia = Materia();
  bool cambiada = false;
  for (int i = 0; i < lstSeleccionados.ListCount(); ++i) {
    PutOnSubject(lstSeleccionados.ItemData(i), lstSeleccionados.List(i));
    cambiada = true;
  }
  for (int i = 0; i < lstDisponibles.ListCount(); ++i)
    if (TakeOffSubject(lstDisponibles.ItemData(i))) cambiada = true;
  if (cambiada && materia.Estado != estados_.NUEVO) materia.Estado = estados_.Modificado;
  Unload();
}

void frmMateriaEv::PutOnSubject(std::int32_t id, const std::string& nombre) {
  auto& colEvaluaciones = Materia().colEvaluaciones;
  if (colEvaluaciones.Contains(Key(id))) {
    const auto& evaluacion = colEvaluaciones[Key(id)];
    const auto conFila = evaluacion->EstadoAnterior == estados_.Modificado;
    evaluacion->Estado = conFila ? estados_.Modificado : estados_.NUEVO;
    return;
  }
  const auto evaluacion = std::make_shared<cEvaluacion>();
  evaluacion->Estado = estados_.NUEVO;
  evaluacion->EstadoAnterior = estados_.NUEVO;
  evaluacion->IDEvaluacion = ToByte(id);
  evaluacion->Nombre = nombre;
  const auto fila = Centro().Execute(
      Sql("SELECT Extraordinaria, Final, Orden FROM NumEvaluacion WHERE IDNumEvaluacion={}", id));
  evaluacion->Extraordinaria = fila.Fields("Extraordinaria").Flag();
  evaluacion->Final = fila.Fields("Final").Flag();
  evaluacion->Orden = fila.Fields("Orden").Byte();
  colEvaluaciones.Add(evaluacion, Key(id));
}

bool frmMateriaEv::TakeOffSubject(std::int32_t id) {
  auto& colEvaluaciones = Materia().colEvaluaciones;
  if (!colEvaluaciones.Contains(Key(id))) return false;
  const auto& evaluacion = colEvaluaciones[Key(id)];
  if (evaluacion->EstadoAnterior == estados_.Modificado)
    evaluacion->Estado = estados_.Eliminado;
  else
    colEvaluaciones.Remove(Key(id));
  return true;
}

void frmMateriaEv::cmdCancelar_Click() { Unload(); }

void frmMateriaEv::Form_Unload() { FormInstance<frmMateriaEv>::Drop(); }

}  // namespace quorvane

#include "selection/ControlesPasoUno.h"

#include <algorithm>
#include <array>

#include "frame/cConfiguracion.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/CommandButton.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "selection/ListasPasoUno.h"

namespace quorvane {
namespace {

constexpr std::int32_t kMargin = 120;
constexpr std::int32_t kFrameWidth = 6360;
constexpr std::int32_t kRow = 435;
constexpr std::int32_t kFirstRow = 270;

std::int32_t FrameHeight(std::int32_t rows) { return kFirstRow + rows * kRow; }

void PlaceRow(Label& label, ComboBox& list, std::int32_t row, std::int32_t listWidth) {
  const auto top = kFirstRow + row * kRow;
  label.Place(180, top + 45, 1875, 255);
  list.Place(2100, top, listWidth, 315);
}

/// Check boxes and buttons below the frames, and the form round all of it.
void PlaceBelow(Form& form, const ControlesPasoUno& controles, std::int32_t top) {
  controles.chkMostrar.Place(kMargin + 180, top, 6000, 285);
  controles.chkRecuperacion.Place(kMargin + 180, top + 330, 2400, 285);
  controles.chkTodosProm.Place(kMargin + 2880, top + 330, 3300, 285);
  const auto buttons = top + 780;
  controles.cmdNotaManual1[0].Place(kMargin + kFrameWidth - 2790, buttons, 1335, 375);
  controles.cmdNotaManual1[1].Place(kMargin + kFrameWidth - 1335, buttons, 1335, 375);
  form.Width(kFrameWidth + 2 * kMargin + Form::kBorderWidth);
  form.Height(buttons + 375 + kMargin + Form::kBorderHeight);
}

std::int32_t Bottom(const Control& control) { return control.Top() + control.Height(); }

}  // namespace

void DibujarPasoUno(Form& formulario, const ControlesPasoUno& controles) {
  formulario.Caption("Introducción de Notas. Paso 1 de 2");
  const std::array lists{&controles.cboTipoEnsenanza, &controles.cboCursos, &controles.cboSecciones,
                         &controles.cboEvaluaciones};
  const std::array captions{
      "(*) Tipo de enseñanza:", "(*) Curso:", "(*) Sección:", "(*) Evaluación:"};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    controles.lblNotamanual1[i].Caption(captions[i]);
    PlaceRow(controles.lblNotamanual1[i], *lists[i], i == 3 ? 0 : static_cast<std::int32_t>(i),
             4080);
  }
  auto& frames = controles.fraNotaManual1;
  frames[0].Place(kMargin, 60, kFrameWidth, FrameHeight(3));
  frames[1].Place(kMargin, Bottom(frames[0]) + 60, kFrameWidth, FrameHeight(1));
  controles.chkMostrar.Caption("Mostrar todo el ancho de las notas");
  controles.chkRecuperacion.Caption("Recuperación");
  controles.chkTodosProm.Caption("Promocionar a todos");
  controles.cmdNotaManual1[0].Caption("Siguiente >");
  controles.cmdNotaManual1[0].Default = true;
  controles.cmdNotaManual1[1].Caption("Salir");
  controles.cmdNotaManual1[1].Cancel = true;
  PlaceBelow(formulario, controles, Bottom(frames[1]) + kMargin);
}

void DibujarEleccion(Form& formulario, const ControlesPasoUno& controles,
                     const ControlesEleccion& eleccion, const std::string& texto) {
  eleccion.marco.Place(kMargin, Bottom(controles.fraNotaManual1[1]) + 60, kFrameWidth,
                       FrameHeight(1));
  eleccion.rotulo.Caption(texto);
  PlaceRow(eleccion.rotulo, eleccion.lista, 0, 3120);
  eleccion.cmdAnterior.Place(5280, kFirstRow, 420, 315);
  eleccion.cmdSiguiente.Place(5760, kFirstRow, 420, 315);
  PlaceBelow(formulario, controles, Bottom(eleccion.marco) + kMargin);
}

void CargarPasoUno(Form& formulario, const ControlesPasoUno& controles, std::int16_t& gIDPersonal) {
  auto& screen = Application::Instance().Screen();
  screen.MousePointer(Pointer::Hourglass);
  controles.chkTodosProm.Visible(false);
  controles.chkTodosProm.Left(controles.chkRecuperacion.Left());
  controles.chkTodosProm.Top(controles.chkRecuperacion.Top());
  controles.chkRecuperacion.Value(0);
  controles.chkRecuperacion.Visible(false);
  controles.cmdNotaManual1[0].Enabled(false);
  formulario.Icon(cConfiguracion::Instancia().RutaIcono);
  if (cConfiguracion::Instancia().intIDPerfil != 0) gIDPersonal = LeerPersonal();
  LlenarTipos(controles.cboTipoEnsenanza, gIDPersonal);
  if (controles.cboTipoEnsenanza.ListCount() > 0) controles.cboTipoEnsenanza.ListIndex(0);
  LlenarEvaluacionesOrdinarias(controles.cboEvaluaciones);
  screen.MousePointer(Pointer::Default);
}

bool TodosElegidos(std::initializer_list<const ComboBox*> listas) {
  return std::all_of(listas.begin(), listas.end(),
                     [](const ComboBox* lista) { return lista->ListIndex() != -1; });
}

void OcultarYCeder(Form& formulario) {
  formulario.Hide();
  Application::Instance().Screen().DoEvents();
}

}  // namespace quorvane

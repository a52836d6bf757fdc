#include "selection/PasoUno.h"

#include <algorithm>

#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "platform/host/MessageBox.h"

namespace quorvane {
namespace {

constexpr std::int32_t kAltoFila = 435;

}  // namespace

void DibujarMarco(Frame& marco, std::int32_t arriba, std::int32_t filas) {
  marco.Place(kMargenPasoUno, arriba, kAnchoMarco, kPrimeraFila + filas * kAltoFila);
}

void DibujarLista(Label& rotulo, ComboBox& lista, std::int32_t fila, const std::string& texto) {
  const auto arriba = kPrimeraFila + fila * kAltoFila;
  rotulo.Caption(texto);
  rotulo.Place(180, arriba + 45, 1875, 255);
  lista.Place(2100, arriba, 4080, 315);
}

std::int32_t DebajoDe(const Frame& marco) { return marco.Top() + marco.Height() + 60; }

bool FaltanDatos(std::initializer_list<const ComboBox*> listas) {
  if (std::none_of(listas.begin(), listas.end(),
                   [](const ComboBox* lista) { return lista->ListIndex() == -1; }))
    return false;
  BeepAndMessage("Intruduzca todos los datos", MessageIcon::Information);
  return true;
}

void OcultarYCeder(Form& formulario) {
  formulario.Hide();
  Application::Instance().Screen().DoEvents();
}

}  // namespace quorvane

#include "grades/dialog/FormularioEncogido.h"

#include <algorithm>

#include "frame/cConfiguracion.h"
#include "grades/dialog/Pantalla.h"
#include "platform/controls/Animation.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"

namespace quorvane {

void FormularioEncogido::Encoger(Form& form, const Frame& fraAniCarga) {
  lngMedidasForm_ = {form.Height(), form.Width(), form.Top(), form.Left()};
  for (auto* control : form.Controls()) control->Visible(false);
  blnOcultando = true;
  form.Height(fraAniCarga.Height() + fraAniCarga.Top() + 260 + 270);
  form.Width(fraAniCarga.Width() + fraAniCarga.Left() + 240 + 100);
  auto& pantalla = Pantalla();
  form.Left((pantalla.ScreenWidth() - form.Width()) / 2);
  form.Top((pantalla.ScreenHeight() - form.Height()) / 2);
}

void FormularioEncogido::Restaurar(Form& form, std::initializer_list<const Control*> ocultos) {
  blnOcultando = false;
  for (auto* control : form.Controls())
    control->Visible(std::find(ocultos.begin(), ocultos.end(), control) == ocultos.end());
  form.Height(lngMedidasForm_.alto);
  form.Width(lngMedidasForm_.ancho);
  form.Top(lngMedidasForm_.arriba);
  form.Left(lngMedidasForm_.izquierda);
}

void MostrarAnimacion(Frame& fraAniCarga, Animation& aniCarga, const std::string& caption) {
  aniCarga.Open(cConfiguracion::Instancia().RutaAplicacion + "\\avis\\filecopy.avi");
  aniCarga.Play();
  aniCarga.Visible(true);
  fraAniCarga.Caption(caption);
  fraAniCarga.Visible(true);
  fraAniCarga.ToFront();
}

}  // namespace quorvane

#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

namespace quorvane {

class Animation;
class Control;
class Form;
class Frame;

/// What a grade form shows during long work: itself, shrunk to the frame with the animation.
class FormularioEncogido {
 public:
  /// True from `Encoger` until `Restaurar` begins: `Form_Resize` does nothing in between.
  bool blnOcultando = false;

  /// `MostrarCarga` with False: keeps the form's measures, hides all its controls, shrinks it
  /// round the frame and centres it on the screen. The caller shows the frame again.
  void Encoger(Form& form, const Frame& fraAniCarga);

  /// `MostrarCarga` with True: shows all controls of the form and gives it the kept measures back.
  /// `ocultos` are those that stay hidden, as nobody is to reach them.
  void Restaurar(Form& form, std::initializer_list<const Control*> ocultos);

 private:
  struct Medidas {
    std::int32_t alto = 0;
    std::int32_t ancho = 0;
    std::int32_t arriba = 0;
    std::int32_t izquierda = 0;
  };

  Medidas lngMedidasForm_;
};

/// Plays the animation in its frame, under that caption, before all else.
void MostrarAnimacion(Frame& fraAniCarga, Animation& aniCarga, const std::string& caption);

}  // namespace quorvane

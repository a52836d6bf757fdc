#include "grades/dialog/DialogoNotas.h"

#include "grades/dialog/Pantalla.h"

namespace quorvane {

void MostrarPanel(TabStrip& tabNotaManual, std::span<Frame> fraNotaManual) {
  for (int tab = 1; tab <= tabNotaManual.TabCount(); ++tab)
    fraNotaManual[static_cast<std::size_t>(tab) - 1].Visible(tab == tabNotaManual.SelectedTab());
  tabNotaManual.ToBack();
}

void SoloCifras(int& keyAscii) {
  constexpr int kRetroceso = 8;
  if ((keyAscii >= '0' && keyAscii <= '9') || keyAscii == kRetroceso) return;
  Pantalla().Beep();
  keyAscii = 0;
}

}  // namespace quorvane

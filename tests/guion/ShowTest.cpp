#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <malloc.h>
#include <set>
#include <sstream>
#include <streambuf>
#include <vector>

#include "adapters/guion/host/Host.h"
#include "adapters/guion/language/ScriptParser.h"
#include "adapters/guion/player/EventPrinter.h"
#include "adapters/guion/player/Guion.h"
#include "platform/RuntimeError.h"
#include "platform/text/PlainNumber.h"
#include "tests/guion/GuionTest.h"

namespace quorvane::test {
namespace {

/// Keeps of what is written the number of lines alone.
class CountedLines : public std::streambuf {
 public:
  std::size_t count = 0;

 protected:
  int_type overflow(int_type letter) override {
    if (letter == '\n') ++count;
    return traits_type::not_eof(letter);
  }
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    count += static_cast<std::size_t>(std::count(text, text + size, '\n'));
    return size;
  }
};

/// As QUORVANE_VUELTAS has it: a million takes a second, under sanitizers many.
unsigned long TurnsToPlay() {
  constexpr auto kTurns = 100'000UL;
  const auto* const asked = std::getenv("QUORVANE_VUELTAS");
  return asked != nullptr ? PlainNumber<unsigned long>(asked).value() : kTurns;
}

class ShowTest : public GuionTest {
 protected:
  bool measured_ = false;
};

TEST_F(ShowTest, TellsTheLifeOfAFormInOrder) {
  EXPECT_EQ(Play("nodo 1\ncerrar"),
            (Lines{"carga frmPrueba", "sql centro suceso Load", "muestra frmPrueba",
                   "sql centro suceso Resize 6000", "sql centro suceso Activate",
                   "descarga frmPrueba", "sql centro suceso Unload", "vuelve 1"}));
  EXPECT_EQ(status, 0);
}

TEST_F(ShowTest, ANodeWithoutAScreenReturnsAtOnce) {
  EXPECT_EQ(Play("nodo 0\nnodo 255"), (Lines{"vuelve 0", "vuelve 255"}));
}

TEST_F(ShowTest, FormsTakeTurns) {
  EXPECT_EQ(
      Play("nodo 2\npulsar cmdSiguiente\npulsar cmdVolver\ncerrar"),
      (Lines{"carga frmUno", "muestra frmUno", "oculta frmUno", "carga frmDos", "muestra frmDos",
             "descarga frmDos", "muestra frmUno", "descarga frmUno", "vuelve 2"}));
}

TEST_F(ShowTest, FormsTakeTurnsWithoutEndOnTheSameStack) {
  // However the script is read, a turn costs nothing that the next one doesn't use again.
  std::vector<const void*> places;
  frmUno::alSeguir = [&places] { places.push_back(__builtin_frame_address(0)); };
  std::string script = "nodo 2\n";
  constexpr auto kTurns = 5000U;
  for (auto i = 0U; i < kTurns; ++i) script += "pulsar cmdSiguiente\npulsar cmdVolver\n";
  const auto lines = Play(script + "cerrar\n");
  frmUno::alSeguir = nullptr;
  EXPECT_EQ(lines.back(), "vuelve 2");
  EXPECT_EQ(lines.size(), 4U + 5U * kTurns);
  ASSERT_EQ(places.size(), kTurns);
  EXPECT_EQ(std::set(places.begin(), places.end()).size(), 1U);
}

TEST_F(ShowTest, AnyNumberOfTurnsTakesTheMemoryOfTheFirst) {
  const auto turns = TurnsToPlay();
  std::istringstream text("nodo 2\npulsar cmdSiguiente\npulsar cmdVolver\ncerrar\n");
  const auto commands = guion::ParseScript(text);
  auto lowest = UINTPTR_MAX;
  std::uintptr_t highest = 0;
  frmUno::alSeguir = [&] {
    const auto place = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    lowest = std::min(lowest, place);
    highest = std::max(highest, place);
  };
  std::size_t begun = 0;
  std::size_t played = 0;
  const auto next = [&]() -> std::optional<guion::Command> {
    const auto at = played++;
    if (at == turns / 10) begun = mallinfo2().uordblks;
    if (at == 2 * turns) {
      EXPECT_LT(mallinfo2().uordblks, begun + 10'000);
    }
    if (at > 2 * turns + 1) return std::nullopt;
    return commands[at == 0 ? 0 : at > 2 * turns ? 3 : 2 - at % 2];
  };
  CountedLines lines;
  std::ostream out(&lines);
  guion::EventPrinter events(out);
  guion::Host host(options, {centro, borrado, entrada, otra}, module, events);
  EXPECT_EQ(guion::Guion(next, host, events).Play(), 0);
  frmUno::alSeguir = nullptr;
  EXPECT_EQ(lowest, highest);
  EXPECT_EQ(lines.count, 7U * turns + 6U) << "with the echoes";
}

TEST_F(ShowTest, ATextOfAnyLengthHasAMeasure) {
  frmPrueba::alPulsar = [this] {
    const auto& form = FormInstance<frmPrueba>::Get();
    EXPECT_EQ(form.TextWidth("abc"), 360);
    EXPECT_EQ(form.TextWidth(std::string(18'000'000, 'a')),
              form.TextWidth(std::string(100'001, 'a')));
    EXPECT_GT(form.TextWidth(std::string(18'000'000, 'a')), 0);
    measured_ = true;
  };
  PlayIn("pulsar cmdAccion");
  EXPECT_TRUE(measured_);
}

TEST_F(ShowTest, TheEndOfTheScriptLeavesFormsWithoutUnloadingThem) {
  EXPECT_EQ(Play("nodo 2\npulsar cmdSiguiente").back(), "muestra frmDos");
  EXPECT_EQ(status, 0);
  EXPECT_FALSE(FormInstance<frmUno>::Exists());
  EXPECT_FALSE(FormInstance<frmDos>::Exists());
}

TEST_F(ShowTest, AnErrorComesOutOfAllShowsAndTheHostGoesOn) {
  EXPECT_EQ(
      Play("nodo 2\npulsar cmdSiguiente\npulsar cmdFalla\nver\nnodo 2"),
      (Lines{"carga frmUno", "muestra frmUno", "oculta frmUno", "carga frmDos", "muestra frmDos",
             "error 13 No coinciden los tipos", "rechazo ver: no hay ningún formulario abierto",
             "carga frmUno", "muestra frmUno"}));
  EXPECT_EQ(status, 1);
}

TEST_F(ShowTest, AnErrorInLoadNeverShowsTheForm) {
  module.ActivarFormulario = [](std::uint8_t) { frmPrueba::conexion->Execute("malo"); };
  EXPECT_EQ(Play("nodo 1"), (Lines{"sql centro malo", "error -2147467259 rechazada"}));
  EXPECT_EQ(status, 1);
}

TEST_F(ShowTest, AnErrorOfSeveralLinesIsOneEvent) {
  module.ActivarFormulario = [](std::uint8_t) {
    throw RuntimeError(ErrorNumber::StatementFailed, "uno\r\ndos\ntres");
  };
  EXPECT_EQ(Play("nodo 1"), (Lines{"error -2147467259 uno  dos tres"}));
}

TEST_F(ShowTest, ANodeBeyondAByteIsAnError) {
  EXPECT_EQ(Play("nodo 256\nnodo -1"), (Lines{"error 6 Desbordamiento", "error 6 Desbordamiento"}));
}

TEST_F(ShowTest, AHiddenFormReturnsAndStaysLoaded) {
  frmPrueba::alPulsar = [] { FormInstance<frmPrueba>::Get().Hide(); };
  EXPECT_EQ(Play("nodo 1\npulsar cmdAccion\nnodo 1"),
            (Lines{"carga frmPrueba", "sql centro suceso Load", "muestra frmPrueba",
                   "sql centro suceso Resize 6000", "sql centro suceso Activate",
                   "oculta frmPrueba", "vuelve 1", "muestra frmPrueba",
                   "sql centro suceso Resize 6000", "sql centro suceso Activate"}));
}

}  // namespace
}  // namespace quorvane::test

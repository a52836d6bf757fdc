#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>

#include "adapters/guion/language/ScriptError.h"
#include "adapters/guion/language/ScriptParser.h"

namespace quorvane::guion {
namespace {

using testing::ElementsAre;

std::vector<Command> Parse(const std::string& script) {
  std::istringstream stream(script);
  return ParseScript(stream);
}

Command ParseOne(const std::string& line) {
  const auto commands = Parse(line);
  EXPECT_EQ(commands.size(), 1U) << line;
  return commands.front();
}

auto ReadAt(std::size_t line, const std::string& text) {
  return testing::AllOf(testing::Field("line", &Command::line, line),
                        testing::Field("text", &Command::text, text));
}

/// "LINE: REASON" of the mistake; empty when there is none.
std::string Mistake(const std::string& script) {
  try {
    static_cast<void>(Parse(script));
  } catch (const ScriptError& error) {
    return std::to_string(error.Line()) + ": " + error.what();
  }
  return {};
}

TEST(ScriptParserTest, EmptyLinesAndCommentsGiveNoCommand) {
  EXPECT_TRUE(Parse("").empty());
  EXPECT_TRUE(Parse("\n  \n\t\n# nodo 1\n   # ver\n#\n").empty());
}

TEST(ScriptParserTest, KeepsTheLineAndTheTextAsRead) {
  const auto commands = Parse("# uno\n\n \tnodo   1  # abre\nver\n");
  EXPECT_THAT(commands, ElementsAre(ReadAt(3, "nodo   1"), ReadAt(4, "ver")));
  EXPECT_EQ(commands.at(0).Number(0), 1);
}

TEST(ScriptParserTest, TheLastLineNeedsNoEnd) { EXPECT_EQ(ParseOne("cerrar").text, "cerrar"); }

TEST(ScriptParserTest, TakesLinesOfWindowsAndAByteOrderMark) {
  EXPECT_THAT(Parse("\xEF\xBB\xBFnodo 1\r\nver\r\n\r\n"),
              ElementsAre(ReadAt(1, "nodo 1"), ReadAt(2, "ver")));
}

TEST(ScriptParserTest, ACarriageReturnWithinALineIsABlank) {
  EXPECT_EQ(ParseOne("pulsar cmd\r\t").text, "pulsar cmd");
  EXPECT_EQ(ParseOne("pulsar\rcmd\r").arguments.at(0).text, "cmd");
}

TEST(ScriptParserTest, QuotesHoldBlanksCommentsAndDoubledQuotes) {
  EXPECT_EQ(ParseOne("elegir cboX \"1º ESO # a\"").Text(1), "1º ESO # a");
  EXPECT_EQ(ParseOne("sql \"SELECT \"\"a\"\"\"").Text(0), "SELECT \"a\"");
  EXPECT_EQ(ParseOne("sql \"\"\"\"").Text(0), "\"");
  EXPECT_EQ(ParseOne("hoy \"\"").Text(0), "");
  EXPECT_EQ(ParseOne("escribir txtX \"\\n\"").Text(1), "\\n");
}

TEST(ScriptParserTest, TextWithoutBlanksNeedsNoQuotes) {
  EXPECT_EQ(ParseOne("hoy 01/02/2026").Text(0), "01/02/2026");
  EXPECT_EQ(ParseOne("elegir cboX Lengua").Text(1), "Lengua");
}

TEST(ScriptParserTest, AnIndexIsNoComment) {
  EXPECT_EQ(ParseOne("elegir cboX #0 # la primera").text, "elegir cboX #0");
  EXPECT_EQ(ParseOne("editar rtvX 1 2 #10").Text(3), "#10");
  EXPECT_EQ(ParseOne("elegir cboX #-1").Text(1), "#-1");
  EXPECT_EQ(ParseOne("pulsar cmdX #3 veces").text, "pulsar cmdX");
}

TEST(ScriptParserTest, AQuotedEntryIsAText) {
  EXPECT_TRUE(ParseOne("elegir cboX \"#0\"").arguments[1].quoted);
  EXPECT_TRUE(ParseOne("elegir cboX \"=x\"").arguments[1].quoted);
}

TEST(ScriptParserTest, NamesTheLineOfAnUnknownCommand) {
  EXPECT_EQ(Mistake("ver\n\nabrir 1\n"), "3: orden desconocida: abrir");
  EXPECT_EQ(Mistake("Ver"), "1: orden desconocida: Ver");
  EXPECT_EQ(Mistake("\"ver\""), "1: orden desconocida: ver");
}

TEST(ScriptParserTest, NamesMissingAndSurplusArguments) {
  EXPECT_EQ(Mistake("nodo"), "1: faltan argumentos: nodo");
  EXPECT_EQ(Mistake("elegir cboX # entrada"), "1: faltan argumentos: elegir");
  EXPECT_EQ(Mistake("sesion"), "1: faltan argumentos: sesion");
  EXPECT_EQ(Mistake("ver todo"), "1: sobran argumentos: todo");
  EXPECT_EQ(Mistake("elegir cboX Lengua y Literatura"), "1: sobran argumentos: y");
  EXPECT_EQ(Mistake("fila msgX 1 2 3"), "1: sobran argumentos: 3");
}

TEST(ScriptParserTest, NamesArgumentsThatDontFit) {
  for (const std::string line :
       {"nodo uno", "nodo 1.5", "nodo 99999999999", "marcar chkX 2", "marcar chkX si", "fallo 0",
        "fallo -1", "elegir cboX #1x", "elegir cboX =", "elegir cboX =dos", "notasactivas 2",
        "nodo 1#2", "pulsar \"cmdX\"", "sesion usuario", "sesion nombre=1", "sesion perfil=x",
        "sesion activa=2", "tamano 10 x", "pestana tabX x",
        // Numbers are plain decimal ones.
        "nodo 0123", "nodo 0x7b", "nodo +1", "nodo 1e2", "nodo -0", "elegir cbo #01",
        "elegir cbo =007", "fila g 01", "sesion perfil=02", "docente 4294967297", "tecla \"\"",
        "fallo 01"})
    EXPECT_THAT(Mistake(line), testing::StartsWith("1: argumento no válido: ")) << line;
}

TEST(ScriptParserTest, NamesQuotesThatDontClose) {
  EXPECT_EQ(Mistake("hoy \"01"), "1: falta la comilla que cierra el texto");
  EXPECT_EQ(Mistake("hoy \"01\"02"), "1: sobra algo detrás de la comilla que cierra el texto");
}

TEST(ScriptParserTest, RefusesWhatIsNoUtf8) {
  EXPECT_EQ(Mistake("ver\nelegir cboX \"1\xBA ESO\""), "2: el texto no es UTF-8");
  EXPECT_EQ(Mistake("# espa\xF1ol"), "1: el texto no es UTF-8");
  for (const std::string text :
       {"\xED\xA0\x80", "\xF4\x90\x80\x80", "\xC0\x80", "\xF8\x88\x80\x80\x80"})
    EXPECT_EQ(Mistake("hoy \"" + text + "\""), "1: el texto no es UTF-8");
  EXPECT_EQ(Mistake("hoy \"\xF4\x8F\xBF\xBF\""), "");
}

TEST(ScriptParserTest, ReadsEveryCommand) {
  const auto* script =
      "nodo 123\nelegir cboX =3\nmarcar chkX 1\npulsar cmdX(0)\ndoble lstX\nfila msgX 1\n"
      "fila msgX 1 2\neditar rtvX 1 2 nada\nlista rtvX 1 2\npestana tabX 2\nescribir txtX \"a\"\n"
      "tecla 40\ntamano 9000 6000\ncerrar\ndocente 3\nnotasactivas 1\nhoy \"\"\n"
      "sesion usuario=1 perfil=2 centro=3 activa=0\nfallo 2\nsql \"SELECT 1\"\nver\n";
  EXPECT_EQ(Parse(script).size(), 21U);
}

TEST(ScriptParserTest, AStreamThatFailsIsNoEnd) {
  /// Gives a line, and then fails as a disk does.
  class Failing : public std::streambuf {
   protected:
    int_type underflow() override {
      if (given_) throw std::ios::failure("disk");
      given_ = true;
      setg(line_, line_, line_ + 7);
      return traits_type::to_int_type(*gptr());
    }

   private:
    char line_[8] = "nodo 1\n";
    bool given_ = false;
  };
  Failing failing;
  std::istream script(&failing);
  try {
    static_cast<void>(ParseScript(script));
    ADD_FAILURE();
  } catch (const ScriptError& error) {
    EXPECT_EQ(error.Line(), 2U);
    EXPECT_STREQ(error.what(), "no se puede leer");
  }
}

}  // namespace
}  // namespace quorvane::guion

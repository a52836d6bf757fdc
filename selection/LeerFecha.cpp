#include "selection/LeerFecha.h"

#include <regex>
#include <string>

namespace quorvane {
namespace {

/// With a comma or a point before fractions of seconds, and the halves of the day as the systems
/// spell them.
constexpr const char* kHora =
    R"((?:(?:\s+|T)(\d{1,2}):([0-5]?\d)(?::[0-5]?\d(?:[.,]\d+)?)?(?:\s*[aApP]\.?\s?[mM]\.?)?Z?)?\s*)";

int Numero(const std::csub_match& cifras) { return std::stoi(cifras.str()); }

/// The year of two digits as systems take it.
int Anno(const std::csub_match& cifras) {
  const auto anno = Numero(cifras);
  if (cifras.length() == 4) return anno;
  return anno + (anno < 30 ? 2000 : 1900);
}

}  // namespace

std::optional<std::chrono::year_month_day> LeerFecha(std::string_view texto) {
  static const std::regex kDiaDelante(R"(\s*(\d{1,2})[/-](\d{1,2})[/-](\d{4}|\d{2}))" +
                                      std::string(kHora));
  static const std::regex kAnnoDelante(R"(\s*(\d{4})[/-](\d{1,2})[/-](\d{1,2}))" +
                                       std::string(kHora));
  constexpr int kHorasDelDia = 24;
  const auto* const end = texto.data() + texto.size();
  std::cmatch partes;
  const auto diaDelante = std::regex_match(texto.data(), end, partes, kDiaDelante);
  if (!diaDelante && !std::regex_match(texto.data(), end, partes, kAnnoDelante))
    return std::nullopt;
  if (partes[4].matched && Numero(partes[4]) >= kHorasDelDia) return std::nullopt;
  const auto& dia = diaDelante ? partes[1] : partes[3];
  const auto& anno = diaDelante ? partes[3] : partes[1];
  const std::chrono::year_month_day fecha{
      std::chrono::year(Anno(anno)), std::chrono::month(static_cast<unsigned>(Numero(partes[2]))),
      std::chrono::day(static_cast<unsigned>(Numero(dia)))};
  return fecha.ok() ? std::optional(fecha) : std::nullopt;
}

}  // namespace quorvane

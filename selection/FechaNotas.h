#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

class Connection;

/// The period in which the session's user may enter the grades of that section and evaluation. None
/// when he may on any day: he has a parent in the user tree or administers the system, or there is
/// no row of dates. Opens `entrada`, where the users are, and leaves it open. Error 3021 for a user
/// without a row.
std::optional<Recordset> PeriodoDeEntrada(Connection& entrada, Connection& centro,
                                          std::int32_t seccion, std::int32_t evaluacion);

/// Today as dd/mm/yyyy: on the machine that holds the database, as the host tells, or here when
/// the host can't tell.
std::string FechaServidor(const Connection& centro);
/// Today on this machine, as dd/mm/yyyy.
std::string FechaLocal();

/// The date of that text, as `LeerFecha` finds it, as yyyy/mm/dd; a text that is no date as it is.
std::string FormatoFecha(const std::string& fecha);

/// The date lies within the period of the row, first and last day included. Texts are compared:
/// the database has to deliver the bounds as yyyy/mm/dd. A Null bound lets no date in.
bool EnFecha(const std::string& fecha, const Recordset& periodo);

/// What the section dialogs say outside the period: the string table has no such entry, so that
/// their refusal ends in error 326.
inline constexpr int kTextoFueraDeFecha = 28001;

}  // namespace quorvane

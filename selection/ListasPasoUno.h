#pragma once

#include <cstdint>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

class ComboBox;
class CommandButton;
class Connection;

// The lists of the step-one dialogs, each from the rows that the session's user may see.

/// Puts an entry for each row into the list, with the value of the key column as item data; which
/// text it bears goes by that column. Nothing is selected afterwards, and a list without rows is
/// disabled. Error 3021, 3265, 6 or 13 as the columns give.
void LlenarCombo(const std::string& clave, ComboBox& lista, Recordset filas);

/// The types of teaching: all but the two reserved ones for profile 0, for another profile those
/// of a section that this member of staff is the tutor of or teaches a pending subject in.
void LlenarTipos(Connection& centro, ComboBox& lista, std::int16_t idPersonal);

/// The ordinary evaluations, which stand in the list until a section is chosen.
void LlenarEvaluacionesOrdinarias(Connection& centro, ComboBox& lista);

/// Makes ready the list that hangs from another: without an entry selected in `elegida` it is
/// emptied and disabled, and the answer is False. Otherwise it is enabled, and the dialog can't go
/// on until it is filled again.
bool AbrirLista(const ComboBox& elegida, ComboBox& siguiente, CommandButton& cmdSeguir);

/// The marking system of the type of teaching has recovery evaluations. Error 3021 when the type
/// has no marking system.
bool TieneRecuperaciones(Connection& centro, std::int32_t tipo);

/// The courses of the type that the user may see; a user who is neither of profile 0 nor a member
/// of staff leaves the list as it was.
void LlenarCursos(Connection& centro, ComboBox& lista, std::int32_t tipo, std::int16_t idPersonal);

/// The same of the sections of a course; the list is enabled if it has entries.
void LlenarSecciones(Connection& centro, ComboBox& lista, std::int32_t curso,
                     std::int16_t idPersonal);

/// The evaluations in which the students of the section's pending register have a grade row.
void LlenarEvaluaciones(Connection& centro, ComboBox& lista, std::int32_t seccion);

/// The entry before the selected one, which clicks the list; nothing at its beginning.
void ElegirAnterior(ComboBox& lista);
/// The entry behind the selected one, the first when there is none; nothing at its end.
void ElegirSiguiente(ComboBox& lista);

}  // namespace quorvane

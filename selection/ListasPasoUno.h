#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/data/Recordset.h"

namespace quorvane {

class ComboBox;
class CommandButton;

/// The text of an entry, from the current row; the name of the key column in lower case.
using TextoEntrada = std::function<std::string(const std::string& clave, const Recordset& fila)>;

/// The text of the lists that all step-one dialogs have: `Nombre` of a type of teaching,
/// `Descripcion` of a course, section or evaluation.
std::string TextoComun(const std::string& clave, const Recordset& fila);

/// Puts an entry for each row into the list, with the key column's value as item data. Nothing is
/// selected afterwards, and a list without rows is disabled. Error 3021, 3265, 6 or 13 as the
/// columns give.
void LlenarCombo(const std::string& clave, ComboBox& lista, Recordset filas,
                 const TextoEntrada& texto = TextoComun);

/// The session's user as a member of staff; 0 when he is none. Error 6 beyond 16 bits.
std::int16_t LeerPersonal();

/// The types of teaching: all but the two reserved ones for profile 0, for another profile those
/// of a section that this member of staff is the tutor of or teaches a pending subject in.
void LlenarTipos(ComboBox& lista, std::int16_t idPersonal);

/// The ordinary evaluations, which stand in the list until a section is chosen.
void LlenarEvaluacionesOrdinarias(ComboBox& lista);

/// Makes ready the list that hangs from another: without an entry selected in `elegida` it is
/// emptied and disabled, and the answer is False. Otherwise it is enabled, and the dialog can't go
/// on until it is filled again.
bool AbrirLista(const ComboBox& elegida, ComboBox& siguiente, CommandButton& cmdSeguir);

/// The marking system of the type of teaching has recovery evaluations. Error 3021 when the type
/// has no marking system.
bool TieneRecuperaciones(std::int32_t tipo);

/// The courses of the type that the user may see; a user who is neither of profile 0 nor a member
/// of staff leaves the list as it was.
void LlenarCursos(ComboBox& lista, std::int32_t tipo, std::int16_t idPersonal);

/// The same of the sections of a course; the list is enabled if it has entries.
void LlenarSecciones(ComboBox& lista, std::int32_t curso, std::int16_t idPersonal);

/// The evaluations in which the students of the section's pending register have a grade row.
void LlenarEvaluaciones(ComboBox& lista, std::int32_t seccion);

}  // namespace quorvane

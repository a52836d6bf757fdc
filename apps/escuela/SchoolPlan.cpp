#include "apps/escuela/SchoolPlan.h"

namespace quorvane {
namespace {

using Words = std::vector<std::string_view>;

const Words kNumbers{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"};
const Words kMarks{"Insuficiente", "Suficiente", "Bien", "Notable", "Sobresaliente"};
const Words kAttitudes{"Pasiva", "Irregular", "Correcta", "Muy buena"};
const Words kRemarks{"Debe repasar los contenidos básicos", "Progresa adecuadamente",
                     "No ha entregado los trabajos", "Ha superado los objetivos"};

TeachingPlan Compulsory() {
  TeachingPlan plan{"Educación Secundaria Obligatoria", "ESO", true, {}, {}, {}};
  plan.courses = {
      {"1º ESO", 0, false}, {"2º ESO", 1, true}, {"3º ESO", 1, true}, {"4º ESO", 2, true}};
  const auto ordinary = SubjectKind::Ordinary;
  plan.subjects = {
      {"Lengua Castellana y Literatura", ordinary, false, {0, 1, 2, 3}},
      {"Matemáticas", ordinary, false, {0, 1, 2, 3}},
      {"Primera Lengua Extranjera: Inglés", ordinary, false, {0, 1, 2, 3}},
      {"Geografía e Historia", ordinary, false, {0, 1, 2, 3}},
      {"Educación Física", ordinary, false, {0, 1, 2, 3}},
      {"Biología y Geología", ordinary, false, {0, 2}},
      {"Física y Química", ordinary, false, {1, 2}},
      {"Educación Plástica, Visual y Audiovisual", ordinary, false, {0, 2}},
      {"Música", ordinary, false, {1}},
      {"Tecnología y Digitalización", ordinary, false, {1, 2}},
      {"Segunda Lengua Extranjera: Francés", ordinary, true, {0, 1, 2, 3}},
      {"Cultura Clásica", ordinary, true, {2}},
      {"Valores y Convivencia", SubjectKind::Values, false, {0, 1}},
      {"Iniciación Profesional: Formación en Empresa", SubjectKind::WorkPlacement, true, {2}},
  };
  plan.columns = {{"Nota", 1, kNumbers},
                  {"Concepto", 2, kMarks},
                  {"Procedimiento", 3, kMarks},
                  {"Actitud", 4, kAttitudes},
                  {"Observación", 5, kRemarks}};
  return plan;
}

TeachingPlan Baccalaureate() {
  TeachingPlan plan{"Bachillerato", "BACH", false, {}, {}, {}};
  plan.courses = {{"1º Bachillerato", 1, false}, {"2º Bachillerato", 2, false}};
  const auto ordinary = SubjectKind::Ordinary;
  plan.subjects = {
      {"Lengua Castellana y Literatura", ordinary, false, {0, 1}},
      {"Primera Lengua Extranjera: Inglés", ordinary, false, {0, 1}},
      {"Matemáticas", ordinary, false, {0, 1}},
      {"Filosofía", ordinary, false, {0}},
      {"Historia de la Filosofía", ordinary, false, {1}},
      {"Historia de España", ordinary, false, {1}},
      {"Física y Química", ordinary, false, {0}},
      {"Química", ordinary, true, {1}},
      {"Biología, Geología y Ciencias Ambientales", ordinary, true, {0}},
      {"Dibujo Técnico", ordinary, true, {0, 1}},
      {"Educación Física", ordinary, false, {0}},
  };
  // No marks for concepts and procedures here: the grids show two columns.
  plan.columns = {{"Nota", 1, kNumbers}, {"Observación", 5, kRemarks}};
  return plan;
}

}  // namespace

const std::vector<TeachingPlan>& TeachingPlans() {
  static const std::vector<TeachingPlan> plans{Compulsory(), Baccalaureate()};
  return plans;
}

const std::vector<EvaluationPlan>& EvaluationPlans() {
  static const std::vector<EvaluationPlan> plans{
      {evaluation::kFirst, "1ª Evaluación", false, false, 1},
      {evaluation::kSecond, "2ª Evaluación", false, false, 2},
      {evaluation::kThird, "3ª Evaluación", false, false, 3},
      {evaluation::kFirstFinal, "Final Ordinaria", true, false, 1},
      {evaluation::kSecondFinal, "Final Extraordinaria", true, false, 2},
      {evaluation::kExtraordinary, "Prueba Extraordinaria de Pendientes", false, true, 4},
      {evaluation::kReserved, "Evaluación Inicial", false, false, 0},
  };
  return plans;
}

const std::vector<std::string_view>& FirstNames() {
  static const Words names{
      "Lucía",     "Hugo",    "Martina", "Mateo",     "Sofía",   "Martín",  "Julia",   "Leo",
      "Paula",     "Daniel",  "Valeria", "Alejandro", "Emma",    "Pablo",   "Daniela", "Manuel",
      "Carla",     "Álvaro",  "Alma",    "Adrián",    "Sara",    "David",   "Carmen",  "Mario",
      "Noa",       "Enzo",    "Vega",    "Diego",     "Claudia", "Marcos",  "Lola",    "Izan",
      "Valentina", "Javier",  "Alba",    "Marco",     "Jimena",  "Antonio", "Chloe",   "Bruno",
      "Olivia",    "Miguel",  "Lara",    "Thiago",    "Vera",    "Nicolás", "Marina",  "Gonzalo",
      "Inés",      "Rodrigo", "Aitana",  "Jorge",     "Candela", "Íñigo",   "Begoña",  "Óscar"};
  return names;
}

const std::vector<std::string_view>& Surnames() {
  static const Words names{
      "García",   "Rodríguez", "González", "Fernández", "López",     "Martínez", "Sánchez",
      "Pérez",    "Gómez",     "Martín",   "Jiménez",   "Hernández", "Ruiz",     "Díaz",
      "Moreno",   "Muñoz",     "Álvarez",  "Romero",    "Gutiérrez", "Alonso",   "Navarro",
      "Torres",   "Domínguez", "Ramos",    "Vázquez",   "Ramírez",   "Gil",      "Serrano",
      "Morales",  "Molina",    "Blanco",   "Suárez",    "Castro",    "Ortega",   "Delgado",
      "Ortiz",    "Marín",     "Rubio",    "Núñez",     "Sanz",      "Medina",   "Iglesias",
      "Castillo", "Cortés",    "Garrido",  "Santos",    "Lozano",    "Cano",     "Peña",
      "Nieto",    "Ibáñez",    "Ñíguez",   "Aguirre",   "Zubiri",    "Prieto",   "Vidal"};
  return names;
}

}  // namespace quorvane

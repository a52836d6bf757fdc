#include "apps/escuela/FieldValues.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

#include "apps/escuela/Counted.h"
#include "apps/escuela/SchoolAddress.h"
#include "frame/schema/SchoolSchema.h"
#include "platform/RuntimeError.h"
#include "platform/text/AsciiCase.h"

namespace quorvane {
namespace {

/// The numbers that a column's field holds.
struct Field {
  std::int64_t least;
  std::int64_t most;
};

/// A column that the module reads into a smaller field than the table's.
struct Narrow {
  std::string_view table;
  std::string_view column;
  SchemaKind kind;
};

constexpr Narrow kNarrow[] = {
    // The register knows its evaluations and courses by a byte,
    {"NumEvaluacion", "IDNumEvaluacion", SchemaKind::Byte},
    {"NumEvaluacion", "Orden", SchemaKind::Byte},
    {"Seccion", "CodCurso", SchemaKind::Byte},
    // and sections, staff and users are known by 16 bits, to the grade forms and to the session.
    {"Seccion", "IDSeccion", SchemaKind::Short},
    {"MateriaDetalles", "CodSeccion", SchemaKind::Short},
    {"Personal", "IDPersonal", SchemaKind::Short},
    {"Usuario", "IDUsuario", SchemaKind::Short},
    {"Usuario", "CodPerfil", SchemaKind::Short},
};

SchemaKind KindRead(const SchemaTable& table, const SchemaColumn& column) {
  for (const auto& narrow : kNarrow)
    if (table.name == narrow.table && column.name == narrow.column) return narrow.kind;
  return column.kind;
}

constexpr std::int64_t kLastKey = std::numeric_limits<std::int32_t>::max();

std::optional<Field> FieldOf(SchemaKind kind) {
  switch (kind) {
    case SchemaKind::Key:
    case SchemaKind::Long:
    // A flag is any number.
    case SchemaKind::Flag:
      return Field{std::numeric_limits<std::int32_t>::min(), kLastKey};
    case SchemaKind::Short:
      return Field{std::numeric_limits<std::int16_t>::min(),
                   std::numeric_limits<std::int16_t>::max()};
    case SchemaKind::Byte:
      return Field{0, std::numeric_limits<std::uint8_t>::max()};
    case SchemaKind::Text:
    case SchemaKind::Date:
      break;
  }
  return std::nullopt;
}

bool Reads(const Value& value, SchemaKind kind) {
  try {
    switch (kind) {
      case SchemaKind::Flag:
        static_cast<void>(value.Flag());
        return true;
      case SchemaKind::Short:
        static_cast<void>(value.Integer());
        return true;
      case SchemaKind::Byte:
        static_cast<void>(value.Byte());
        return true;
      default:
        static_cast<void>(value.Long());
        return true;
    }
  } catch (const RuntimeError&) {
    return false;
  }
}

class TableValues {
 public:
  TableValues(Connection& connection, const SchemaTable& table)
      : connection_(connection), table_(table) {}

  void AddFindings(std::vector<std::string>& findings) const {
    const auto names = ColumnsOf(connection_, table_.name).value_or(FieldNames());
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
      const auto& column = table_.columns[i];
      // Of one whose name is free the place is not.
      const auto free = column.mark == SchemaMark::FreeName && i < names.size();
      for (const auto& name : names)
        if (EqualNoCase(name, free ? names[i] : column.name))
          CheckColumn(free ? name : column.name, column, findings);
    }
  }

  /// Whether every row has a key that the module can read.
  [[nodiscard]] bool KeysFit() const {
    return std::none_of(table_.columns.begin(), table_.columns.end(), [this](const auto& column) {
      return column.kind == SchemaKind::Key &&
             (CountBad(column.name, column) > 0 || Count(column.name, " IS NULL") > 0);
    });
  }

 private:
  void CheckColumn(const std::string& name, const SchemaColumn& column,
                   std::vector<std::string>& findings) const {
    const auto field = FieldOf(KindRead(table_, column));
    if (!field) return;
    if (const auto bad = CountBad(name, column); bad == kNoNumbers)
      findings.push_back("La columna " + name + " de la tabla " + table_.name +
                         " no es de números");
    else if (bad > 0)
      findings.push_back("Valores que no caben en " + table_.name + "." + name + ": " +
                         CountedRows(bad) + " sin un número de " + std::to_string(field->least) +
                         " a " + std::to_string(field->most));
    if (column.kind == SchemaKind::Key) CheckKey(name, findings);
  }

  void CheckKey(const std::string& name, std::vector<std::string>& findings) const {
    if (const auto missing = Count(name, " IS NULL"); missing > 0)
      findings.push_back("Sin clave en " + table_.name + ": " + CountedRows(missing) + " cuyo " +
                         name + " es nulo");
    if (Count(name, "=" + std::to_string(kLastKey)) > 0)
      findings.push_back("Última clave en " + table_.name + ": una fila tiene ya el mayor " + name +
                         " posible, y detrás no se puede añadir ninguna");
  }

  static constexpr auto kNoNumbers = static_cast<std::size_t>(-1);

  /// The rows of which that holds.
  [[nodiscard]] std::size_t Count(const std::string& column, const std::string& condition) const {
    const auto rows = connection_.Execute("SELECT COUNT(*) FROM " + table_.name + " WHERE [" +
                                          column + "]" + condition);
    return static_cast<std::size_t>(rows.Fields(0).Long());
  }

  /// The rows whose value doesn't fit that column, called so here, which holds numbers.
  [[nodiscard]] std::size_t CountBad(const std::string& called, const SchemaColumn& column) const {
    const auto kind = KindRead(table_, column);
    const auto field = *FieldOf(kind);
    const auto name = "[" + called + "]";
    const auto file = EngineReached(connection_) == sqltext::Engine::Sqlite;
    // There a flag is what the engine's own type says.
    if (!file && kind == SchemaKind::Flag) return 0;
    const auto beyond = kind == SchemaKind::Flag
                            ? std::string("1=0")
                            : name + "<" + std::to_string(field.least) + " OR " + name + ">" +
                                  std::to_string(field.most);
    // In a file a column holds what it is given, a text or bytes too, whatever its type.
    const auto other = file ? " OR typeof(" + name + ") IN ('text','blob')" : std::string();
    try {
      auto rows = connection_.Execute("SELECT " + name + " FROM " + table_.name + " WHERE " +
                                      beyond + other);
      std::size_t bad = 0;
      for (; !rows.Eof(); rows.MoveNext()) bad += Reads(rows.Fields(0), kind) ? 0 : 1;
      return bad;
    } catch (const RuntimeError&) {
      if (file || !connection_.IsOpen()) throw;
      return kNoNumbers;
    }
  }

  Connection& connection_;
  const SchemaTable& table_;
};

}  // namespace

std::vector<std::string> BadValues(Connection& connection) {
  std::vector<std::string> findings;
  for (const auto& table : SchoolTables()) TableValues(connection, table).AddFindings(findings);
  return findings;
}

bool KeysFit(Connection& connection, std::string_view table) {
  const auto* const found = FindSchoolTable(table);
  return found == nullptr || TableValues(connection, *found).KeysFit();
}

}  // namespace quorvane

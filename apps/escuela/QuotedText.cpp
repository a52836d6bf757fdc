#include "apps/escuela/QuotedText.h"

namespace quorvane {

void AppendQuoted(std::string& statement, std::string_view text, sqltext::Engine engine) {
  const auto sqlServer = engine == sqltext::Engine::SqlServer;
  // Without its letter the text would be read in the letters of the database's own code page.
  const std::string_view open = sqlServer ? "N'" : "'";
  statement += open;
  auto before = '\0';
  for (const auto c : text) {
    // SQL Server takes a line's end behind a backslash for no part of the text.
    if (sqlServer && before == '\\' && (c == '\n' || c == '\r'))
      statement.append("'+").append(open);
    if (c == '\'') statement += c;
    statement += c;
    before = c;
  }
  statement += '\'';
}

}  // namespace quorvane

#include "apps/escuela/SchoolWriting.h"

#include <string>

#include "frame/schema/SchoolSchema.h"

namespace quorvane {

void WriteSchool(Connection& school, std::string_view schema,
                 const std::function<void(Connection& school)>& fill,
                 const std::function<void()>& goOn) {
  const auto statements = SchemaStatements(schema);
  const auto isIndex = [](const std::string& statement) {
    return statement.starts_with("CREATE INDEX");
  };
  for (const auto& statement : statements)
    if (!isIndex(statement)) school.Execute(statement);
  fill(school);
  for (const auto& statement : statements) {
    if (!isIndex(statement)) continue;
    if (goOn) goOn();
    school.Execute(statement);
  }
  if (goOn) goOn();
}

}  // namespace quorvane

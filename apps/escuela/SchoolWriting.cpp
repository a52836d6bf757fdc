#include "apps/escuela/SchoolWriting.h"

#include <string>
#include <utility>

#include "apps/escuela/Transaction.h"
#include "frame/schema/SchoolSchema.h"

namespace quorvane {

void AskBeforeEach(Connection& school, const std::function<void()>& goOn) {
  if (!goOn) return;
  school.Observe([goOn, over = false](const Connection&, const std::string& statement) mutable {
    if (std::exchange(over, true)) return;
    goOn();
    over = statement == kCommit;
  });
}

void WriteSchool(Connection& school, std::string_view schema,
                 const std::function<void(Connection& school)>& fill,
                 const std::function<void()>& goOn) {
  AskBeforeEach(school, goOn);
  const auto statements = SchemaStatements(schema);
  const auto isIndex = [](const std::string& statement) {
    return statement.starts_with("CREATE INDEX");
  };
  for (const auto& statement : statements)
    if (!isIndex(statement)) school.Execute(statement);
  fill(school);
  for (const auto& statement : statements)
    if (isIndex(statement)) school.Execute(statement);
}

}  // namespace quorvane

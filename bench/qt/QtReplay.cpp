#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>

#include "bench/Replay.h"

namespace quorvane::bench {
namespace {

constexpr const char* kName = "Qt SQL";

/// The library finds its drivers by an application's folders.
void RequireApplication() {
  static int count = 1;
  static char name[] = "quorvane-bench";
  static char* arguments[] = {name, nullptr};
  static const QCoreApplication application(count, arguments);
}

Time Run(const QSqlDatabase& database, const std::vector<RecordedStatement>& statements) {
  std::vector<QString> texts;
  texts.reserve(statements.size());
  for (const auto& statement : statements)
    texts.push_back(QString::fromStdString(ForSqlite(statement.text)));
  const Watch watch;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(texts[i]))
      ReplayFailed(kName, query.lastError().text().toStdString(), statements[i].text);
    std::size_t rows = 0;
    while (query.next()) ++rows;
    RequireRows(kName, statements[i], rows);
  }
  return watch.Passed();
}

}  // namespace

Time ReplayWithQt(const std::string& file, const std::vector<RecordedStatement>& statements) {
  RequireApplication();
  const auto connection = QStringLiteral("replay");
  Time time;
  {
    auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
    database.setDatabaseName(QString::fromStdString(file));
    if (!database.open()) ReplayFailed(kName, database.lastError().text().toStdString(), file);
    QSqlQuery(database).exec(QStringLiteral("PRAGMA synchronous=FULL"));
    time = Run(database, statements);
  }
  QSqlDatabase::removeDatabase(connection);
  return time;
}

}  // namespace quorvane::bench

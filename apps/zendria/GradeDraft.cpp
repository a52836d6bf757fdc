#include "apps/zendria/GradeDraft.h"

#include <QCryptographicHash>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <array>

namespace quorvane::zendria {
namespace {

constexpr auto kKind = "notas sin guardar";
constexpr int kVersion = 1;
constexpr auto kEnding = ".json";

struct TextField {
  const char* name;
  std::string GradeCell::*field;
};
struct NumberField {
  const char* name;
  std::int32_t GradeCell::*field;
};

constexpr auto kTexts = std::to_array<TextField>({
    {"alumno", &GradeCell::student},
    {"materia", &GradeCell::subject},
    {"campo", &GradeCell::field},
    {"textoAlumno", &GradeCell::studentText},
    {"textoMateria", &GradeCell::subjectText},
    {"textoColumna", &GradeCell::columnText},
    {"textoAnterior", &GradeCell::formerText},
    {"texto", &GradeCell::text},
});
constexpr auto kNumbers = std::to_array<NumberField>({
    {"columna", &GradeCell::column},
    {"pendiente", &GradeCell::pending},
    {"datoAnterior", &GradeCell::formerData},
    {"dato", &GradeCell::data},
});

/// What tells one draft from another, as it stands in the file.
QJsonObject Identity(const DraftOwner& owner, const GradeSheet& sheet) {
  QJsonArray choices;
  for (const auto& choice : sheet.choices) choices.append(choice.data);
  return {{"escuela", owner.school},
          {"usuario", owner.user},
          {"pantalla", QString::fromStdString(sheet.form)},
          {"elecciones", choices},
          {"recuperacion", sheet.recovery}};
}

QJsonObject ToJson(const GradeCell& cell) {
  QJsonObject object;
  for (const auto& [name, field] : kTexts) object[name] = QString::fromStdString(cell.*field);
  for (const auto& [name, field] : kNumbers) object[name] = cell.*field;
  return object;
}

QJsonObject ToJson(const ProcessMark& mark) {
  return {{"maquina", QString::fromStdString(mark.machine)},
          {"arranque", QString::fromStdString(mark.boot)},
          {"espacio", QString::fromStdString(mark.space)},
          {"proceso", QString::number(mark.process)},
          {"inicio", QString::number(mark.start)}};
}

/// An empty one of what is none.
ProcessMark MarkOf(const QJsonObject& object) {
  return {object["maquina"].toString().toStdString(), object["arranque"].toString().toStdString(),
          object["espacio"].toString().toStdString(), object["proceso"].toString().toLongLong(),
          object["inicio"].toString().toULongLong()};
}

QString Digest(const QByteArray& content) {
  return QString::fromLatin1(QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex());
}

QString FileNameBegin(const DraftOwner& owner, const GradeSheet& sheet) {
  return Digest(QJsonDocument(Identity(owner, sheet)).toJson(QJsonDocument::Compact));
}

std::optional<GradeCell> CellFrom(const QJsonValue& value) {
  if (!value.isObject()) return std::nullopt;
  const auto object = value.toObject();
  GradeCell cell;
  for (const auto& [name, field] : kTexts) {
    if (!object[name].isString()) return std::nullopt;
    cell.*field = object[name].toString().toStdString();
  }
  for (const auto& [name, field] : kNumbers) {
    if (!object[name].isDouble()) return std::nullopt;
    cell.*field = object[name].toInt();
  }
  return cell;
}

}  // namespace

QString DraftFileName(const DraftOwner& owner, const GradeSheet& sheet, const ProcessMark& writer) {
  constexpr qsizetype kEnough = 16;
  const auto mark = QJsonDocument(ToJson(writer)).toJson(QJsonDocument::Compact);
  return FileNameBegin(owner, sheet) + '-' + Digest(mark).left(kEnough) + kEnding;
}

QStringList DraftFileNames(const QString& folder, const DraftOwner& owner,
                           const GradeSheet& sheet) {
  // What is no file, and what a link leads nowhere with, has to be told too.
  return QDir(folder).entryList({FileNameBegin(owner, sheet) + '*' + kEnding},
                                QDir::AllEntries | QDir::System, QDir::Name);
}

QByteArray DraftContent(const GradeDraft& draft) {
  QJsonArray cells;
  for (const auto& cell : draft.cells) cells.append(ToJson(cell));
  const QJsonObject object{{"clase", kKind},
                           {"version", kVersion},
                           {"de", Identity(draft.owner, draft.sheet)},
                           {"cuando", draft.when.toString(Qt::ISODateWithMs)},
                           {"programa", ToJson(draft.writer)},
                           {"celdas", cells}};
  return QJsonDocument(object).toJson();
}

std::optional<GradeDraft> ReadDraft(const QByteArray& content, const DraftOwner& owner,
                                    const GradeSheet& sheet) {
  const auto object = QJsonDocument::fromJson(content).object();
  if (object["clase"] != QLatin1String(kKind) || object["version"] != kVersion ||
      object["de"] != Identity(owner, sheet) || !object["celdas"].isArray())
    return std::nullopt;
  GradeDraft draft{owner,
                   sheet,
                   QDateTime::fromString(object["cuando"].toString(), Qt::ISODate),
                   {},
                   MarkOf(object["programa"].toObject())};
  if (!draft.when.isValid()) return std::nullopt;
  for (const auto& value : object["celdas"].toArray()) {
    auto cell = CellFrom(value);
    if (!cell) return std::nullopt;
    draft.cells.push_back(*std::move(cell));
  }
  return draft;
}

}  // namespace quorvane::zendria

#pragma once

#include <QDateTime>
#include <QString>
#include <vector>

#include "apps/zendria/GradeCell.h"

namespace quorvane::zendria {

/// Where and when grades were left without being saved, as a person reads it.
struct RescueHeading {
  QString school;  ///< its place, without any password
  QString screen;
  QString user;
  QDateTime when;
  QString failure;  ///< its heading
};

/// The grades for a person who types them again: the heading, a line each, then a line a cell, of
/// four texts parted by tabs: student, subject, column, what was chosen. `certain` is false when
/// some of them may be in the database after all, and the text says so.
QString RescueText(const RescueHeading& heading, const GradeSheet& sheet,
                   const std::vector<GradeCell>& cells, bool certain);

/// The name of the file for it: the time and the school, whose name may hold anything.
QString RescueFileName(const QDateTime& when, const QString& schoolName);

}  // namespace quorvane::zendria

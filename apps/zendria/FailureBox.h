#pragma once

#include <QString>

class QWidget;

namespace quorvane::zendria {

struct Failure;
struct RescuedGrades;
class SchoolError;

/// "Error 6: " and the runtime's text, or what stands for that.
QString FailureHeading(const Failure& failure);

/// Tells the user what ended a screen, what stayed in the database, where the grades are that
/// weren't saved (null for none), and what to do. `details` is what a button of the box puts on the
/// clipboard; another shows the grades. They stand in the box itself when there is no file.
void ShowFailure(QWidget* parent, const Failure& failure, const RescuedGrades* rescued,
                 const QString& details);

/// Tells what went wrong in a window of the host's own, and what to do.
void ShowProblem(QWidget* parent, const Failure& failure);

/// Tells what couldn't be done, without a screen or a statement having failed, and what to do.
void ShowWarning(QWidget* parent, const QString& what, const QString& advice);

/// Tells why a file can't be opened, with the list of what is missing from it.
void ShowSchoolError(QWidget* parent, const SchoolError& error);

}  // namespace quorvane::zendria

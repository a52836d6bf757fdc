#pragma once

class QWidget;

namespace quorvane::zendria {

struct Failure;
class SchoolError;

/// Tells the user what ended a screen, what stayed in the database and what to do.
void ShowFailure(QWidget* parent, const Failure& failure);

/// Tells what went wrong in a window of the host's own, and what to do.
void ShowProblem(QWidget* parent, const Failure& failure);

/// Tells why a file can't be opened, with the list of what is missing from it.
void ShowSchoolError(QWidget* parent, const SchoolError& error);

}  // namespace quorvane::zendria

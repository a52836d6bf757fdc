#include "adapters/qt/grid/GridCommand.h"

#include <QKeyEvent>

namespace quorvane::qt {

GridCommand CommandOf(const QKeyEvent& key) {
  if (key.matches(QKeySequence::Copy)) return GridCommand::Copy;
  if (key.matches(QKeySequence::Paste)) return GridCommand::Paste;
  const auto with = key.modifiers() & ~Qt::KeypadModifier;
  if (key.key() == Qt::Key_D && with == Qt::ControlModifier) return GridCommand::FillDown;
  if (key.key() == Qt::Key_Delete && with == Qt::NoModifier) return GridCommand::Clear;
  return GridCommand::None;
}

}  // namespace quorvane::qt

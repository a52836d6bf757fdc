#pragma once

#include <functional>

class QWidget;

namespace quorvane::zendria {

/// Runs what asks the school for something. False, and told to the user, when that fails.
bool Attempt(QWidget* parent, const std::function<void()>& work);

}  // namespace quorvane::zendria

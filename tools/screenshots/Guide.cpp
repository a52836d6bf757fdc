#include "tools/screenshots/Guide.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <stdexcept>
#include <utility>

#include "adapters/qt/window/BusySign.h"
#include "platform/controls/Grid.h"
#include "platform/controls/ItemList.h"
#include "platform/controls/TabStrip.h"

namespace quorvane::screenshots {
namespace {

/// Set on a dialog of the host that its step has been taken for.
constexpr auto kMet = "met";

template <class Model>
Model& Find(qt::FormWindow& window, const std::string& name) {
  auto* const control = dynamic_cast<Model*>(window.Model().Find(name));
  if (control == nullptr) throw std::runtime_error(window.Model().Name() + " has no " + name);
  return *control;
}

template <class Steps>
bool TakeStep(Steps& steps, const std::string& name,
              typename Steps::mapped_type::value_type& step) {
  auto& waiting = steps[name];
  if (waiting.empty()) return false;
  step = std::move(waiting.front());
  waiting.pop_front();
  return true;
}

template <class Steps>
void RequireTaken(const Steps& steps) {
  for (const auto& [window, waiting] : steps)
    if (!waiting.empty()) throw std::runtime_error("No ha aparecido la ventana " + window);
}

}  // namespace

Guide::Guide(qt::QtFrontEnd& screen, Camera& camera) : screen_(screen), camera_(camera) {
  screen_.WindowShown = [this](qt::FormWindow& window) {
    const auto& name = window.Model().Name();
    std::function<void(qt::FormWindow&)> step;
    if (TakeStep(steps_, name, step)) return step(window);
    camera_.Take(QString::fromStdString(name), window);
    window.close();
  };
  screen_.MessageShown = [this](QMessageBox& box) {
    if (!message_.isEmpty()) camera_.Take(std::exchange(message_, {}), box);
    box.accept();
  };
  QObject::connect(&look_, &QTimer::timeout, &look_, [this] { Look(); });
  look_.start(1);
}

Guide::~Guide() {
  screen_.WindowShown = nullptr;
  screen_.MessageShown = nullptr;
}

void Guide::On(const std::string& form, std::function<void(qt::FormWindow&)> step) {
  steps_[form].push_back(std::move(step));
}

void Guide::OnDialog(const std::string& dialog, std::function<void(QWidget&)> step) {
  dialogSteps_[dialog].push_back(std::move(step));
}

void Guide::Finish() const {
  if (!failure_.empty()) throw std::runtime_error(failure_);
  RequireTaken(steps_);
  RequireTaken(dialogSteps_);
}

void Guide::Press(qt::FormWindow& window, const std::string& button) {
  auto* const widget = qobject_cast<QAbstractButton*>(window.Widget(button));
  if (widget == nullptr) throw std::runtime_error(window.Model().Name() + " has no " + button);
  widget->click();
}

void Guide::Pick(qt::FormWindow& window, const std::string& list, const QString& text) {
  const auto& entries = Find<ItemList>(window, list);
  for (int index = 0; index < entries.ListCount(); ++index)
    if (QString::fromStdString(entries.List(index)).startsWith(text))
      return Pick(window, list, index);
  throw std::runtime_error(list + " has no " + text.toStdString());
}

void Guide::Pick(qt::FormWindow& window, const std::string& list, int index) {
  auto& entries = Find<ItemList>(window, list);
  window.FrontEnd().Gesture(window, [&entries, index] { entries.ListIndex(index); });
}

void Guide::Row(qt::FormWindow& window, const std::string& grid, int row, int column) {
  auto& cells = Find<Grid>(window, grid);
  window.FrontEnd().Gesture(window, [&cells, row, column] {
    cells.Row(row);
    cells.Col(column);
  });
}

void Guide::Tab(qt::FormWindow& window, const std::string& strip, int tab) {
  auto& tabs = Find<TabStrip>(window, strip);
  window.FrontEnd().Gesture(window, [&tabs, tab] { tabs.SelectedTab(tab); });
}

void Guide::Look() {
  LookForBusySign();
  auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (dialog == nullptr || dialog->property(kMet).toBool() || dialog->objectName().isEmpty())
    return;
  std::function<void(QWidget&)> step;
  if (!TakeStep(dialogSteps_, dialog->objectName().toStdString(), step)) {
    // The host tells what went wrong on the way: there is no use in going on.
    if (const auto* const box = qobject_cast<QMessageBox*>(dialog);
        box != nullptr && failure_.empty())
      failure_ = box->text().toStdString();
    if (dynamic_cast<qt::FormWindow*>(dialog) == nullptr) dialog->reject();
    return;
  }
  dialog->setProperty(kMet, true);
  // Not from inside the timer's own signal, which would be deaf to what the step opens.
  QTimer::singleShot(0, dialog, [dialog, step] { step(*dialog); });
}

void Guide::LookForBusySign() {
  auto* const window = screen_.ActiveWindow();
  if (busy_.isEmpty() || window == nullptr || !screen_.Busy()) return;
  for (const auto* const child : window->findChildren<QWidget*>())
    if (dynamic_cast<const qt::BusySign*>(child) != nullptr && child->isVisible())
      return camera_.Take(std::exchange(busy_, {}), *window);
}

}  // namespace quorvane::screenshots

#include <QApplication>
#include <exception>
#include <iostream>

#include "Session.h"
#include "adapters/qt/window/FormWindow.h"
#include "adapters/qt/window/QtFrontEnd.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "frame/cAsignarDatos.h"
#include "frame/cNombreNodo.h"
#include "platform/host/Application.h"

namespace {

/// Opens the register on a screen and closes it again; the title of its window.
std::string ShowTheRegister(const std::string& file) {
  quorvane::qt::QtFrontEnd screen;
  quorvane::Application::Instance().UseScreen(&screen);
  std::string title;
  screen.WindowShown = [&title](quorvane::qt::FormWindow& window) {
    title = window.windowTitle().toStdString();
    window.close();
  };
  quorvane::sqlite::SqliteConnection school(file, "centro");
  school.Open();
  quorvane::sqlite::SqliteConnection users(file, "entrada");
  users.Open();
  quorvane::cAsignarDatos module;
  module.ObtenerDatos(TutorSession(school, users));
  module.ActivarFormulario(quorvane::cNombreNodo().Pendientes);
  quorvane::Application::Instance().UseScreen(nullptr);
  return title;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const QApplication application(argc, argv);
    const auto title = argc == 2 ? ShowTheRegister(argv[1]) : "";
    std::cout << "ventana " << title << '\n';
    return title == "Alumnos con materias pendientes" ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}

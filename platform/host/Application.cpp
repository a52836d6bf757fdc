#include "platform/host/Application.h"

#include <cstdlib>

#include "platform/RuntimeError.h"

#ifndef QUORVANE_VERSION
#error "The build gives the version that the file VERSION holds"
#endif

namespace quorvane {

Application::Application() : version_(BuiltVersion()) {}

Application& Application::Instance() {
  static Application application;
  return application;
}

FrontEnd& Application::Screen() const {
  if (screen_ == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
  return *screen_;
}

ModuleVersion Application::BuiltVersion() {
  const std::string text = QUORVANE_VERSION;
  const auto minor = text.find('.');
  const auto revision = text.find('.', minor + 1);
  const auto number = [&text](std::size_t at) { return std::atoi(text.c_str() + at); };
  return {number(0), number(minor + 1), number(revision + 1)};
}

}  // namespace quorvane

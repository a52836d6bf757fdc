#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <utility>

#include "frame/cConfiguracion.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/FormInstance.h"
#include "platform/host/Application.h"
#include "platform/host/FrontEnd.h"
#include "tests/selection/StepOne.h"
#include "tests/support/TestConnection.h"

namespace quorvane::test {

/// A user who does one thing on each form that is shown, in order.
class Hands : public FrontEnd {
 public:
  std::vector<std::function<void()>> acts;
  std::vector<Pointer> pointers;
  std::vector<std::string> shown;
  std::function<void()> Pointing;  ///< whenever the pointer changes

  void RunModal(Form& form) override {
    shown.push_back(form.Name());
    if (acts.empty()) return;
    const auto act = std::move(acts.front());
    acts.erase(acts.begin());
    act();
  }
  void Message(MessageIcon /*icon*/, const std::string& /*title*/,
               const std::string& /*text*/) override {}
  void Beep() override {}
  void MousePointer(Pointer pointer) override {
    pointers.push_back(pointer);
    if (Pointing) Pointing();
  }
  std::int32_t TextWidth(const Form& /*form*/, const std::string& text) override {
    return static_cast<std::int32_t>(text.size()) * 120;
  }
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return 19200; }
  std::int32_t ScreenHeight() override { return 12000; }
};

/// What step one hands over to step two: its fields, the title, the closed connection.
class HandedOver : public ::testing::Test {
 public:
  HandedOver() : centro(school.Path(), "centro"), entrada(school.Path(), "entrada") {
    school.Sql(
        "UPDATE SistemaCalificacion SET Recuperaciones=-1;"
        "UPDATE Seccion SET Seguimiento=-1 WHERE IDSeccion=321;"
        "UPDATE EvaluacionActaPte SET CodNota=103 WHERE CodNumEvaluacion=4");
    centro.Open();
    auto& session = cConfiguracion::Instancia();
    session.conLocalCentro = &centro;
    session.conLocalBorradoCentro = &centro;
    session.conLocalAppEntrada = &entrada;
    session.SQLServer = false;
    session.Activa = true;
    User(1, 0);
    Application::Instance().UseScreen(&hands);
  }
  ~HandedOver() override {
    FormInstances::DropAll();
    Application::Instance().UseScreen(nullptr);
    auto& session = cConfiguracion::Instancia();
    session.conLocalCentro = session.conLocalBorradoCentro = session.conLocalAppEntrada = nullptr;
  }
  HandedOver(const HandedOver&) = delete;
  HandedOver& operator=(const HandedOver&) = delete;
  HandedOver(HandedOver&&) = delete;
  HandedOver& operator=(HandedOver&&) = delete;

 protected:
  static void User(int user, int profile) {
    cConfiguracion::Instancia().intIDUsuario = static_cast<std::int16_t>(user);
    cConfiguracion::Instancia().intIDPerfil = static_cast<std::int16_t>(profile);
  }

  static void Select(ComboBox& list, std::int32_t data) {
    for (int i = 0; i < list.ListCount(); ++i)
      if (list.ItemData(i) == data) return list.ListIndex(i);
    ADD_FAILURE() << list.Name() << " has no entry " << data;
  }

  template <class F>
  static void SelectSection(F& form, int evaluation) {
    Select(form.cboCursos, 32);
    Select(form.cboSecciones, 321);
    Select(form.cboEvaluaciones, evaluation);
  }

  /// A user who chooses section 321, that evaluation and an entry of the dialog's own list, if it
  /// has one, and goes on.
  template <class F>
  static std::function<void()> GoesOn(int evaluation) {
    return [evaluation] {
      auto& form = FormInstance<F>::Get();
      SelectSection(form, evaluation);
      if constexpr (requires { form.cboMateria; }) Select(form.cboMateria, 3111);
      if constexpr (requires { form.cboAlumno; }) Select(form.cboAlumno, 1);
      form.cmdNotaManual1[0].Press();
    };
  }

  PendingSchool school;
  TestConnection centro;
  TestConnection entrada;
  Hands hands;
};

}  // namespace quorvane::test

#include <QDate>
#include <gtest/gtest.h>
#include <tuple>

#include "apps/zendria/LabelShortener.h"
#include "apps/zendria/ZendriaCentroApi.h"
#include "frame/cConfiguracion.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/host/FrontEnd.h"
#include "platform/text/Utf8.h"

namespace quorvane::zendria {
namespace {

/// A screen on which every character is 100 twips wide.
class RulerScreen : public FrontEnd {
 public:
  void RunModal(Form& /*form*/) override {}
  void Message(MessageIcon /*icon*/, const std::string& /*title*/,
               const std::string& /*text*/) override {}
  void Beep() override {}
  void MousePointer(Pointer /*pointer*/) override {}
  std::int32_t TextWidth(const Form& /*form*/, const std::string& text) override {
    return static_cast<std::int32_t>(Utf8Length(text) * 100);
  }
  void DoEvents() override {}
  std::int32_t ScreenWidth() override { return 10'000; }
  std::int32_t ScreenHeight() override { return 10'000; }
};

class ShortenToWidthTest : public testing::Test {
 protected:
  ShortenToWidthTest() { label_.Width(1000); }

  void Shorten(const std::string& caption) {
    label_.Caption(caption);
    ShortenToWidth(label_, screen_);
  }

  RulerScreen screen_;
  Form form_{"frmPrueba"};
  Label label_{form_, "lblPrueba"};
};

TEST_F(ShortenToWidthTest, ALongCaptionIsCutWithoutABlankBeforeTheCutAndKeptInTheToolTip) {
  for (const auto& [caption, shown, toolTip] :
       {std::tuple{"0123456789", "0123456789", ""},
        std::tuple{"Núñez Íñiguez, Ana", "Núñez Í...", "Núñez Íñiguez, Ana"},
        std::tuple{"Gómez Peña, Íñigo", "Gómez P...", "Gómez Peña, Íñigo"},
        std::tuple{"Galvez Peña, Ana", "Galvez...", "Galvez Peña, Ana"}}) {
    Shorten(caption);
    // The second time it is short already.
    for (int time = 0; time < 2; ++time) {
      EXPECT_EQ(label_.Caption(), shown) << time;
      EXPECT_EQ(label_.ToolTipText(), toolTip) << time;
      ShortenToWidth(label_, screen_);
    }
  }
}

TEST_F(ShortenToWidthTest, AnotherShortCaptionLosesTheOldToolTip) {
  Shorten("Núñez Íñiguez, Ana");
  Shorten("Gil, Luis");
  EXPECT_EQ(label_.ToolTipText(), "");
}

TEST_F(ShortenToWidthTest, ALabelWithoutWidthIsLeftAlone) {
  label_.Width(0);
  Shorten("Gil, Luis");
  EXPECT_EQ(label_.Caption(), "Gil, Luis");
}

class MandatoryTest : public testing::Test {
 protected:
  void Mark() { ZendriaCentroApi().marcar_Obligatorios(form_); }

  Form form_{"frmPrueba"};
};

TEST_F(MandatoryTest, AListAndTheLabelToItsLeft) {
  Label heading(form_, "Label1");
  Label label(form_, "Label2");
  ComboBox list(form_, "cboCurso");
  heading.Caption("Datos");
  label.Caption("(*) Curso:");
  heading.Place(0, 0, 900, 200);
  label.Place(0, 340, 900, 200);
  list.Place(1000, 300, 2000, 300);
  Mark();
  EXPECT_TRUE(list.Mandatory());
  EXPECT_TRUE(label.Mandatory());
  EXPECT_FALSE(heading.Mandatory());
  EXPECT_EQ(label.Caption(), "(*) Curso:");
}

TEST_F(MandatoryTest, TheNearestLabelAboveWhereNoneStandsBeside) {
  Label far(form_, "Label1");
  Label near(form_, "Label2");
  Label below(form_, "Label3");
  ComboBox list(form_, "cboCurso");
  far.Place(0, 0, 900, 200);
  near.Place(0, 300, 900, 200);
  list.Place(0, 600, 2000, 300);
  below.Place(0, 1000, 900, 200);
  Mark();
  EXPECT_TRUE(near.Mandatory());
  EXPECT_FALSE(far.Mandatory());
  EXPECT_FALSE(below.Mandatory());
}

TEST_F(MandatoryTest, LabelsOfOtherFramesDoNotCount) {
  Frame frame(form_, "fraPrueba");
  Label outside(form_, "Label1");
  ComboBox list(form_, "cboCurso", &frame);
  outside.Place(0, 0, 900, 300);
  list.Place(1000, 0, 2000, 300);
  Mark();
  EXPECT_TRUE(list.Mandatory());
  EXPECT_FALSE(outside.Mandatory());
}

TEST(ZendriaCentroApiTest, OfASchoolInAFileTheDateIsThisMachines) {
  cConfiguracion::Instancia().conLocalCentro = nullptr;
  std::string source = "escuela.sqlite";
  EXPECT_EQ(ZendriaCentroApi().ObtenerHoraSistema(source),
            QDate::currentDate().toString("dd/MM/yyyy").toStdString());
}

}  // namespace
}  // namespace quorvane::zendria

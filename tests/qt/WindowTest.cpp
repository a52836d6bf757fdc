#include <QElapsedTimer>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "adapters/qt/views/Units.h"
#include "adapters/qt/window/BusySign.h"
#include "tests/qt/PruebaTest.h"

namespace quorvane::test {
namespace {

class WindowTest : public PruebaTest {
 protected:
  static QSize Inner(std::int32_t width, std::int32_t height) {
    return {qt::Pixels(width - Form::kBorderWidth), qt::Pixels(height - Form::kBorderHeight)};
  }
  /// The form lets nobody make it smaller.
  void InsistOn(std::int32_t width, std::int32_t height) {
    form->OnResize = [=, this] {
      if (form->Width() < width) form->Width(width);
      if (form->Height() < height) form->Height(height);
    };
  }
  static QScrollArea& Area(const qt::FormWindow& window) {
    return *window.findChild<QScrollArea*>();
  }
};

TEST_F(WindowTest, HasTheMeasuresTitleAndPlacesOfItsFormAndNoScrollBarWhereItFits) {
  Run([](qt::FormWindow& window) {
    EXPECT_FALSE(Area(window).verticalScrollBar()->isVisible());
    EXPECT_FALSE(Area(window).horizontalScrollBar()->isVisible());
    EXPECT_EQ(Area(window).viewport()->size(), window.size());
    EXPECT_EQ(window.windowTitle(), "Prueba de controles");
    EXPECT_EQ(window.size(), Inner(9840, 6120));
    EXPECT_EQ(Of(window, "msgRejilla")->geometry(),
              QRect(qt::Pixels(120), qt::Pixels(2520), qt::Pixels(4740), qt::Pixels(2400)));
    // The line that tells its keys stands in the room of the grid.
    const auto* hint = window.findChild<QLabel*>("pistaTeclas");
    EXPECT_EQ(Of(window, "rtvNotas")->geometry() | hint->geometry(),
              QRect(qt::Pixels(4980), qt::Pixels(2520), qt::Pixels(4620), qt::Pixels(2400)));
    EXPECT_FALSE(Of(window, "rtvNotas")->geometry().intersects(hint->geometry()));
    EXPECT_GE(hint->height(), hint->heightForWidth(hint->width()));
  });
}

TEST_F(WindowTest, WhereItsGridHasNoRoomForThemTheKeysAreToldOverIt) {
  Run([this](qt::FormWindow& window) {
    const auto& grid = *Of(window, "rtvNotas");
    const auto* const hint = window.findChild<QLabel*>("pistaTeclas");
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(grid.toolTip(), "");
    EXPECT_EQ(grid.accessibleDescription(), hint->text());
    form->rtvNotas.Height(1500);
    window.Sync();
    EXPECT_FALSE(hint->isVisible());
    EXPECT_EQ(grid.toolTip(), hint->text());
    EXPECT_EQ(grid.accessibleDescription(), hint->text());
    form->rtvNotas.Height(2400);
    window.Sync();
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(grid.toolTip(), "");
  });
}

TEST_F(WindowTest, TheUsersSizeReachesTheForm) {
  auto resized = 0;
  form->OnResize = [&resized] { ++resized; };
  Run([this, &resized](qt::FormWindow& window) {
    const auto before = resized;
    window.resize(700, 500);
    EXPECT_EQ(form->Width(), qt::Twips(700) + Form::kBorderWidth);
    EXPECT_EQ(form->Height(), qt::Twips(500) + Form::kBorderHeight);
    EXPECT_EQ(resized, before + 1);
    EXPECT_EQ(window.size(), QSize(700, 500));
  });
}

TEST_F(WindowTest, AFormThatSetsItsSizeBackIsObeyed) {
  InsistOn(9300, 6465);
  Run([](qt::FormWindow& window) {
    EXPECT_EQ(window.size(), Inner(9840, 6465));
    window.resize(300, 800);
    EXPECT_EQ(window.width(), Inner(9300, 0).width());
    EXPECT_EQ(window.height(), 800);
    window.resize(900, 100);
    EXPECT_EQ(window.size(), QSize(900, Inner(0, 6465).height()));
  });
}

// A large font on a small screen leaves no room for the measures that a form insists on.
TEST_F(WindowTest, AFormGreaterThanTheScreenScrolls) {
  form->Width(24'000);
  form->Height(20'000);
  form->cmdAceptar.Place(22'000, 19'000, 1335, 375);
  InsistOn(24'000, 20'000);
  Run([this](qt::FormWindow& window) {
    const auto whole = window.screen()->availableGeometry();
    EXPECT_TRUE(whole.contains(window.geometry()));
    const auto sees = [&window](const char* control) {
      return Of(window, control)->visibleRegion().boundingRect().size() ==
             Of(window, control)->size();
    };
    EXPECT_TRUE(sees("cboCurso"));
    EXPECT_FALSE(sees("cmdAceptar"));
    for (auto* const bar : {Area(window).horizontalScrollBar(), Area(window).verticalScrollBar()}) {
      EXPECT_TRUE(bar->isVisible());
      bar->setValue(bar->maximum());
    }
    EXPECT_TRUE(sees("cmdAceptar")) << "with the mouse";

    for (const auto* const control : {"cmdAceptar", "cboCurso"}) Of(window, control)->setFocus();
    EXPECT_TRUE(sees("cboCurso")) << "with the keyboard";
    // Tab goes from cell to cell where grades are entered, and stays at the last.
    for (int steps = 0; steps < 40 && window.focusWidget() != Of(window, "cmdAceptar"); ++steps) {
      auto* const at = window.focusWidget();
      const auto grades = at->objectName().startsWith("rtv");
      QTest::keyClick(at, Qt::Key_Tab, grades ? Qt::ControlModifier : Qt::NoModifier);
    }
    EXPECT_TRUE(sees("cmdAceptar"));

    window.resize(400, 300);
    EXPECT_TRUE(whole.contains(window.geometry()));
    EXPECT_GT(window.width(), whole.width() * 9 / 10) << "the form insists";
    EXPECT_EQ(form->Width(), 24'000);
    EXPECT_EQ(form->Height(), 20'000);
  });
}

TEST_F(WindowTest, AFormTooTallAloneIsAsWideAsItIsDrawnBesideItsScrollBar) {
  form->Width(6000);
  form->Height(20'000);
  InsistOn(0, 20'000);
  Run([this](qt::FormWindow& window) {
    EXPECT_TRUE(Area(window).verticalScrollBar()->isVisible());
    EXPECT_FALSE(Area(window).horizontalScrollBar()->isVisible());
    EXPECT_EQ(Area(window).viewport()->width(), Inner(6000, 0).width());
    window.resize(600, window.height());
    EXPECT_EQ(window.width(), 600);
    EXPECT_EQ(qt::Pixels(form->ScaleWidth()), Area(window).viewport()->width());
    EXPECT_EQ(form->Height(), 20'000);
  });
}

TEST_F(WindowTest, ShrinksToTheBusyBoxAndComesBack) {
  form->cmdPagina.Click = [this] {
    for (auto* control : form->Controls()) control->Visible(false);
    form->Enabled(false);
    form->aniCarga.Play();
    form->aniCarga.Visible(true);
    form->fraCarga.Visible(true);
    form->fraCarga.ToFront();
    Work([this](auto& window) {
      EXPECT_EQ(window.size(), Inner(4000, 2500));
      EXPECT_TRUE(Of(window, "aniCarga")->isVisible());
      EXPECT_FALSE(Of(window, "rtvNotas")->isVisible());
      Click("cmdCancelar")(window);  // nothing comes of it
      form->aniCarga.Stop();
      for (auto* control : form->Controls()) control->Visible(true);
      form->fraCarga.Visible(false);
    });
    form->Enabled(true);
    form->Log("hecho");
  };
  Run([this](qt::FormWindow& window) {
    const auto before = window.geometry();
    Click("cmdPagina")(window);
    EXPECT_THAT(form->log, ElementsAre("hecho"));
    EXPECT_EQ(window.geometry(), before);
  });
}

TEST_F(WindowTest, ADisabledFormTakesNothing) {
  form->Enabled(false);
  Then("chkTodo", Key("cboCurso", Qt::Key_Down), Key("cboCurso", Qt::Key_Escape),
       [this](auto& window) {
         window.close();
         EXPECT_TRUE(form->Visible());
         EXPECT_TRUE(form->log.empty());
         form->Enabled(true);
         window.close();
       });
  form->ShowModal();
  EXPECT_THAT(form->log, ElementsAre("descarga"));
}

TEST_F(WindowTest, TheFormHearsTheClassicKeyCodesOnceEach) {
  std::vector<int> keys;
  form->OnKey = [&keys](int& key) { keys.push_back(key); };
  Run([](qt::FormWindow& window) {
    // Left alone by the button, these climb to the window.
    Of(window, "cmdPagina")->setFocus();
    for (const auto key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_PageUp,
                           Qt::Key_A, Qt::Key_5, Qt::Key_F1, Qt::Key_Delete})
      QTest::keyClick(window.focusWidget(), key);
  });
  EXPECT_THAT(keys, ElementsAre(38, 40, 37, 39, 33, 65, 53, 112, 46));
}

TEST_F(WindowTest, AKeyThatTheFormTakesReachesNoControl) {
  form->OnKey = [](int& key) {
    if (key == 40 || key == 38) key = 0;
  };
  Run(Key("cboCurso", Qt::Key_Down), [this](auto&) { EXPECT_EQ(form->cboCurso.ListIndex(), -1); });
}

TEST_F(WindowTest, TextsAreMeasuredInTwips) {
  const auto one = form->TextWidth("Sobresaliente");
  EXPECT_GT(one, 600);
  EXPECT_LT(one, 2400);
  EXPECT_GT(form->TextWidth("Sobresaliente   "), one);
  EXPECT_EQ(form->TextWidth(""), 0);
  EXPECT_GT(screen.ScreenWidth(), screen.ScreenHeight() / 2);
}

// The toolkit's own sum of so many letters overflows, and may even be negative.
TEST_F(WindowTest, ATextOfAnyLengthIsMeasuredByItsBeginning) {
  const auto longest = form->TextWidth(std::string(20'000, 'W'));
  EXPECT_GT(longest, 20'000 * form->TextWidth("W") / 2);
  EXPECT_EQ(form->TextWidth(std::string(18'000'000, 'W')), longest);
}

TEST_F(WindowTest, LongWorkGetsTheHourglassUntilTheUserIsToAct) {
  const auto hourglass = [] { return QApplication::overrideCursor() != nullptr; };
  const auto work = [this, &hourglass] {
    EXPECT_FALSE(hourglass());
    EXPECT_TRUE(QTest::qWaitFor([this, &hourglass] {
      screen.Pulse();
      return hourglass();
    }));
  };
  screen.MessageShown = [&hourglass](QMessageBox& box) {
    EXPECT_FALSE(hourglass());
    box.accept();
  };
  form->cmdPagina.Click = [this, &work] {
    work();
    screen.Message(MessageIcon::Information, "Zendria Escuela", "A medias");
    work();
  };
  Run("cmdPagina", [&hourglass](auto&) { EXPECT_FALSE(hourglass()); });
}

TEST_F(WindowTest, TheBusySignMovesDuringLongWorkAndNobodyActs) {
  constexpr qint64 kLongEnough = 20000;  // milliseconds
  EventCounter paints(QEvent::Paint);
  form->cmdPagina.Click = [this, &paints] {
    form->fraCarga.Visible(true);
    form->aniCarga.Play();
    screen.DoEvents();
    auto& window = *screen.ActiveWindow();
    Of(window, "aniCarga")->installEventFilter(&paints);
    QElapsedTimer time;
    time.start();
    while (paints.count < 4 && time.elapsed() < kLongEnough) screen.Pulse();
    ClickSquare("chkTodo")(window);
    form->aniCarga.Stop();
  };
  Run("cmdPagina",
      [](auto& window) { EXPECT_EQ(Of<qt::BusySign>(window, "aniCarga")->Leader(), 0); });
  EXPECT_GE(paints.count, 4);
  EXPECT_EQ(form->chkTodo.Value(), 0);
}

}  // namespace
}  // namespace quorvane::test

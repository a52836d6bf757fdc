#include <QCoreApplication>
#include <QTranslator>
#include <gtest/gtest.h>

#include "apps/zendria/SpanishTexts.h"

namespace quorvane::test {
namespace {

QString FileDialogs(const char* text) { return QCoreApplication::translate("QFileDialog", text); }

TEST(SpanishTextsTest, TheToolkitsOwnDialogsSpeakSpanish) {
  ASSERT_EQ(FileDialogs("Look in:").toStdString(), "Look in:");
  ASSERT_TRUE(zendria::UseSpanishTexts());
  EXPECT_EQ(FileDialogs("Look in:").toStdString(), "Ver en:");
  EXPECT_EQ(FileDialogs("File &name:").toStdString(), "&Nombre de fichero:");
  for (auto* const texts : QCoreApplication::instance()->findChildren<QTranslator*>())
    QCoreApplication::removeTranslator(texts);
}

}  // namespace
}  // namespace quorvane::test

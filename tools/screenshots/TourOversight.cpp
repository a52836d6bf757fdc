#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTextEdit>

#include "adapters/sqlite/SqliteConnection.h"
#include "apps/escuela/history/GradeHistory.h"
#include "apps/escuela/report/ReportReader.h"
#include "apps/escuela/report/ReportText.h"
#include "apps/zendria/ImportDialog.h"
#include "apps/zendria/ReportDialog.h"
#include "apps/zendria/StateDialog.h"
#include "tools/screenshots/Tour.h"

namespace quorvane::screenshots {
namespace {

constexpr auto kSection = "3º ESO A";
constexpr auto kSectionNumber = 5;
constexpr auto kSubject = 20;  // mathematics, that two have pending
constexpr QSize kPage(1040, 420);

}  // namespace

void Tour::TakePage(const char* name, const QString& title, const std::string& html) {
  QTextEdit page;
  page.setWindowTitle(title);
  page.setHtml(QString::fromStdString(html));
  page.resize(kPage);
  page.show();
  QApplication::processEvents();
  camera_.Take(name, page);
  page.close();
}

void Tour::Oversight() {
  const auto show = [this](const char* action) { window_.findChild<QAction*>(action)->trigger(); };
  guide_.OnDialog("estado", [this](QWidget& dialog) {
    auto& tree = dynamic_cast<zendria::StateDialog&>(dialog).Tree();
    auto* const second = tree.topLevelItem(1);
    tree.topLevelItem(0)->setExpanded(false);
    for (int i = 0; i < second->childCount(); ++i)
      if (second->child(i)->text(0) == kSection) second->child(i)->setExpanded(true);
    // The scroll bars come with the rows' own turn.
    tree.doItemsLayout();
    camera_.Take("estado", dialog);
    dialog.close();
  });
  show("estadoEvaluacion");

  sqlite::SqliteConnection school(school_.toStdString(), "");
  school.Open();
  GradeHistory(school).Activate();
  for (const auto* const change :
       {"UPDATE EvaluacionPte SET CodNota=6 WHERE IDEvaluacionPte=3",
        "INSERT INTO BloqueoPte SELECT 0,3,CodMatDet,4,900 FROM AlumnoPte_MatDet WHERE "
        "IDAlumnoPte_MatDet=2",
        "UPDATE EvaluacionPte SET CodNota=7,CodNotaActitud=22 WHERE CodAlumnoPte_MatDet=2 AND "
        "CodNumEvaluacion=3",
        "DELETE FROM BloqueoPte WHERE CodPublicacion=900"})
    school.Execute(change);
  guide_.OnDialog("historial", [this](QWidget& dialog) {
    camera_.Take("historial", dialog);
    dialog.close();
  });
  show("historialNotas");

  guide_.OnDialog("informe", [this](QWidget& dialog) {
    auto& sections = dynamic_cast<zendria::ReportDialog&>(dialog).Sections();
    sections.setCurrentIndex(sections.findText(kSection));
    camera_.Take("informe", dialog);
    dialog.close();
  });
  show("informePendientes");
  const ReportReader reader(school, "IES Ejemplo", "03/03/2025");
  TakePage("informe-hoja", "Una hoja del informe", ReportHtml(reader.Section(kSectionNumber)));
  TakePage("informe-en-blanco", "Una hoja en blanco", BlankSheetHtml(reader.Subject(kSubject)));

  guide_.OnDialog("importar", [this](QWidget& dialog) {
    QFile file(QFileInfo(school_).dir().filePath("pendientes.csv"));
    if (file.open(QIODevice::WriteOnly))
      file.write(
          "alumno;sección;materia;curso;evaluaciones;profesor\n"
          "\"Gómez Martín, Enzo\";3º ESO A;Matemáticas;2º ESO B;todas;\n"
          "\"García Castro, Noa\";3º ESO B;Música;2º ESO B;1ª Evaluación + 2ª Evaluación;\n"
          "\"Martín Ramos, Bruno\";3º ESO A;Música;2º ESO;todas;\n");
    file.close();
    dynamic_cast<zendria::ImportDialog&>(dialog).Choose(file.fileName());
    camera_.Take("importar", dialog);
    dialog.close();
  });
  show("importarRegistro");
}

}  // namespace quorvane::screenshots

#include "apps/zendria/SectionPdfs.h"

#include <QFileInfo>
#include <QStringList>

#include "apps/escuela/Refusal.h"
#include "apps/zendria/FailureBox.h"
#include "apps/zendria/ReportPaper.h"
#include "apps/zendria/SchoolError.h"
#include "apps/zendria/StoppableWork.h"

namespace quorvane::zendria {
bool WithSectionBar(QWidget* parent,
                    const std::function<void(const SectionProgress& progress)>& work) {
  return StoppableWork::Do({parent, "Informe de pendientes", "Preparando las secciones…"}, work) ==
         WorkEnd::Done;
}

void TellFailedSections(QWidget* parent, const SectionRun& run) {
  if (run.failed.empty()) return;
  QStringList names;
  QStringList reasons;
  for (const auto& [name, reason] : run.failed) {
    names.append(QString::fromStdString(name));
    reasons.append(names.back() + ": " + QString::fromStdString(reason));
  }
  const QString others = run.Made() > 0 ? ". Las demás secciones están hechas." : ".";
  ShowSchoolError(parent,
                  SchoolError("No se han podido hacer: " + names.join(", ") + others, reasons));
}

SectionRun WriteSectionPdfs(QWidget* parent, const ReportReader& reader, const QString& folder,
                            const std::function<QString(const SectionReport& report)>& html) {
  SectionRun run;
  WithSectionBar(parent, [&](const auto& progress) {
    run = WriteSections(
        reader, folder.toStdString(), ".pdf",
        [&](const auto& name, const auto& report) {
          const auto file = QString::fromStdString(name);
          if (const QFileInfo there(file); there.exists() || there.isSymLink())
            RefuseToWrite(file.toStdString(), "el archivo ya existe");
          if (WriteReportPdf(file, html(report)) == 0)
            RefuseToWrite(
                file.toStdString(),
                "compruebe que puede escribir en la carpeta y que queda espacio en el disco");
        },
        progress);
  });
  TellFailedSections(parent, run);
  return run;
}

}  // namespace quorvane::zendria

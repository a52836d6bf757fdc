#pragma once

#include <QString>
#include <functional>

#include "apps/escuela/report/SectionFiles.h"

class QWidget;

namespace quorvane::zendria {

/// All sections with a bar that the user may stop them by. Whether they came to their end, as
/// `work`, which is given what to tell how far it is, leaves it; errors are told.
bool WithSectionBar(QWidget* parent,
                    const std::function<void(const SectionProgress& progress)>& work);

/// Tells which sections couldn't be made, by name and reason. Nothing where all could.
void TellFailedSections(QWidget* parent, const SectionRun& run);

/// Every section into a new PDF of its own in `folder`, as `html` lays it out. Where the user stops
/// it, nothing that was written stays, and there are no sections.
SectionRun WriteSectionPdfs(QWidget* parent, const ReportReader& reader, const QString& folder,
                            const std::function<QString(const SectionReport& report)>& html);

}  // namespace quorvane::zendria

// SPDX-License-Identifier: MIT
#include "RunTitles.h"

#include "Run.h"

#include <VisibleText.h>

QString RunTitles::next(const Run& run)
{
    QString model = suite::visibleFileName(run.model());
    model.replace(QLatin1String("[*]"), QLatin1String("[*][*]")); // Qt's sign for changes
    const QString component = QStringLiteral(" - ") + run.componentName();
    const int number = ++m_counts[model + component];
    return number == 1 ? model + component
                       : model + QStringLiteral(" (%1)").arg(number) + component;
}

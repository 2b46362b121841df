#include "UnreadableModel.h"

#include <FileName.h>
#include <VisibleText.h>

QString UnreadableModel::text(const QString& path)
{
    const QString problem = suite::FileName::problem(path);
    return problem.isEmpty() ? QStringLiteral("There is no model that can be read at\n%1.")
                                   .arg(suite::visiblePath(path))
                             : QStringLiteral("The model\n%1\ncannot be opened: %2.")
                                   .arg(suite::visiblePath(path), problem);
}

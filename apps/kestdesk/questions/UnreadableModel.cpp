#include "UnreadableModel.h"

#include <FileName.h>
#include <VisibleText.h>

QString UnreadableModel::text(const QString& path, const QString& hint)
{
    const QString absolute = suite::FileName::absolute(path);
    const QString problem = suite::FileName::problem(absolute);
    const QString text = problem.isEmpty()
                             ? QStringLiteral("There is no model that can be read at\n%1.")
                                   .arg(suite::visiblePath(absolute))
                             : QStringLiteral("The model\n%1\ncannot be opened: %2.")
                                   .arg(suite::visiblePath(absolute), problem);
    return hint.isEmpty() ? text : text + QStringLiteral("\n\n") + hint;
}

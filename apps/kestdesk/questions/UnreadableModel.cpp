// SPDX-License-Identifier: MIT
#include "UnreadableModel.h"

#include <FileName.h>
#include <VisibleText.h>

#include <QCoreApplication>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(UnreadableModel)
};

} // namespace

QString UnreadableModel::text(const QString& path, const QString& hint)
{
    const QString absolute = suite::FileName::absolute(path);
    const QString problem = suite::FileName::problem(absolute);
    const QString text = problem.isEmpty() ? Texts::tr("There is no model that can be read at\n%1.")
                                                 .arg(suite::visiblePath(absolute))
                                           : Texts::tr("The model\n%1\ncannot be opened: %2.")
                                                 .arg(suite::visiblePath(absolute), problem);
    return hint.isEmpty() ? text : text + QStringLiteral("\n\n") + hint;
}

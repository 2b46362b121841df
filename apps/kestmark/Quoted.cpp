// SPDX-License-Identifier: MIT
#include "Quoted.h"

#include <VisibleText.h>

#include <QCoreApplication>

namespace {

constexpr int longestText = 60;

}

QString quoted(const QString& text)
{
    const QString trimmed = text.trimmed();
    const QString end = trimmed.size() > longestText ? QStringLiteral("...") : QString();
    return QCoreApplication::translate("Quoted", "\"%1%2\"")
        .arg(suite::visibleText(trimmed.left(longestText)), end);
}

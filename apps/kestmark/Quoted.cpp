#include "Quoted.h"

#include <VisibleText.h>

namespace {

constexpr int longestText = 60;

}

QString quoted(const QString& text)
{
    const QString trimmed = text.trimmed();
    const QString end = trimmed.size() > longestText ? QStringLiteral("...") : QString();
    return QStringLiteral("\"%1%2\"").arg(suite::visibleText(trimmed.left(longestText)), end);
}

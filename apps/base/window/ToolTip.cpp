// SPDX-License-Identifier: MIT
#include "ToolTip.h"

#include <VisibleText.h>

#include <QTextDocument>

QString ToolTip::of(const QString& text)
{
    const QString shown = suite::visibleLines(text);
    return Qt::mightBeRichText(shown) ? Qt::convertFromPlainText(shown) : shown;
}

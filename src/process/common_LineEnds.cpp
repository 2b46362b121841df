#include "common_LineEnds.h"

#include <QString>

#include <algorithm>

namespace {

bool isLineEnd(QChar character)
{
    return character == QLatin1Char('\n') || character == QLatin1Char('\r');
}

} // namespace

QString common_withoutLineEnds(const QString& text)
{
    const auto firstEnd = std::find_if(text.cbegin(), text.cend(), isLineEnd);
    QString result = text.left(static_cast<int>(firstEnd - text.cbegin()));
    std::copy_if(firstEnd, text.cend(), std::back_inserter(result),
                 [](QChar character) { return !isLineEnd(character); });
    return result;
}

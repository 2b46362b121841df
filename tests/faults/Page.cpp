#include "Page.h"

#include <QFile>
#include <QSaveFile>

#include <cstdio>

bool putBetweenMarks(const QString& page, const QString& text)
{
    const QByteArray begin = "<!-- FAULTS -->\n";
    const QByteArray end = "<!-- end -->";
    QFile file(page);
    const QByteArray before = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const int from = before.indexOf(begin);
    const int to = before.indexOf(end, from);
    if (from < 0 || to < 0) {
        std::fprintf(stderr, "%s has no place for the faults\n", qPrintable(page));
        return false;
    }
    QSaveFile changed(page);
    const bool isWritten =
        changed.open(QIODevice::WriteOnly) &&
        changed.write(before.left(from + begin.size()) + text.toUtf8() + before.mid(to)) >= 0 &&
        changed.commit();
    if (!isWritten) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(page), qPrintable(changed.errorString()));
    }
    return isWritten;
}

// SPDX-License-Identifier: MIT
#include "OpenDialog.h"

#include <FileName.h>
#include <VisibleText.h>

#include <common_UserQuery.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QUrl>

namespace {

constexpr int mostNamed = 10;

QStringList patternsOf(const QString& filter)
{
    return filter.section(QLatin1Char('('), 1)
        .section(QLatin1Char(')'), 0, 0)
        .split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QStringList unlistedFiles(const QFileDialog& dialog)
{
    QStringList result;
    const QStringList names = suite::FileName::unusableIn(dialog.directory().absolutePath());
    for (const QString& name : names) {
        const QString shown = suite::visibleText(name);
        if (QDir::match(patternsOf(dialog.selectedNameFilter()), shown)) {
            result.append(shown);
        }
    }
    return result;
}

void reportUnlisted(const QFileDialog& dialog, QWidget* parent)
{
    const QStringList names = unlistedFiles(dialog);
    if (names.isEmpty()) {
        return;
    }
    QStringList lines = names.mid(0, mostNamed);
    if (names.size() > lines.size()) {
        lines.append(QCoreApplication::translate("OpenDialog", "and %1 more")
                         .arg(names.size() - lines.size()));
    }
    common_UserQuery(QCoreApplication::translate("OpenDialog", "Files that are not listed"),
                     QCoreApplication::translate(
                         "OpenDialog",
                         "Files in\n%1\nwere not listed, because their names are not UTF-8; rename "
                         "them to open them:\n%2")
                         .arg(suite::visiblePath(dialog.directory().absolutePath()),
                              lines.join(QLatin1Char('\n'))),
                     common_UserQuery::Information, parent, QString())
        .display();
}

QStringList choose(QFileDialog& dialog, QWidget* parent)
{
    QStringList result;
    if (dialog.exec() != QDialog::Accepted) {
        reportUnlisted(dialog, parent);
        return result;
    }
    const QList<QUrl> urls = dialog.selectedUrls();
    for (const QUrl& url : urls) {
        result.append(suite::FileName::fromUrl(url));
    }
    return result;
}

} // namespace

QString OpenDialog::file(QWidget* parent, const QString& title, const QString& folder,
                         const QString& filter)
{
    QFileDialog dialog(parent, title, folder, filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return choose(dialog, parent).value(0);
}

QStringList OpenDialog::files(QWidget* parent, const QString& title, const QString& folder,
                              const QString& filter)
{
    QFileDialog dialog(parent, title, folder, filter);
    dialog.setFileMode(QFileDialog::ExistingFiles);
    return choose(dialog, parent);
}

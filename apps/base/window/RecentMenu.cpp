#include "RecentMenu.h"

#include <VisibleText.h>

#include <common_recent_file_settings.h>

RecentMenu::RecentMenu(QWidget* parent, common_recent_file_settings* settings)
    : QMenu(QStringLiteral("Open &recent"), parent), m_settings(settings)
{
    setObjectName(QStringLiteral("recentMenu"));
    connect(this, &QMenu::aboutToShow, this, &RecentMenu::list);
}

void RecentMenu::addFile(const QString& path)
{
    m_settings->addRecentFile(path);
}

void RecentMenu::list()
{
    clear();
    const QStringList files = m_settings->recentFiles();
    int number = 0;
    for (const QString& file : files) {
        QString shown = suite::visiblePath(file);
        shown.replace(QLatin1Char('&'), QStringLiteral("&&"));
        addAction(QStringLiteral("&%1 %2").arg(QString::number(++number), shown), this,
                  [this, file] { Q_EMIT fileChosen(file); });
    }
    if (files.isEmpty()) {
        addAction(QStringLiteral("No recent files"))->setEnabled(false);
    }
}

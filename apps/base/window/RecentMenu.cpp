// SPDX-License-Identifier: MIT
#include "RecentMenu.h"

#include "ToolTip.h"

#include <VisibleText.h>

#include <common_recent_file_settings.h>

#include <algorithm>
#include <iterator>

namespace {

// clang-format off
const struct { FileProbe::Answer answer; const char* reason; } obstacles[] = {
    {FileProbe::Answer::Unreadable, QT_TRANSLATE_NOOP("RecentMenu", "There is no such file any more, or it cannot be read")},
    {FileProbe::Answer::None,       QT_TRANSLATE_NOOP("RecentMenu", "Its folder does not answer; the network may be gone")},
};
// clang-format on

// Empty where the file can be opened.
QString obstacle(FileProbe::Answer answer)
{
    const auto* row = std::find_if(std::begin(obstacles), std::end(obstacles),
                                   [answer](const auto& each) { return each.answer == answer; });
    return row == std::end(obstacles) ? QString() : RecentMenu::tr(row->reason);
}

} // namespace

RecentMenu::RecentMenu(QWidget* parent, common_recent_file_settings* settings)
    : QMenu(tr("Open &recent"), parent), m_settings(settings)
{
    setObjectName(QStringLiteral("recentMenu"));
    setToolTipsVisible(true);
    m_thread.setMaxThreadCount(1);
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
        QAction* const entry =
            addAction(QStringLiteral("&%1 %2").arg(QString::number(++number), shown), this,
                      [this, file] { Q_EMIT fileChosen(file); });
        entry->setData(file);
        updateEntry(*entry);
    }
    if (files.isEmpty()) {
        addAction(tr("No recent files"))->setEnabled(false);
        return;
    }
    check(files);
}

void RecentMenu::check(const QStringList& files)
{
    if (m_isChecking) {
        return;
    }
    m_isChecking = true;
    m_thread.start([this, files] {
        Answers answers;
        FileProbe probe;
        for (const QString& file : files) {
            answers.insert(file, probe.ask(file));
        }
        QMetaObject::invokeMethod(this, [this, answers] { showAnswers(answers); });
    });
}

void RecentMenu::showAnswers(const Answers& answers)
{
    m_isChecking = false;
    m_answers = answers;
    const QList<QAction*> entries = actions();
    for (QAction* const entry : entries) {
        if (entry->data().isValid()) {
            updateEntry(*entry);
        }
    }
}

// One that is not known yet can be chosen: to open it says what is wrong.
void RecentMenu::updateEntry(QAction& entry) const
{
    const QString file = entry.data().toString();
    const QString reason = obstacle(m_answers.value(file, FileProbe::Answer::Readable));
    entry.setEnabled(reason.isEmpty());
    entry.setToolTip(ToolTip::of(reason.isEmpty() ? file : reason));
}

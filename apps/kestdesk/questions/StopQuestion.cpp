// SPDX-License-Identifier: MIT
#include "StopQuestion.h"

#include "KestdeskSettings.h"
#include "Run.h"
#include "RunForecast.h"

#include <VisibleText.h>

#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

constexpr int mostNamed = 5;
constexpr int millisecondsPerSecond = 1000;

struct DeedRow
{
    StopQuestion::Deed deed;
    const char* title;
    const char* oneRun;   ///< %1 is the run
    const char* someRuns; ///< %1 is their number; their names follow
    const char* button;
};

// clang-format off
const DeedRow deedRows[] = {
    {StopQuestion::Deed::Stop,     QT_TRANSLATE_NOOP("StopQuestion", "Stop a run"),           QT_TRANSLATE_NOOP("StopQuestion", "Stop %1?"),                                          QT_TRANSLATE_NOOP("StopQuestion", "Stop these %1 runs?"),                                                   QT_TRANSLATE_NOOP("StopQuestion", "&Stop")},
    {StopQuestion::Deed::StopAll,  QT_TRANSLATE_NOOP("StopQuestion", "Runs are still going"), QT_TRANSLATE_NOOP("StopQuestion", "Stop %1, and quit?"),                                QT_TRANSLATE_NOOP("StopQuestion", "Stop these %1 runs, and quit?"),                                         QT_TRANSLATE_NOOP("StopQuestion", "&Stop and quit")},
    {StopQuestion::Deed::ForceAll, QT_TRANSLATE_NOOP("StopQuestion", "Runs are still going"), QT_TRANSLATE_NOOP("StopQuestion", "%1, has not stopped yet. End it by force and quit?"), QT_TRANSLATE_NOOP("StopQuestion", "These %1 runs have not stopped yet. End them by force and quit?"), QT_TRANSLATE_NOOP("StopQuestion", "&End by force")},
};
// clang-format on

const DeedRow& rowOf(StopQuestion::Deed deed)
{
    return *std::find_if(std::begin(deedRows), std::end(deedRows),
                         [deed](const DeedRow& row) { return row.deed == deed; });
}

// "long.nec, 41 %, about 3:40 left", without the time where it is not known.
QString nameOf(const StopQuestion::Subject& subject)
{
    QStringList parts = {suite::visibleFileName(subject.run->model()),
                         QStringLiteral("%1 %").arg(subject.run->totalPercentage())};
    if (subject.forecast && !subject.forecast->text().isEmpty()) {
        parts.append(subject.forecast->text());
    }
    return parts.join(QStringLiteral(", "));
}

QString textOf(const DeedRow& row, const QVector<StopQuestion::Subject>& runs)
{
    if (runs.size() == 1) {
        return StopQuestion::tr(row.oneRun).replace(QLatin1String("%1"), nameOf(runs.first()));
    }
    QStringList lines = {StopQuestion::tr(row.someRuns).arg(runs.size()), QString()};
    const auto named = runs.mid(0, mostNamed);
    for (const StopQuestion::Subject& run : named) {
        lines.append(nameOf(run));
    }
    if (runs.size() > mostNamed) {
        lines.append(StopQuestion::tr("and %1 more").arg(runs.size() - mostNamed));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

StopQuestion::Answer StopQuestion::ask(Deed deed, const QVector<Subject>& runs, QWidget* window)
{
    StopQuestion question(deed, runs, window);
    return question.answer();
}

bool StopQuestion::isWanted(const Run& run, const KestdeskSettings& settings)
{
    return settings.asksBeforeStopping() && run.state() == Run::State::Running &&
           run.elapsed() >= qint64(settings.secondsUntilAsking()) * millisecondsPerSecond;
}

StopQuestion::StopQuestion(Deed deed, QVector<Subject> runs, QWidget* window)
    : m_deed(deed)
    , m_runs(std::move(runs))
    , m_box(new QMessageBox(QMessageBox::Warning, tr(rowOf(deed).title), QString(),
                            QMessageBox::NoButton, window))
{
    m_box->setObjectName(QStringLiteral("stopQuestion"));
    m_box->setTextFormat(Qt::PlainText); // contains names of files
    addButtons();
    for (const Subject& subject : qAsConst(m_runs)) {
        connect(subject.run, &Run::stateChanged, this, &StopQuestion::update);
        connect(subject.run, &Run::progressed, this, &StopQuestion::update);
        connect(subject.forecast, &RunForecast::changed, this, &StopQuestion::update);
    }
}

void StopQuestion::addButtons()
{
    m_stop = m_box->addButton(tr(rowOf(m_deed).button), QMessageBox::YesRole);
    QPushButton* const keep = m_box->addButton(tr("&Keep running"), QMessageBox::NoRole);
    m_box->setDefaultButton(keep);
    m_box->setEscapeButton(keep);
}

StopQuestion::Answer StopQuestion::answer()
{
    update();
    if (!runningRuns().isEmpty()) {
        m_box->exec();
    }
    if (!m_box) {
        return Answer::Keep;
    }
    const bool isStopped = m_box->clickedButton() == m_stop;
    delete m_box;
    if (runningRuns().isEmpty()) {
        return Answer::Ended;
    }
    return isStopped ? Answer::Stop : Answer::Keep;
}

void StopQuestion::update()
{
    const QVector<Subject> runs = runningRuns();
    if (!m_box) {
        return;
    }
    if (runs.isEmpty()) {
        m_box->done(0);
        return;
    }
    m_box->setText(textOf(rowOf(m_deed), runs));
}

QVector<StopQuestion::Subject> StopQuestion::runningRuns() const
{
    QVector<Subject> result;
    std::copy_if(m_runs.cbegin(), m_runs.cend(), std::back_inserter(result),
                 [](const Subject& subject) { return subject.run && subject.run->isRunning(); });
    return result;
}

#include "StopQuestion.h"

#include "KestdeskSettings.h"
#include "Run.h"

#include <VisibleText.h>

#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

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
    {StopQuestion::Deed::Stop,     "Stop a run",           "Stop %1?",                                          "Stop these %1 runs?",                                                   "&Stop"},
    {StopQuestion::Deed::StopAll,  "Runs are still going", "Stop %1, and quit?",                                "Stop these %1 runs, and quit?",                                         "&Stop and quit"},
    {StopQuestion::Deed::ForceAll, "Runs are still going", "%1, has not stopped yet. End it by force and quit?", "These %1 runs have not stopped yet. End them by force and quit?", "&End by force"},
};
// clang-format on

const DeedRow& rowOf(StopQuestion::Deed deed)
{
    return *std::find_if(std::begin(deedRows), std::end(deedRows),
                         [deed](const DeedRow& row) { return row.deed == deed; });
}

QString nameOf(const Run& run)
{
    return QStringLiteral("%1, %2 %")
        .arg(suite::visibleFileName(run.model()), QString::number(run.totalPercentage()));
}

QString textOf(const DeedRow& row, const QVector<const Run*>& runs)
{
    if (runs.size() == 1) {
        return QString(QLatin1String(row.oneRun))
            .replace(QLatin1String("%1"), nameOf(*runs.first()));
    }
    QStringList lines = {QString(QLatin1String(row.someRuns)).arg(runs.size()), QString()};
    for (const Run* const run : runs.mid(0, mostNamed)) {
        lines.append(nameOf(*run));
    }
    if (runs.size() > mostNamed) {
        lines.append(QStringLiteral("and %1 more").arg(runs.size() - mostNamed));
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

StopQuestion::Answer StopQuestion::ask(Deed deed, const QVector<Run*>& runs, QWidget* window)
{
    StopQuestion question(deed, runs, window);
    return question.answer();
}

bool StopQuestion::isWanted(const Run& run, const KestdeskSettings& settings)
{
    return settings.asksBeforeStopping() && run.state() == Run::State::Running &&
           run.elapsed() >= qint64(settings.secondsUntilAsking()) * millisecondsPerSecond;
}

StopQuestion::StopQuestion(Deed deed, const QVector<Run*>& runs, QWidget* window)
    : m_deed(deed)
    , m_box(new QMessageBox(QMessageBox::Warning, QLatin1String(rowOf(deed).title), QString(),
                            QMessageBox::NoButton, window))
{
    m_box->setObjectName(QStringLiteral("stopQuestion"));
    m_box->setTextFormat(Qt::PlainText); // contains names of files
    addButtons();
    for (Run* const run : runs) {
        m_runs.append(run);
        connect(run, &Run::stateChanged, this, &StopQuestion::update);
        connect(run, &Run::progressed, this, &StopQuestion::update);
    }
}

void StopQuestion::addButtons()
{
    m_stop = m_box->addButton(QLatin1String(rowOf(m_deed).button), QMessageBox::YesRole);
    QPushButton* const keep =
        m_box->addButton(QStringLiteral("&Keep running"), QMessageBox::NoRole);
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
    const QVector<const Run*> runs = runningRuns();
    if (!m_box) {
        return;
    }
    if (runs.isEmpty()) {
        m_box->done(0);
        return;
    }
    m_box->setText(textOf(rowOf(m_deed), runs));
}

QVector<const Run*> StopQuestion::runningRuns() const
{
    QVector<const Run*> result;
    for (const QPointer<Run>& run : m_runs) {
        if (run && run->isRunning()) {
            result.append(run);
        }
    }
    return result;
}

#include "BatchReport.h"

#include "Run.h"
#include "RunForecast.h"
#include "RunTexts.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>

using RunTexts::clockTime;
using RunTexts::counted;
using RunTexts::duration;

namespace {

constexpr int statusInterval = 200; // milliseconds
constexpr int barWidth = 20;

// Indexed by RunOutcome::Kind.
constexpr Terminal::Colour outcomeColours[] = {Terminal::Colour::Green, Terminal::Colour::Red,
                                               Terminal::Colour::Red, Terminal::Colour::Yellow};

// Indexed by common_IProcessMessage::Type. Progress and files are shown in their own places.
struct MessageLook
{
    bool isLine;
    Terminal::Colour colour;
};

constexpr MessageLook messageLooks[] = {
    {true, Terminal::Colour::None},   // Output
    {true, Terminal::Colour::None},   // LineFeed
    {false, Terminal::Colour::None},  // Percentage
    {false, Terminal::Colour::None},  // TotalPercentage
    {true, Terminal::Colour::Red},    // Error
    {true, Terminal::Colour::Yellow}, // Warning
    {true, Terminal::Colour::Cyan},   // Notice
    {false, Terminal::Colour::None},  // File
    {true, Terminal::Colour::None},   // Variable
};

QString progressBar(int percentage)
{
    const int filled = qBound(0, percentage, 100) * barWidth / 100;
    return QString(filled, QLatin1Char('#')) + QString(barWidth - filled, QLatin1Char('.'));
}

} // namespace

BatchReport::BatchReport() : m_output(std::make_unique<Terminal>(stdout))
{
    m_statusTimer.setInterval(statusInterval);
    connect(&m_statusTimer, &QTimer::timeout, this, &BatchReport::showStatus);
    m_flushTimer.setSingleShot(true);
    connect(&m_flushTimer, &QTimer::timeout, this, [this] { m_output->flush(); });
}

void BatchReport::leaveOutputFree()
{
    m_output = std::make_unique<Terminal>(stderr);
}

void BatchReport::follow(const Run& run, const RunForecast& forecast)
{
    m_run = &run;
    m_forecast = &forecast;
    std::fill(std::begin(m_counts), std::end(m_counts), 0);
    connect(&run, &Run::messageReceived, this, &BatchReport::add);
    connect(&run, &Run::ended, this, &BatchReport::end);
    m_statusTimer.start();
    showStatus();
}

void BatchReport::add(const common_IProcessMessage& message)
{
    const common_IProcessMessage::Type type = message.getType();
    ++m_counts[type];
    if (messageLooks[type].isLine) {
        showLine(message.getText(), messageLooks[type].colour);
    }
}

void BatchReport::reportError(const QString& text)
{
    m_output->clearStatusLine();
    m_output->flush();
    Terminal(stderr).writeLine(QStringLiteral("kestdesk: ") + text, Terminal::Colour::Red);
}

void BatchReport::end()
{
    m_statusTimer.stop();
    if (!m_run->problem().isEmpty()) {
        reportError(m_run->problem());
    }
    showSummary();
    showOutcome();
    m_output->flush();
    m_run = nullptr;
    m_forecast = nullptr;
}

void BatchReport::showSummary()
{
    for (const QString& file : m_run->files()) {
        m_output->writeLine(QStringLiteral("wrote %1").arg(file));
    }
    m_output->writeLine(QStringLiteral("%1, %2, %3, %4 in %5")
                            .arg(counted(count(common_IProcessMessage::Error), "error"),
                                 counted(count(common_IProcessMessage::Warning), "warning"),
                                 counted(count(common_IProcessMessage::Notice), "notice"),
                                 counted(m_run->files().size(), "file"),
                                 duration(m_run->elapsed())));
}

// The component is what the reason speaks of.
void BatchReport::showOutcome()
{
    const RunOutcome& outcome = m_run->outcome();
    const Terminal::Colour colour = outcomeColours[static_cast<int>(outcome.kind())];
    if (!outcome.reason().isEmpty()) {
        m_output->writeLine(QStringLiteral("%1 %2").arg(m_run->componentName(), outcome.reason()),
                            colour);
    }
    m_output->writeLine(QStringLiteral("%1: %2").arg(modelName(), outcome.word()), colour);
}

void BatchReport::showRecord(int number)
{
    m_output->writeLine(
        QStringLiteral("\"kestdesk runs show %1\" shows this run again").arg(number));
    m_output->flush();
}

QString BatchReport::modelName() const
{
    return QFileInfo(m_run->model()).fileName();
}

void BatchReport::summarise(const QStringList& models, const QVector<RunOutcome::Kind>& outcomes)
{
    using Kind = RunOutcome::Kind;
    for (int i = 0; i < models.size(); ++i) {
        const bool isBegun = i < outcomes.size();
        if (!isBegun || outcomes.at(i) != Kind::Valid) {
            m_output->writeLine(QStringLiteral("%1: %2").arg(
                                    models.at(i), isBegun ? RunOutcome::word(outcomes.at(i))
                                                          : QStringLiteral("not begun")),
                                isBegun ? outcomeColours[static_cast<int>(outcomes.at(i))]
                                        : Terminal::Colour::Yellow);
        }
    }
    QStringList parts;
    for (const Kind kind : {Kind::Valid, Kind::Fault, Kind::NotStarted, Kind::Stopped}) {
        const int count = outcomes.count(kind);
        if (count > 0) {
            parts.append(QStringLiteral("%1 %2").arg(count).arg(RunOutcome::word(kind)));
        }
    }
    m_output->writeLine(QStringLiteral("%1: %2").arg(counted(outcomes.size(), "model"),
                                                     parts.join(QStringLiteral(", "))));
    m_output->flush();
}

void BatchReport::showLine(const QString& text, Terminal::Colour colour)
{
    m_output->writeLine(colour == Terminal::Colour::None ? text : text.trimmed(), colour);
    flushSoon();
}

void BatchReport::showStatus()
{
    QString times = clockTime(m_run->elapsed());
    if (!m_forecast->text().isEmpty()) {
        times += QStringLiteral(", ") + m_forecast->text();
    }
    m_output->setStatusLine(QStringLiteral("[%1] %2% in all, phase %3%, %4  %5")
                                .arg(progressBar(m_run->totalPercentage()))
                                .arg(m_run->totalPercentage(), 3)
                                .arg(m_run->percentage(), 3)
                                .arg(times, modelName()));
}

// Once for all the lines that arrive together.
void BatchReport::flushSoon()
{
    if (!m_flushTimer.isActive()) {
        m_flushTimer.start(0);
    }
}

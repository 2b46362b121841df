// SPDX-License-Identifier: MIT
#include "BatchReport.h"

#include "ReasonText.h"
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

QString nameOf(const Run& run)
{
    return QFileInfo(run.model()).fileName();
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
    m_shown.push_back(std::make_unique<Shown>(Shown{&run, &forecast, {}}));
    Shown* const shown = m_shown.back().get();
    connect(&run, &Run::messageReceived, this,
            [this, shown](const common_IProcessMessage& message) { add(*shown, message); });
    m_statusTimer.start();
    showStatus();
}

void BatchReport::add(Shown& shown, const common_IProcessMessage& message)
{
    const common_IProcessMessage::Type type = message.getType();
    ++shown.counts[type];
    const MessageLook& look = messageLooks[type];
    if (look.isLine) {
        const bool isPlain = look.colour == Terminal::Colour::None;
        writeLine(*shown.run, isPlain ? message.getText() : message.getText().trimmed(),
                  look.colour);
        flushSoon();
    }
}

// Lines of simultaneous runs begin with the name of their model.
void BatchReport::writeLine(const Run& run, const QString& text, Terminal::Colour colour)
{
    m_output->writeLine(m_isNaming ? nameOf(run) + QStringLiteral(": ") + text : text, colour);
}

void BatchReport::reportError(const QString& text)
{
    m_output->clearStatusLine();
    m_output->flush();
    Terminal(stderr).writeLine(QStringLiteral("kestdesk: ") + text, Terminal::Colour::Red);
}

void BatchReport::end(const Run& run, int number)
{
    const auto found = std::find_if(m_shown.begin(), m_shown.end(),
                                    [&run](const auto& each) { return each->run == &run; });
    if (found == m_shown.end()) {
        return;
    }
    if (!run.problem().isEmpty()) {
        reportError(ReasonText::shown(run.problem()));
    }
    showSummary(**found);
    showOutcome(run, number);
    m_shown.erase(found);
    if (m_shown.empty()) {
        m_statusTimer.stop();
    }
    m_output->flush();
}

void BatchReport::showSummary(const Shown& shown)
{
    const Run& run = *shown.run;
    const auto count = [&shown](common_IProcessMessage::Type type, const char* noun) {
        return counted(shown.counts[type], noun);
    };
    for (const QString& file : run.files()) {
        writeLine(run, tr("wrote %1").arg(file));
    }
    writeLine(run, tr("%1, %2, %3, %4 in %5")
                       .arg(count(common_IProcessMessage::Error, "error"),
                            count(common_IProcessMessage::Warning, "warning"),
                            count(common_IProcessMessage::Notice, "notice"),
                            counted(run.files().size(), "file"), duration(run.elapsed())));
}

// The component is the subject of the reason. The last line always has the model's name, and
// nothing follows it: scripts read it.
void BatchReport::showOutcome(const Run& run, int number)
{
    const RunOutcome& outcome = run.outcome();
    const Terminal::Colour colour = outcomeColours[static_cast<int>(outcome.kind())];
    const bool needsExplanation =
        outcome.kind() == RunOutcome::Kind::Fault || outcome.kind() == RunOutcome::Kind::NotStarted;
    if (number > 0 && needsExplanation) {
        writeLine(run, tr("\"kestdesk runs show %1\" shows this run again").arg(number));
    }
    if (!outcome.reason().isEmpty()) {
        writeLine(
            run,
            QStringLiteral("%1 %2").arg(run.componentName(), ReasonText::shown(outcome.reason())),
            colour);
    }
    m_output->writeLine(QStringLiteral("%1: %2").arg(nameOf(run), outcome.word()), colour);
}

void BatchReport::summarise(const std::vector<Result>& results)
{
    using Kind = RunOutcome::Kind;
    int begun = 0;
    int counts[] = {0, 0, 0, 0}; // by kind
    for (const Result& result : results) {
        if (result.outcome != Kind::Valid) {
            showFailure(result);
        }
        if (result.outcome) {
            ++begun;
            ++counts[static_cast<int>(*result.outcome)];
        }
    }
    QStringList parts;
    for (const Kind kind : {Kind::Valid, Kind::Fault, Kind::NotStarted, Kind::Stopped}) {
        const int count = counts[static_cast<int>(kind)];
        if (count > 0) {
            parts.append(QStringLiteral("%1 %2").arg(count).arg(RunOutcome::word(kind)));
        }
    }
    m_output->writeLine(
        QStringLiteral("%1: %2").arg(counted(begun, "model"), parts.join(QStringLiteral(", "))));
    m_output->flush();
}

void BatchReport::showFailure(const Result& result)
{
    const QString word =
        result.outcome ? RunOutcome::word(*result.outcome) : QStringLiteral("not begun");
    const Terminal::Colour colour = result.outcome
                                        ? outcomeColours[static_cast<int>(*result.outcome)]
                                        : Terminal::Colour::Yellow;
    m_output->writeLine(QStringLiteral("%1: %2").arg(result.model, word), colour);
}

void BatchReport::showStatus()
{
    m_output->setStatusLine(status());
}

// For several runs, as much as fits: the progress and the remaining time of each.
QString BatchReport::status() const
{
    QStringList parts;
    for (const auto& shown : m_shown) {
        const Run& run = *shown->run;
        const QString left = shown->forecast->text();
        const QString comma = left.isEmpty() ? QString() : QStringLiteral(", ");
        if (m_isNaming) {
            parts.append(QStringLiteral("%1 %2%").arg(nameOf(run)).arg(run.totalPercentage()) +
                         comma + left);
        } else {
            parts.append(tr("[%1] %2% in all, phase %3%, %4  %5")
                             .arg(progressBar(run.totalPercentage()))
                             .arg(run.totalPercentage(), 3)
                             .arg(run.percentage(), 3)
                             .arg(clockTime(run.elapsed()) + comma + left, nameOf(run)));
        }
    }
    return parts.join(QStringLiteral(" | "));
}

// Updates once for all lines that arrive together.
void BatchReport::flushSoon()
{
    if (!m_flushTimer.isActive()) {
        m_flushTimer.start(0);
    }
}

// SPDX-License-Identifier: MIT
#include "ProblemCures.h"

#include <Place.h>

#include <QCoreApplication>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

using ProblemCures::Action;
using ProblemCures::Cure;

// clang-format off
constexpr Cure cures[] = {
    {"the engine '.*' (is not in the search path|cannot be started)", Action::InstallEngine,  QT_TRANSLATE_NOOP("ProblemCures", "&Install the engine..."),   QT_TRANSLATE_NOOP("ProblemCures", "Shows how the engine is installed")},
    {"No machines file|the machines file .* is missing",              Action::UseThisMachine, QT_TRANSLATE_NOOP("ProblemCures", "&Use this machine"),        QT_TRANSLATE_NOOP("ProblemCures", "Makes a machines file that names this machine")},
    {"names no host",                                                 Action::UseThisMachine, QT_TRANSLATE_NOOP("ProblemCures", "&Use this machine"),        QT_TRANSLATE_NOOP("ProblemCures", "Adds this machine to the machines file")},
    {"remote host has not been provided|no host",                     Action::EditOptions,    QT_TRANSLATE_NOOP("ProblemCures", "Choose the &host..."),      QT_TRANSLATE_NOOP("ProblemCures", "Opens the component launch options, which name the remote host")},
    {"host '[^']+' (cannot be reached|does not answer|gives no connection|is not connected)", Action::LeaveHostOut, QT_TRANSLATE_NOOP("ProblemCures", "Run without the &host..."), QT_TRANSLATE_NOOP("ProblemCures", "Runs it again with the host's line of the machines file as a comment; asks first")},
    {"cannot be reached|unknown host|not reachable|host .* failed",   Action::EditMachines,   QT_TRANSLATE_NOOP("ProblemCures", "Edit the &machines file..."), QT_TRANSLATE_NOOP("ProblemCures", "Opens the machines file, to take the host out or to mark it as a comment")},
    {"machines file",                                                 Action::EditMachines,   QT_TRANSLATE_NOOP("ProblemCures", "Edit the &machines file..."), QT_TRANSLATE_NOOP("ProblemCures", "Opens the machines file")},
};
// clang-format on

constexpr Cure openCard = {
    "", Action::OpenCard, QT_TRANSLATE_NOOP("ProblemCures", "&Open the card"),
    QT_TRANSLATE_NOOP("ProblemCures", "Opens the model in the editor at this line")};

} // namespace

const Cure* ProblemCures::find(const QString& message)
{
    if (lineOf(message)) {
        return &openCard;
    }
    const auto* const found =
        std::find_if(std::begin(cures), std::end(cures), [&message](const Cure& cure) {
            return QRegularExpression(QLatin1String(cure.pattern),
                                      QRegularExpression::CaseInsensitiveOption)
                .match(message)
                .hasMatch();
        });
    return found == std::end(cures) ? nullptr : found;
}

QString ProblemCures::shown(const char* text)
{
    return QCoreApplication::translate("ProblemCures", text);
}

std::optional<ProblemCures::Line> ProblemCures::lineOf(const QString& message)
{
    const auto place = suite::Place::at(message.trimmed());
    return place && place->line > 0 ? std::optional(Line{place->file, place->line}) : std::nullopt;
}

QString ProblemCures::hostOf(const QString& message)
{
    static const QRegularExpression host(QStringLiteral("host '([^']+)'"));
    return host.match(message).captured(1);
}

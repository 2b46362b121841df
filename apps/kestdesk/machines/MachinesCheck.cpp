// SPDX-License-Identifier: MIT
#include "MachinesCheck.h"

#include "StopSignals.h"

#include <HostName.h>
#include <RemoteShell.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int exitRight = 0;
constexpr int exitWrong = 1;
constexpr int exitImpossible = 2;
constexpr int exitStopped = 130; // what shells give for a program that Ctrl+C ended

constexpr int atATime = 16;

struct OutcomeLook
{
    const char* word;
    Terminal::Colour colour;
};

// Indexed by HostCheck::Outcome.
constexpr OutcomeLook outcomeLooks[] = {
    {QT_TRANSLATE_NOOP("MachinesCheck", "fine"), Terminal::Colour::Green},
    {QT_TRANSLATE_NOOP("MachinesCheck", "warning"), Terminal::Colour::Yellow},
    {QT_TRANSLATE_NOOP("MachinesCheck", "error"), Terminal::Colour::Red},
};

} // namespace

MachinesCheck::MachinesCheck(const suite::MachinesFile& file, int limitSeconds)
    : m_hosts(file.hosts()), m_limit(limitSeconds), m_output(stdout)
{}

int MachinesCheck::exec()
{
    if (m_hosts.isEmpty()) {
        return exitRight;
    }
    if (needsRemoteShell() && HostCheck::remoteShell().isEmpty()) {
        m_output.writeLine(tr("There is no program %1 to reach the hosts with "
                              "(KEST_SSH names it).")
                               .arg(suite::RemoteShell::program()),
                           Terminal::Colour::Red);
        return exitImpossible;
    }
    StopSignals::watch(this, [this] { stop(); });
    QMetaObject::invokeMethod(this, &MachinesCheck::startMore, Qt::QueuedConnection);
    return leave(QCoreApplication::exec());
}

bool MachinesCheck::needsRemoteShell() const
{
    return std::any_of(m_hosts.cbegin(), m_hosts.cend(),
                       [](const suite::MachinesFile::Entry& entry) {
                           return !HostCheck::isThisMachine(entry.host);
                       });
}

void MachinesCheck::startMore()
{
    const auto isBusy = [](const std::unique_ptr<HostCheck>& check) { return !check->isDone(); };
    auto busy = std::count_if(m_checks.cbegin(), m_checks.cend(), isBusy);
    while (busy < atATime && m_shown + static_cast<int>(m_checks.size()) < m_hosts.size()) {
        const suite::MachinesFile::Entry& entry =
            m_hosts[m_shown + static_cast<int>(m_checks.size())];
        m_checks.push_back(std::make_unique<HostCheck>(entry.host, entry.count, m_limit));
        // Deferred: a check must not be destroyed while it emits its end.
        connect(m_checks.back().get(), &HostCheck::finished, this, &MachinesCheck::showDone,
                Qt::QueuedConnection);
        m_checks.back()->start();
        ++busy;
    }
}

void MachinesCheck::showDone()
{
    while (!m_checks.empty() && m_checks.front()->isDone()) {
        show(suite::HostName::withBrackets(m_hosts[m_shown].host), *m_checks.front());
        m_checks.pop_front();
        ++m_shown;
    }
    m_output.flush();
    if (m_shown == m_hosts.size()) {
        QCoreApplication::exit(m_failed ? exitWrong : exitRight);
    } else {
        startMore();
    }
}

void MachinesCheck::show(const QString& host, const HostCheck& check)
{
    const OutcomeLook& look = outcomeLooks[static_cast<int>(check.outcome())];
    m_output.writeLine(QStringLiteral("%1: %2: %3").arg(host, tr(look.word), check.text()),
                       look.colour);
    m_failed = m_failed || check.outcome() == HostCheck::Outcome::Error;
    m_lookupLeft = m_lookupLeft || check.isLookingUp();
}

void MachinesCheck::stop()
{
    QCoreApplication::exit(exitStopped);
}

// Names are looked up in threads that cannot be stopped, and the exit of a program waits for them.
int MachinesCheck::leave(int exitCode)
{
    for (const std::unique_ptr<HostCheck>& check : m_checks) {
        m_lookupLeft = m_lookupLeft || check->isLookingUp();
    }
    m_checks.clear();
    m_output.flush();
    if (m_lookupLeft) {
        std::_Exit(exitCode);
    }
    return exitCode;
}

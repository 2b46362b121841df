// SPDX-License-Identifier: MIT
#include "OptionsLock.h"

#include "LaunchOptionsFile.h"
#include "ReasonText.h"

#include <common_ISession.h>
#include <common_ServiceOf.h>
#include <common_UserMessage.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QThread>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(OptionsLock)
};

using Options = common_ComponentsLaunchOptions;

constexpr qint64 moment = 500;   // milliseconds, in which most others are done
constexpr int shortestPause = 5; // milliseconds
constexpr int longestPause = 25; // milliseconds

/// Suppresses messages during its lifetime: the message that the file is locked would repeat.
class SilentSession : public common_ISession
{
public:
    SilentSession() : m_session(GET_SERVICE(common_ISession))
    {
        common_ServiceOf<common_ISession>::setService(this);
    }
    SilentSession(const SilentSession&) = delete;
    SilentSession& operator=(const SilentSession&) = delete;
    ~SilentSession() override { common_ServiceOf<common_ISession>::setService(m_session); }

    void showUserMessage(common_ActivePtr<common_UserMessage> /*message*/,
                         QWidget* /*parent*/) override
    {}

private:
    common_ISession* m_session;
};

Options::Pointer tryQuietly()
{
    const SilentSession silent;
    return Options::create(ReadWriteAccess);
}

} // namespace

Options::Pointer OptionsLock::wait(int seconds, const std::function<void(const QString&)>& tell)
{
    QElapsedTimer waiting;
    waiting.start();
    bool isTold = false;
    while (!waiting.hasExpired(seconds * qint64(1000))) {
        Options::Pointer options = tryQuietly();
        if (options) {
            return options;
        }
        if (!isTold && waiting.hasExpired(moment)) {
            isTold = true;
            tell(
                Texts::tr("waiting up to %1 seconds for %2, which holds %3")
                    .arg(seconds)
                    .arg(ReasonText::shown(LaunchOptionsFile::owner()), LaunchOptionsFile::name()));
        }
        QThread::msleep(static_cast<unsigned long>(
            QRandomGenerator::global()->bounded(shortestPause, longestPause)));
    }
    return Options::create(ReadWriteAccess);
}

#include "ChildProcess.h"

#include <QProcess>

class ChildProcess::Process : public QProcess
{
public:
    explicit Process(ChildProcess& owner);

    /// False when the program cannot be started.
    bool start(const QStringList& words);

private:
    ChildProcess& m_owner;
};

ChildProcess::Process::Process(ChildProcess& owner) : m_owner(owner)
{
    QObject::connect(this, &QProcess::readyReadStandardOutput, &m_owner,
                     [this] { Q_EMIT m_owner.outputRead(readAllStandardOutput()); });
    QObject::connect(this, &QProcess::readyReadStandardError, &m_owner,
                     [this] { Q_EMIT m_owner.errorsRead(readAllStandardError()); });
    QObject::connect(this, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &m_owner,
                     [this](int exitCode, QProcess::ExitStatus status) {
                         m_owner.m_exitCode = exitCode;
                         m_owner.m_hasExited = status == QProcess::NormalExit;
                         Q_EMIT m_owner.ended();
                     });
}

bool ChildProcess::Process::start(const QStringList& words)
{
    const Setup& setup = m_owner.m_setup;
    setWorkingDirectory(setup.folder);
    if (setup.input == Input::None) {
        setStandardInputFile(QProcess::nullDevice());
    }
    if (setup.errors != Errors::Read) {
        setProcessChannelMode(setup.errors == Errors::WithOutput ? QProcess::MergedChannels
                                                                 : QProcess::ForwardedErrorChannel);
    }
    QProcess::start(words.first(), words.mid(1));
    return waitForStarted(-1);
}

ChildProcess::ChildProcess(QObject* parent)
    : QObject(parent), m_process(std::make_unique<Process>(*this))
{}

// Nothing is reported any more: the receivers may be half destroyed.
ChildProcess::~ChildProcess()
{
    m_process->disconnect(this);
    if (isRunning()) {
        m_process->kill();
        m_process->waitForFinished();
    }
}

bool ChildProcess::start(const QString& program, const QStringList& arguments)
{
    m_program = program;
    const bool isStarted = m_process->start(QStringList(program) + arguments);
    if (!isStarted) {
        m_startError = m_process->errorString();
        QMetaObject::invokeMethod(this, &ChildProcess::ended, Qt::QueuedConnection);
    }
    return isStarted;
}

bool ChildProcess::isRunning() const
{
    return m_process->state() != QProcess::NotRunning;
}

void ChildProcess::write(const QByteArray& bytes)
{
    m_process->write(bytes);
}

void ChildProcess::closeInput()
{
    m_process->closeWriteChannel();
}

void ChildProcess::terminateGroup() const
{
    m_process->terminate();
}

// The process alone: what it has started stays.
void ChildProcess::killGroup() const
{
    m_process->kill();
}

bool ChildProcess::isGroupAlive() const
{
    return isRunning();
}

// SPDX-License-Identifier: MIT
#include "RemoteSession.h"

#include "ModelFile.h"
#include "StopTimes.h"

#include <InputFile.h>
#include <MarkedFolders.h>

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

using namespace suite;

namespace {

constexpr int runNumber = 0;

// More does not fit into a frame.
constexpr qint64 largestResult = 500 << 20; // bytes

QString machinesName()
{
    return QStringLiteral("machines.kest");
}

QString partialSuffix()
{
    return QStringLiteral("partial");
}

// Without the parts that lead elsewhere.
bool isFileName(const QString& name)
{
    return !name.isEmpty() && !name.contains(QLatin1Char('/')) && name != QLatin1String(".") &&
           name != QLatin1String("..");
}

} // namespace

RemoteSession::RemoteSession()
    : m_channel(STDIN_FILENO, STDOUT_FILENO), m_processes(runkestStopTimes)
{
    connect(&m_channel, &FrameChannel::received, this, &RemoteSession::take);
    connect(&m_channel, &FrameChannel::closed, this, &RemoteSession::stop);
    connect(&m_channel, &FrameChannel::sent, this, &RemoteSession::finishWhenSent);
    connect(&m_heartbeat, &Heartbeat::beat, this, [this] { m_channel.send(Frame()); });
    connect(&m_heartbeat, &Heartbeat::lost, this, &RemoteSession::stop);
    connect(&m_processes, &ChildProcesses::allEnded, this, [this] { leave(EXIT_FAILURE); });
    m_heartbeat.start();
    m_channel.send(Frame::of(Frame::Type::Hello, frameProtocol));
}

void RemoteSession::stop()
{
    if (!m_isStopping) {
        m_isStopping = true;
        m_heartbeat.stop();
        m_processes.stop();
    }
}

void RemoteSession::take(const Frame& frame)
{
    m_heartbeat.noteSign();
    if (frame.type == Frame::Type::Setup && !m_folder) {
        begin(frame);
    } else if (frame.type == Frame::Type::Stop) {
        stop();
    }
}

void RemoteSession::begin(const Frame& frame)
{
    QString name;
    QByteArray model;
    QStringList arguments;
    bool hasMachines = false;
    QByteArray machines;
    QByteArray partial;
    if (!frame.read(name, model, arguments, hasMachines, machines, partial) || !isFileName(name)) {
        fail(QStringLiteral("did not understand the request"));
        return;
    }
    const QString error = prepareFolder(name, model, machines, partial);
    if (error.isEmpty()) {
        run(name, arguments, hasMachines);
    } else {
        fail(error);
    }
}

QString RemoteSession::prepareFolder(const QString& name, const QByteArray& model,
                                     const QByteArray& machines, const QByteArray& partial)
{
    MarkedFolders::removeLeft();
    m_folder.emplace(MarkedFolders::marked(QStringLiteral("kest-remote")));
    QString reason = m_folder->error();
    // The model has a folder of its own, so that it may have any name.
    if (reason.isEmpty() && QDir(m_folder->path()).mkdir(QStringLiteral("model"))) {
        reason = TemporaryFolder::writeFile(m_folder->filePath(machinesName()), machines);
    }
    if (reason.isEmpty()) {
        reason =
            TemporaryFolder::writeFile(m_folder->filePath(QStringLiteral("model/") + name), model);
    }
    const QString partialPath =
        ModelFile(m_folder->filePath(QStringLiteral("model/") + name)).resultPath(partialSuffix());
    m_partial.emplace(partialPath, partial.size());
    if (reason.isEmpty() && !partial.isEmpty()) {
        reason = TemporaryFolder::writeFile(partialPath, partial);
    }
    return reason.isEmpty() ? QString() : QStringLiteral("cannot keep the model, ") + reason;
}

void RemoteSession::run(const QString& name, QStringList arguments, bool hasMachines)
{
    auto process = std::make_unique<ComponentRun>();
    m_run = process.get();
    m_run->setWorkingDirectory(m_folder->filePath(QStringLiteral("model")));
    connect(m_run, &ComponentRun::printed, this, &RemoteSession::passOn);
    connect(m_run, &ComponentRun::ended, this, &RemoteSession::endRun);
    if (hasMachines) {
        arguments =
            QStringList{QStringLiteral("--machines-file"), m_folder->filePath(machinesName())} +
            arguments;
    }
    m_processes.add(runNumber, std::move(process));
    m_run->startComponent(QStringLiteral("runkest"),
                          QStringList(m_folder->filePath(QStringLiteral("model/") + name)) +
                              arguments);
}

// The paths of results mean nothing at the other end, their content does.
void RemoteSession::passOn(const MarkerLine& line)
{
    sendPartial();
    if (line.marker != Marker::File) {
        const QString start = line.marker ? markerText(*line.marker) : QString();
        m_channel.send(Frame::of(Frame::Type::Line, start + line.body));
        return;
    }
    if (QFileInfo(line.body).suffix() == partialSuffix()) {
        return;
    }
    InputFile file(line.body);
    const std::optional<QByteArray> content = file.read(largestResult);
    if (!content) {
        fail(QStringLiteral("cannot read the result '%1', %2").arg(line.body, file.reason()));
        return;
    }
    m_channel.send(Frame::of(Frame::Type::File, QFileInfo(line.body).suffix(), *content));
}

// Each result as soon as it is there: the connection may end at any moment.
void RemoteSession::sendPartial()
{
    const QList<QByteArray> lines = m_partial->newLines();
    for (const QByteArray& line : lines) {
        m_channel.send(Frame::of(Frame::Type::Partial, line));
    }
}

void RemoteSession::endRun()
{
    if (m_isStopping) {
        return;
    }
    if (!m_run->hasExited()) {
        m_channel.send(
            Frame::of(Frame::Type::Failure, QStringLiteral("lost the run, ") + m_run->error()));
    }
    m_channel.send(Frame::of(
        Frame::Type::Exit, static_cast<qint32>(m_run->isSuccess() ? EXIT_SUCCESS : EXIT_FAILURE)));
    m_heartbeat.stop();
    m_isDone = true;
}

void RemoteSession::fail(const QString& reason)
{
    m_channel.send(Frame::of(Frame::Type::Failure, reason));
    stop();
}

void RemoteSession::finishWhenSent()
{
    if (m_isDone) {
        leave(EXIT_SUCCESS);
    }
}

void RemoteSession::leave(int exitCode)
{
    m_folder.reset();
    Q_EMIT finished(exitCode);
}

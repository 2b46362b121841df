// SPDX-License-Identifier: MIT
#include "RemoteRun.h"

#include "MarkerLine.h"
#include "OptionWords.h"
#include "PartialRow.h"
#include "PlainText.h"
#include "SshProgram.h"
#include "StopTimes.h"

#include <InputFile.h>
#include <MachinesFile.h>
#include <RemoteShell.h>
#include <ResultFiles.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace suite;

namespace {

// The login takes its time; the host may be silent for so long.
constexpr int startLimit = 15000; // ms

// More does not fit into a frame.
constexpr qint64 largestPartial = 500 << 20; // bytes

QStringList resultSuffixes()
{
    return {QStringLiteral("out"), QStringLiteral("csv"), QStringLiteral("pre")};
}

QString withQuotes(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1String("'"), QLatin1String("'\\''")) +
           QLatin1Char('\'');
}

// Options that say where the run happens stay here.
QStringList placeOptions()
{
    return {QStringLiteral("--remote-host"), QStringLiteral("--machines-file"),
            QStringLiteral("--remote-use-mpi")};
}

} // namespace

RemoteRun::RemoteRun()
    : ComponentProgram(QStringLiteral("runkest"), OptionGroup::Runkest)
    , m_processEnd(
          {[this] { return m_process.isRunning(); }, {}, [this] { m_process.killGroup(); }})
{
    connect(&m_processEnd, &StagedEnd::ended, this, &RemoteRun::end);
    connect(&m_process, &FramedProcess::received, this, &RemoteRun::take);
    connect(&m_process, &FramedProcess::silent, this,
            [this] { failConnection(QStringLiteral("does not answer")); });
    connect(&m_process, &FramedProcess::broken, this, [this](const QString& text) {
        failConnection(QStringLiteral("runs no such component, it says '%1', name the folder of "
                                      "the installation there with home=FOLDER")
                           .arg(text));
    });
    connect(&m_process, &FramedProcess::ended, this, &RemoteRun::endProcess);
}

RemoteRun::~RemoteRun()
{
    m_process.killGroup();
}

bool RemoteRun::isAskedFor(const QStringList& arguments)
{
    const CommandLine line(OptionGroup::Runkest, arguments);
    return line.errors().isEmpty() &&
           line.has(OptionGroup::Runkest, QStringLiteral("--remote-host")) &&
           !line.has(OptionGroup::Runkest, QStringLiteral("--remote-use-mpi"));
}

// The model is checked where the run happens; here only what keeps it from going there.
bool RemoteRun::preprocess()
{
    return checkHost() && readFiles();
}

bool RemoteRun::checkHost()
{
    m_host = std::make_unique<RemoteHost>(option("--remote-host"));
    if (!m_host->error().isEmpty()) {
        fail(FindingKind::BadCommandLine,
             QStringLiteral("in the option --remote-host ") + m_host->error());
        return false;
    }
    return true;
}

bool RemoteRun::readFiles()
{
    const Preprocessor check(component().modelFile());
    if (check.findings().hasFatalErrors()) {
        component().findingPrinter().print(check.findings());
        return false;
    }
    m_model = check.model().deck.bytes;
    return readMachines() && readPartial(check.model());
}

bool RemoteRun::readMachines()
{
    m_hasMachines = hasOption("--machines-file");
    if (m_hasMachines) {
        const MachinesFile machines = MachinesFile::read(option("--machines-file"));
        const QStringList errors = machines.errors();
        for (const QString& error : errors) {
            fail(FindingKind::MachinesFileUnusable, error);
        }
        m_machines = machines.plainContent();
    }
    return isGood();
}

// What is taken over is reported by the run on the host.
bool RemoteRun::readPartial(const Model& model)
{
    const bool isCheck = commandLine().has(OptionGroup::Kest, QStringLiteral("--check-only"));
    if (isCheck || model.frequencies.count == 0 || model.adaptive.isWanted) {
        return true;
    }
    m_partial = std::make_unique<PartialResults>(
        component().modelFile().resultPath(QStringLiteral("partial")), SweepDeck(model));
    if (!hasOption("--resume")) {
        return report(m_partial->begin());
    }
    const FindingList findings = m_partial->resume();
    if (findings.hasErrors()) {
        return report(findings);
    }
    m_earlierResults = InputFile(m_partial->path()).read(largestPartial).value_or(QByteArray());
    return true;
}

void RemoteRun::work()
{
    m_process.startFramed(RemoteShell::program(), sshArguments(), startLimit);
}

// ssh hands the command to a shell there: it is fixed text but for the quoted path.
QStringList RemoteRun::sshArguments() const
{
    const QString home = m_host->home();
    const QString program = home.isEmpty() ? QCoreApplication::applicationFilePath()
                                           : QDir::cleanPath(home) + QStringLiteral("/bin/runkest");
    return SshProgram::options() + m_host->sshWords() +
           QStringList(QStringLiteral("exec ") + withQuotes(program) +
                       QStringLiteral(" --remote-session"));
}

QStringList RemoteRun::remoteArguments() const
{
    const CommandLine& line = commandLine();
    QStringList result = optionWords(line, OptionGroup::Common) +
                         optionWords(line, OptionGroup::Runkest, placeOptions());
    const QVector<OptionRow> rows = optionRows();
    for (const OptionRow& row : rows) {
        const QString name = QLatin1String(row.name);
        if (row.kind == ValueKind::Switch && row.group == OptionGroup::Runkest &&
            line.has(row.group, name)) {
            result += name;
            result += optionWords(line, row.target);
        }
    }
    return result;
}

void RemoteRun::sendRequest()
{
    m_process.send(Frame::of(Frame::Type::Setup, component().modelFile().name(), m_model,
                             remoteArguments(), m_hasMachines, m_machines, m_earlierResults));
}

void RemoteRun::take(const Frame& frame)
{
    QString text;
    qint32 code = exitFailure;
    switch (frame.type) {
    case Frame::Type::Hello:
        takeHello(frame);
        break;
    case Frame::Type::File:
        takeFile(frame);
        break;
    case Frame::Type::Partial:
        takePartial(frame);
        break;
    case Frame::Type::Line:
        if (isGood() && frame.read(text) && writeFiles()) {
            takeLine(text);
        }
        break;
    case Frame::Type::Failure:
        frame.read(text);
        failConnection(text);
        break;
    case Frame::Type::Exit:
        m_hasExitCode = true;
        if (isGood() && (!writeFiles() || !frame.read(code) || code != exitSuccess)) {
            markFailed();
        }
        beginEnd();
        break;
    default:
        break;
    }
}

void RemoteRun::takeHello(const Frame& frame)
{
    qint32 protocol = 0;
    if (!frame.read(protocol) || protocol != frameProtocol) {
        failConnection(QStringLiteral("has another version of the installation (protocol %1, "
                                      "here %2), install the same one on both")
                           .arg(protocol)
                           .arg(frameProtocol));
    } else if (isGood()) {
        sendRequest();
    }
}

// Results may stand beside the model only, whatever the other end says.
void RemoteRun::takeFile(const Frame& frame)
{
    QString suffix;
    QByteArray content;
    if (frame.read(suffix, content) && resultSuffixes().contains(suffix)) {
        m_files.append({component().modelFile().resultPath(suffix), content});
    } else {
        failConnection(QStringLiteral("sent a file that is no result"));
    }
}

void RemoteRun::takePartial(const Frame& frame)
{
    QByteArray line;
    const std::optional<PartialRow> row = frame.read(line) ? PartialRow::parse(line) : std::nullopt;
    if (row && m_partial && m_partial->isFrequency(row->index)) {
        component().findingPrinter().print(m_partial->add(row->index, row->output()));
    }
}

// What is kept is reported at the end: it is what has come here.
void RemoteRun::takeLine(const QString& text)
{
    const MarkerLine line = MarkerLine::parse(text.toUtf8());
    if (!line.body.startsWith(FindingPrinter::head(FindingKind::PartialKept))) {
        printer().printAgain(line);
    }
}

// Files that came together are replaced together.
bool RemoteRun::writeFiles()
{
    if (m_files.isEmpty()) {
        return true;
    }
    QStringList paths;
    for (const ResultFile& file : qAsConst(m_files)) {
        paths.append(file.path);
    }
    ResultFiles results;
    bool isWritten = results.open(paths);
    for (int i = 0; i < m_files.size() && isWritten; ++i) {
        isWritten = results.write(i, m_files.at(i).content);
    }
    m_files.clear();
    if (!isWritten || !results.commit()) {
        fail(FindingKind::ResultNotWritten, results.error());
        stopWork();
        return false;
    }
    m_hasResults = true;
    printer().printFiles(paths);
    return true;
}

void RemoteRun::failConnection(const QString& reason)
{
    if (isGood() && !m_hasExitCode) {
        fail(FindingKind::RemoteRunFailed,
             QStringLiteral("the host '%1' %2").arg(m_host->name(), reason));
    }
    stopWork();
}

void RemoteRun::endProcess()
{
    if (!m_hasExitCode && isGood()) {
        const QString words = m_process.lastWords();
        const QString how =
            !m_process.startError().isEmpty()
                ? QStringLiteral("cannot be reached, '%1' cannot be started, install the package "
                                 "openssh-client or name another program in KEST_SSH")
                      .arg(RemoteShell::program())
                : QStringLiteral("%1 (code %2)")
                      .arg(m_process.hasAnswered()
                               ? QStringLiteral("is not connected any more")
                               : QStringLiteral("gives no connection to the installation"))
                      .arg(m_process.exitCode());
        fail(FindingKind::RemoteRunFailed,
             QStringLiteral("the host '%1' ").arg(m_host->name()) + how +
                 (words.isEmpty() ? QString() : QStringLiteral(", ") + words) +
                 SshProgram::advice(m_process.exitCode()));
    }
    m_processEnd.cancel();
    end();
}

void RemoteRun::end()
{
    if (m_isEnded) {
        return;
    }
    m_isEnded = true;
    if (m_partial && isGood() && m_hasResults) {
        m_partial->remove();
    } else if (m_partial && !isGood() && !m_partial->kept().isEmpty()) {
        printer().printFiles({m_partial->path()});
        component().findingPrinter().print(m_partial->kept());
    }
    finish();
}

bool RemoteRun::stopWork()
{
    if (!m_process.isRunning()) {
        return false;
    }
    m_process.send(Frame::of(Frame::Type::Stop));
    beginEnd();
    return true;
}

// The other end hears that nobody listens any more, ends all it has started and then itself.
void RemoteRun::beginEnd()
{
    if (!m_processEnd.isActive()) {
        m_process.stopWatching();
        m_process.closeInput();
        m_processEnd.start(remoteRunStopTimes);
    }
}

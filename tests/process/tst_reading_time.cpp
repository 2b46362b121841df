// SPDX-License-Identifier: MIT
// The time that the library takes for large and strange output and files.
#include <ReadingTime.h>
#include <SettingsFolders.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_GenericProcessMessage.h>
#include <common_KestProcessMessage.h>
#include <common_LineBuffer.h>
#include <common_MachineFileFinder.h>

#include <QBuffer>

namespace {

void parseMarked(const QByteArray& bytes)
{
    common_KestProcessMessage::parseOutput(QString::fromUtf8(bytes));
}

void parsePlain(const QByteArray& bytes)
{
    common_GenericProcessMessage::parseOutput(QString::fromUtf8(bytes));
}

void takeAll(common_LineBuffer& lines)
{
    while (lines.hasLine()) {
        lines.takePiece();
    }
}

// As from a process that writes a few bytes at a time.
void cutIntoLines(const QByteArray& bytes)
{
    common_LineBuffer lines;
    constexpr int part = 7;
    for (int begin = 0; begin < bytes.size(); begin += part) {
        QBuffer device;
        device.setData(bytes.mid(begin, part));
        device.open(QIODevice::ReadOnly);
        lines.readFrom(device);
        takeAll(lines);
    }
    QBuffer end;
    end.setData("\n");
    end.open(QIODevice::ReadOnly);
    lines.readFrom(end);
    takeAll(lines);
}

void findMachines(const QByteArray& bytes)
{
    static const QTemporaryDir folder;
    SettingsFolders::write(folder.filePath(QStringLiteral("machines.kest")), bytes);
    qputenv("KEST_USER_HOME", QFile::encodeName(folder.path()));
    common_MachineFileFinder().parseMachinesFile();
}

void makeCommandLines(const QByteArray& bytes)
{
    static const SettingsFolders folders;
    const auto options = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    const QStringList names = {QStringLiteral("Kest.AdvancedOptions"),
                               QStringLiteral("Kest.GPUsList"), QStringLiteral("Kest.RemoteHost"),
                               QStringLiteral("EnvironmentVariables")};
    for (const QString& name : names) {
        (*options)[name].assignFromQString(QString::fromUtf8(bytes));
    }
    options->getKestParallelOptions(true);
    options->getKestRemoteOptions();
    options->getEnvironmentOptions();
}

} // namespace

class tst_reading_time : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { ReadingTime::addPieces(); }

    void ofMarkedOutput() { compare(parseMarked); }
    void ofPlainOutput() { compare(parsePlain); }
    void ofLines() { compare(cutIntoLines); }
    void ofMachinesFiles() { compare(findMachines); }
    void ofLaunchOptions()
    {
#if defined(__SANITIZE_ADDRESS__)
        QSKIP("AddressSanitizer takes the longer for an allocation, the more there were before");
#endif
        compare(makeCommandLines);
    }

private:
    static void compare(void (*read)(const QByteArray&))
    {
        QFETCH_GLOBAL(QByteArray, piece);
        QCOMPARE(ReadingTime::problem(read, piece), QString());
    }
};

QTEST_GUILESS_MAIN(tst_reading_time)
#include "tst_reading_time.moc"

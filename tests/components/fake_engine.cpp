// SPDX-License-Identifier: MIT
// Stands in for the engine. The variable FAKE_ENGINE names the part it plays.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr unsigned long longTime = 60;

void writeOutput(const QByteArray& bytes)
{
    const int place = QCoreApplication::arguments().indexOf(QStringLiteral("-o"));
    QFile file(QCoreApplication::arguments().value(place + 1));
    if (file.open(QIODevice::WriteOnly)) {
        file.write(bytes);
    }
}

void writeGoodOutput()
{
    writeOutput("      --------- FREQUENCY --------\n"
                "      FILL: 17 msec  FACTOR: 4 msec\n"
                "      --------- ANTENNA INPUT PARAMETERS ---------\n"
                "  TAG   SEG  VOLTAGE  CURRENT  IMPEDANCE  ADMITTANCE  POWER\n"
                "    1    11  1.0 0.0  0.02 0.0  5.0E+01 0.0E+00  0.02 0.0  0.01\n"
                "  TOTAL RUN TIME: 21 msec\n");
}

int playSlow()
{
    QThread::msleep(150);
    writeGoodOutput();
    return 0;
}

QString meetingFile(const QString& name)
{
    return qEnvironmentVariable("FAKE_ENGINE_MEETING") + QLatin1Char('/') + name;
}

// One of eight that wait for each other.
int playTogether()
{
    constexpr int companions = 8;
    QFile own(meetingFile(QString::number(QCoreApplication::applicationPid())));
    if (!own.open(QIODevice::WriteOnly)) {
        return 1;
    }
    while (QDir(meetingFile(QString())).entryList(QDir::Files).size() < companions) {
        QThread::msleep(1);
    }
    writeGoodOutput();
    return 0;
}

// Fails when there is another one.
int playAlone()
{
    QFile own(meetingFile(QStringLiteral("here")));
    if (!own.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return 1;
    }
    QThread::msleep(20); // for others to come
    writeGoodOutput();
    own.remove();
    return 0;
}

int playHang()
{
    QThread::sleep(longTime);
    return 0;
}

// Neither this process nor its child listens to the request to end.
int playStubborn()
{
    std::signal(SIGTERM, SIG_IGN);
    QProcess child;
    child.start(QStringLiteral("/bin/sleep"), {QString::number(longTime)});
    child.waitForFinished(-1);
    QThread::sleep(longTime);
    return 0;
}

int playCrash()
{
    std::abort();
}

int playFail()
{
    writeOutput("  GEOMETRY DATA CARD ERROR\n-*-total-percentage-*-100%\n");
    std::puts("-*-total-percentage-*-100% and: colons");
    return 3;
}

int playGarbage()
{
    QByteArray noise;
    for (int i = 0; i < 100000; ++i) {
        noise += static_cast<char>((i * 7919) >> 3);
    }
    writeOutput(noise);
    return 0;
}

int playSilent()
{
    return 0;
}

int playTalkative()
{
    const QByteArray line(1000, 'x');
    for (int i = 0; i < 20000; ++i) {
        std::puts(line.constData());
    }
    writeGoodOutput();
    return 0;
}

int playNotNumber()
{
    writeOutput("      --------- ANTENNA INPUT PARAMETERS ---------\n"
                "    1    11  1.0 0.0  0.02 0.0  -NAN -NAN  0.02 0.0  0.01\n");
    return 0;
}

// Later frequencies are ready before earlier ones.
int playReversed()
{
    const QString deck = QCoreApplication::arguments().value(2);
    const int number = deck.section(QLatin1Char('.'), 0, 0).remove(0, 1).toInt();
    QThread::msleep(number % 2 == 1 ? 120 : 5);
    writeGoodOutput();
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    struct Row
    {
        const char* part;
        int (*play)();
    };
    static constexpr Row table[] = {
        {"slow", playSlow},           {"together", playTogether},   {"alone", playAlone},
        {"hang", playHang},           {"stubborn", playStubborn},   {"crash", playCrash},
        {"fail", playFail},           {"garbage", playGarbage},     {"silent", playSilent},
        {"talkative", playTalkative}, {"notnumber", playNotNumber}, {"reversed", playReversed},
    };
    const QByteArray part = qgetenv("FAKE_ENGINE");
    for (const Row& row : table) {
        if (part == row.part) {
            return row.play();
        }
    }
    return 99;
}

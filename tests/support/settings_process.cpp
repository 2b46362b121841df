// SPDX-License-Identifier: MIT
// Plays the other processes that use the same settings files. Its first argument is the command:
//
//   try FILE                    tries to lock the file, says the status and ends
//   hold FILE                   the same, and waits for the end of its input before it ends
//   hold-with-child FILE        the same, with a child process that outlives it for a while
//   lock-for-ever FILE          locks the file and releases it, again and again
//   race FILE ROUNDS            takes the lock ROUNDS times, notes when somebody else has it as
//                               well, and leaves lock files behind as killed processes do
//   create DIRECTORY            makes writable launch options on DIRECTORY/kest.ini, says "made" or
//                               "null", and waits for the end of its input
//   change FILE KEY ROUNDS      ROUNDS times: locks the file, counts KEY up, writes, releases
//   write FILE KEYS COUNT       writes COUNT keys, KEYS1 and so on, one a time and without a lock;
//                               says "refused after MILLISECONDS" when a write gives up too early
//   rewrite FILE LENGTH         writes texts of LENGTH equal letters for ever
//   write-limited FILE BYTES LENGTH
//                               writes a text of LENGTH letters where no file may exceed BYTES
//   write-within-limited FILE BYTES LENGTH
//                               the same from within another write of the same file
//   store FILE SEED             writes values of all kinds, the same ones for the same seed
//   show FILE                   prints these values
//
// Says "slowest MILLISECONDS" of its writes where it counts them.
#include <FakeServices.h>
#include <SettingsObjects.h>
#include <VariousSettings.h>
#include <limitFileSize.h>

#include <KEST_binfiles.h>
#include <common_ComponentsLaunchOptions.h>
#include <common_LockFile.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QThread>

#include <cstdio>
#include <functional>
#include <map>

namespace {

int say(const char* what, qint64 number)
{
    std::printf("%s %lld\n", what, static_cast<long long>(number));
    std::fflush(stdout);
    return 0;
}

void waitForEndOfInput()
{
    while (std::getchar() != EOF) {
    }
}

int lock(const QString& file, uint64_t* handle)
{
    return KEST_binfiles_set_lock_hard(file.toStdWString().c_str(), 0, handle);
}

int tryLock(const QStringList& arguments)
{
    uint64_t handle = 0;
    return say("status", lock(arguments.at(0), &handle));
}

int holdLock(const QStringList& arguments)
{
    tryLock(arguments);
    waitForEndOfInput();
    return 0;
}

int holdLockWithChild(const QStringList& arguments)
{
    tryLock(arguments);
    qint64 child = 0;
    QProcess::startDetached(QStringLiteral(KEST_TEST_CHILD),
                            {QStringLiteral("sleep"), QStringLiteral("5000")}, QString(), &child);
    say("child", child);
    waitForEndOfInput();
    return 0;
}

int lockForEver(const QStringList& arguments)
{
    say("locking", 1);
    while (true) {
        uint64_t handle = 0;
        if (lock(arguments.at(0), &handle) == KEST_BINFILES_LOCK_TAKEN) {
            KEST_binfiles_remove_lock(arguments.at(0).toStdWString().c_str(), handle);
        }
    }
}

// As a process leaves it that was killed right after it had made it, some time ago.
void leaveLockFile(const QString& path)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        file.setFileTime(QDateTime::fromSecsSinceEpoch(1), QFileDevice::FileModificationTime);
    }
}

bool holdAlone(const QString& marker)
{
    QFile file(marker);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return false;
    }
    file.close();
    QThread::usleep(200);
    return file.remove();
}

int race(const QStringList& arguments)
{
    const QString& path = arguments.at(0);
    int rounds = arguments.at(1).toInt();
    qint64 clashes = 0;
    while (rounds > 0) {
        uint64_t handle = 0;
        if (lock(path, &handle) != KEST_BINFILES_LOCK_TAKEN) {
            QThread::usleep(100);
            continue;
        }
        clashes += holdAlone(path + QStringLiteral(".holder")) ? 0 : 1;
        KEST_binfiles_remove_lock(path.toStdWString().c_str(), handle);
        if (--rounds % 2 == 0) {
            leaveLockFile(path + QStringLiteral(".kestlock"));
        }
    }
    return say("clashes", clashes);
}

int create(const QStringList& arguments)
{
    const FakeApplicationInfo info(arguments.at(0));
    const FakeSession session;
    const auto options = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    std::puts(options.isNull() ? "null" : "made");
    std::fflush(stdout);
    waitForEndOfInput();
    return 0;
}

// A writer like the suite's own: it keeps the lock from before it reads until after it wrote.
bool countUp(const QString& file, const QString& key)
{
    const common_ActivePtr<common_LockFile> lockFile(new common_LockFile(QFileInfo(file)));
    if (!lockFile->lock(false)) {
        return false;
    }
    CountSettings settings(file, key);
    settings.readSettings();
    ++settings.count;
    settings.writeSettings();
    return true;
}

int change(const QStringList& arguments)
{
    const FakeApplicationInfo info;
    const FakeSession session;
    int rounds = arguments.at(2).toInt();
    qint64 slowest = 0;
    while (rounds > 0) {
        QElapsedTimer timer;
        timer.start();
        if (countUp(arguments.at(0), arguments.at(1))) {
            slowest = qMax(slowest, timer.elapsed());
            --rounds;
        } else {
            QThread::msleep(1);
        }
    }
    return say("slowest", slowest);
}

// What is refused leaves the file as it was.
bool isWritten(const QString& file, const QString& key, int count)
{
    CountSettings settings(file, key);
    settings.readSettings();
    return settings.count == count;
}

// A write that is refused has waited first, and is tried again.
int write(const QStringList& arguments)
{
    constexpr qint64 shortestWait = 900; // milliseconds
    const FakeApplicationInfo info;
    qint64 slowest = 0;
    for (int number = 1; number <= arguments.at(2).toInt(); ++number) {
        const QString key = arguments.at(1) + QString::number(number);
        CountSettings settings(arguments.at(0), key);
        settings.count = number;
        bool written = false;
        while (!written) {
            QElapsedTimer timer;
            timer.start();
            settings.writeSettings();
            const qint64 elapsed = timer.elapsed();
            slowest = qMax(slowest, elapsed);
            written = isWritten(arguments.at(0), key, number);
            if (!written && elapsed < shortestWait) {
                return say("refused after", elapsed);
            }
        }
    }
    return say("slowest", slowest);
}

int rewrite(const QStringList& arguments)
{
    const FakeApplicationInfo info;
    TextSettings settings(arguments.at(0));
    say("writing", 1);
    for (int number = 0;; ++number) {
        settings.text = QString(arguments.at(1).toInt(), QLatin1Char(char('a' + number % 26)));
        settings.writeSettings();
    }
}

int writeLimited(const QStringList& arguments)
{
    const FakeApplicationInfo info;
    TextSettings settings(arguments.at(0));
    settings.text = QString(arguments.at(2).toInt(), QLatin1Char('x'));
    if (!limitFileSize(arguments.at(1).toULongLong())) {
        return 1;
    }
    settings.writeSettings();
    return 0;
}

/// Writes another object of the same file within its own write.
class OuterSettings : public TextSettings
{
public:
    OuterSettings(const QString& file, TextSettings& inner)
        : TextSettings(file, QStringLiteral("outer")), m_inner(inner)
    {}

protected:
    void doWriteSettings(QSettings& settings) override
    {
        m_inner.writeSettings();
        TextSettings::doWriteSettings(settings);
    }

private:
    TextSettings& m_inner;
};

int writeWithinLimited(const QStringList& arguments)
{
    const FakeApplicationInfo info;
    TextSettings inner(arguments.at(0));
    OuterSettings outer(arguments.at(0), inner);
    inner.text = outer.text = QString(arguments.at(2).toInt(), QLatin1Char('x'));
    if (!limitFileSize(arguments.at(1).toULongLong())) {
        return 1;
    }
    outer.writeSettings();
    return 0;
}

int store(const QStringList& arguments)
{
    const FakeApplicationInfo info;
    VariousSettings settings(arguments.at(0), arguments.at(1).toUInt());
    settings.writeSettings();
    return 0;
}

int show(const QStringList& arguments)
{
    const FakeApplicationInfo info;
    VariousSettings settings(arguments.at(0), 0);
    settings.readSettings();
    for (const QString& line : std::as_const(settings.read)) {
        std::puts(line.toUtf8().constData());
    }
    return 0;
}

struct Command
{
    int argumentCount;
    std::function<int(const QStringList&)> run;
};

const std::map<QString, Command>& commands()
{
    // clang-format off
    static const std::map<QString, Command> table = {
        {QStringLiteral("try"),           {1, tryLock}},
        {QStringLiteral("hold"),          {1, holdLock}},
        {QStringLiteral("hold-with-child"), {1, holdLockWithChild}},
        {QStringLiteral("lock-for-ever"), {1, lockForEver}},
        {QStringLiteral("race"),          {2, race}},
        {QStringLiteral("create"),        {1, create}},
        {QStringLiteral("change"),        {3, change}},
        {QStringLiteral("write"),         {3, write}},
        {QStringLiteral("rewrite"),       {2, rewrite}},
        {QStringLiteral("write-limited"), {3, writeLimited}},
        {QStringLiteral("write-within-limited"), {3, writeWithinLimited}},
        {QStringLiteral("store"),         {2, store}},
        {QStringLiteral("show"),          {1, show}},
    };
    // clang-format on
    return table;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QStringList arguments = QCoreApplication::arguments().mid(1);
    const auto command = commands().find(arguments.value(0));
    if (command == commands().cend() || arguments.size() != command->second.argumentCount + 1) {
        std::fprintf(stderr, "kest_settings_process: bad command\n");
        return 99;
    }
    arguments.removeFirst();
    return command->second.run(arguments);
}

#pragma once

#include <QProcess>

namespace suite {

// One run of the engine, in a process group of its own: whatever the engine starts can be ended
// with it, and the engine ends when this program is killed.
class EngineProcess : public QProcess
{
    Q_OBJECT

public:
    explicit EngineProcess(QObject* parent = nullptr);

    // Starts the program on two files of its working folder.
    void startEngine(const QString& program, const QString& deckFile, const QString& outputFile);

    // Sends a signal to the whole group.
    void signalGroup(int signal) const;

    // True while any process of the group is there.
    [[nodiscard]] bool isGroupAlive() const;

    // What the engine printed on its channels, up to a limit.
    [[nodiscard]] QString printedText() const;

protected:
    void setupChildProcess() override;

private:
    void drain();

    qint64 m_parent = 0;
    qint64 m_group = 0;
    QByteArray m_printed;
};

} // namespace suite

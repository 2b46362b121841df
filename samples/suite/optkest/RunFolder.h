#pragma once

#include <QLockFile>
#include <QString>

/// The folder that holds the runs of an optimisation, a folder each, and its state. One
/// optimisation at a time has it. Files that are not the optimisation's are left alone.
class RunFolder
{
public:
    /// The number that stands for the last run, of the tuned model.
    static constexpr int finalRun = 0;

    explicit RunFolder(const QString& path);

    /// Releases the folder, and removes it when it is empty.
    ~RunFolder();

    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;
    RunFolder(RunFolder&&) = delete;
    RunFolder& operator=(RunFolder&&) = delete;

    /// Makes the folder and takes it; an error text on failure.
    [[nodiscard]] QString open();

    [[nodiscard]] QString statePath() const;

    /// A file of a run by its suffix: "nec", "out" or "csv".
    [[nodiscard]] QString filePath(int run, const QString& suffix) const;

    /// Makes a run's folder, with nothing but this deck in it; an error text on failure.
    [[nodiscard]] QString prepareRun(int run, const QByteArray& deck);

    void removeRun(int run);

    /// Removes all runs behind this one, and the state too if none is left.
    void removeRunsBehind(int run);

private:
    [[nodiscard]] QString takeLock();
    [[nodiscard]] QString folderOf(int run) const;

    QString m_path;
    QLockFile m_lock;
    bool m_isOpen = false;
};

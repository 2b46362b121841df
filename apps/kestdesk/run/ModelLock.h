#pragma once

#include <QString>

#include <memory>

class QLockFile;

/// Keeps a model to one run at a time, among all programs of this user: two runs would write over
/// each other's results. Symbolic links are followed.
class ModelLock
{
public:
    explicit ModelLock(const QString& model);
    ~ModelLock();

    /// False when another run has the model; true also where no lock can be made. A program that
    /// was killed has no model any more.
    bool take();

    void release();

    /// Who has the model, after take() has returned false: "process 123 on this machine".
    QString owner() const;

    /// Removes what programs that were killed have left.
    static void removeLeft();

private:
    std::unique_ptr<QLockFile> m_file;
};

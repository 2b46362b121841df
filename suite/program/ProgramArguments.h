// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace suite {

/// The command line of a program. Preserves file names: behind "--" a name that begins with "-" is
/// prefixed with "./", because Qt's application objects look for their options there, too, and a
/// name that Qt cannot decode keeps its bytes (see FileName::fromNative()).
///
/// Must live as long as the application object that is made with count() and values().
class ProgramArguments
{
public:
    ProgramArguments(int argc, char* argv[]);

    ProgramArguments(const ProgramArguments&) = delete;
    ProgramArguments& operator=(const ProgramArguments&) = delete;

    /// The arguments without the program's name, unchanged, for programs whose application object
    /// has no options.
    static QStringList given(int argc, char* argv[]);

    /// For the application object, which removes its own options.
    int& count() { return m_count; }
    char** values() { return m_values.data(); }

    /// The remaining arguments, the program's name first.
    QStringList words() const;

    /// A hint for an error message about the command line: that an argument would be a file if it
    /// were written in another way. Empty if there is none.
    QString hint() const;

private:
    std::vector<QByteArray> m_storage;
    std::vector<char*> m_values;
    int m_count;
};

} // namespace suite

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace suite {

/// What a program was called with. Keeps names of files what they are: behind "--" a name that
/// begins with "-" gets a "./" in front, as Qt's application objects look for their options there,
/// too, and a name that Qt cannot decode keeps its bytes (see FileName::fromNative()).
///
/// Must live as long as the application object that is made with count() and values().
class ProgramArguments
{
public:
    ProgramArguments(int argc, char* argv[]);

    ProgramArguments(const ProgramArguments&) = delete;
    ProgramArguments& operator=(const ProgramArguments&) = delete;

    /// The words behind the program's name just as they were given, for programs whose application
    /// object knows no options.
    static QStringList given(int argc, char* argv[]);

    /// For the application object, which takes the options out that it knows.
    int& count() { return m_count; }
    char** values() { return m_values.data(); }

    /// All that is left, the program's name first.
    QStringList words() const;

    /// What to add to an error message about the command line: that one of its words would be a
    /// file if it were written in another way. Empty when there is none.
    QString hint() const;

private:
    std::vector<QByteArray> m_storage;
    std::vector<char*> m_values;
    int m_count;
};

} // namespace suite

#include "RemoteHost.h"

#include "MachinesFile.h"
#include "PlainText.h"

#include <algorithm>

namespace suite {

namespace {

constexpr int largestPort = 65535;

bool isUser(const QString& text)
{
    return MachinesFile::isHost(text) && !text.contains(QLatin1Char(':'));
}

bool isPort(const QString& text)
{
    bool isNumber = false;
    const int port = text.toInt(&isNumber);
    return isNumber && port > 0 && port <= largestPort && text.at(0).isDigit();
}

bool isFolder(const QString& text)
{
    return text.startsWith(QLatin1Char('/')) &&
           std::all_of(text.begin(), text.end(),
                       [](QChar character) { return character.isPrint(); });
}

struct WordRow
{
    const char* name;
    bool (*isGood)(const QString& value);
    const char* expectation;
};

// clang-format off
constexpr WordRow wordTable[] = {
    {"user", isUser,   "a user's name"},
    {"port", isPort,   "a number from 1 to 65535"},
    {"home", isFolder, "an absolute path"},
};
// clang-format on

} // namespace

RemoteHost::RemoteHost(const QString& text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    readHost(words.value(0));
    for (int i = 1; i < words.size(); ++i) {
        readWord(words.at(i));
    }
}

void RemoteHost::readHost(const QString& word)
{
    const int at = word.indexOf(QLatin1Char('@'));
    m_name = word.mid(at + 1);
    if (at >= 0) {
        readWord(QStringLiteral("user=") + word.left(at));
    }
    if (!MachinesFile::isHost(m_name)) {
        complain(QStringLiteral("is no host's name or address"), word);
    }
}

void RemoteHost::readWord(const QString& word)
{
    const int split = word.indexOf(QLatin1Char('='));
    const QString name = word.left(split);
    const QString value = word.mid(split + 1);
    const auto* row =
        std::find_if(std::begin(wordTable), std::end(wordTable),
                     [&name](const WordRow& each) { return name == QLatin1String(each.name); });
    if (split < 0 || row == std::end(wordTable)) {
        complain(QStringLiteral("is none of user=NAME, port=NUMBER and home=FOLDER"), word);
    } else if (value.isEmpty() || !row->isGood(value)) {
        complain(QStringLiteral("does not hold ") + QLatin1String(row->expectation), word);
    } else {
        m_words.insert(name, value);
    }
}

void RemoteHost::complain(const QString& problem, const QString& word)
{
    if (m_error.isEmpty()) {
        m_error = QStringLiteral("'%1' in the option --remote-host %2").arg(excerpt(word), problem);
    }
}

QStringList RemoteHost::sshWords() const
{
    QStringList result;
    if (m_words.contains(QStringLiteral("port"))) {
        result += {QStringLiteral("-p"), m_words.value(QStringLiteral("port"))};
    }
    if (m_words.contains(QStringLiteral("user"))) {
        result += {QStringLiteral("-l"), m_words.value(QStringLiteral("user"))};
    }
    return result + QStringList{QStringLiteral("--"), m_name};
}

} // namespace suite

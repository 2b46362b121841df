// SPDX-License-Identifier: MIT
#include "ProgramArguments.h"

#include "FileName.h"

#include <QFileInfo>

#include <algorithm>

namespace suite {

ProgramArguments::ProgramArguments(int argc, char* argv[]) : m_count(argc)
{
    bool isBehindOptions = false;
    for (int i = 0; i < argc; ++i) {
        const QByteArray word = argv[i];
        const bool looksLikeOption = word.startsWith('-') && word.size() > 1;
        m_storage.push_back(isBehindOptions && looksLikeOption ? "./" + word : word);
        isBehindOptions = isBehindOptions || (i > 0 && word == "--");
    }
    for (QByteArray& word : m_storage) {
        m_values.push_back(word.data());
    }
    m_values.push_back(nullptr);
}

QStringList ProgramArguments::given(int argc, char* argv[])
{
    QStringList result;
    for (int i = 1; i < argc; ++i) {
        result.append(FileName::fromNative(argv[i]));
    }
    return result;
}

QStringList ProgramArguments::words() const
{
    QStringList result;
    std::transform(m_values.begin(), m_values.begin() + m_count, std::back_inserter(result),
                   [](const char* word) { return FileName::fromNative(word); });
    return result;
}

QString ProgramArguments::hint() const
{
    const QStringList all = words().mid(1);
    const auto found = std::find_if(all.begin(), all.end(), [](const QString& word) {
        return word.startsWith(QLatin1Char('-')) && QFileInfo(word).isFile();
    });
    return found == all.end()
               ? QString()
               : QStringLiteral("If the file \"%1\" is meant, write \"./%1\".").arg(*found);
}

} // namespace suite

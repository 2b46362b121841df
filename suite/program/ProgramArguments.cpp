// SPDX-License-Identifier: MIT
#include "ProgramArguments.h"

#include "FileName.h"
#include "NativeArguments.h"

#include <QFileInfo>

#include <algorithm>

namespace suite {

ProgramArguments::ProgramArguments(int argc, char* argv[])
    : m_storage(NativeArguments::words(argc, argv)), m_count(static_cast<int>(m_storage.size()))
{
    bool isBehindOptions = false;
    for (std::size_t i = 0; i < m_storage.size(); ++i) {
        const QByteArray word = m_storage[i];
        const bool looksLikeOption = word.startsWith('-') && word.size() > 1;
        m_storage[i] = isBehindOptions && looksLikeOption ? "./" + word : word;
        isBehindOptions = isBehindOptions || (i > 0 && word == "--");
    }
    for (QByteArray& word : m_storage) {
        m_values.push_back(word.data());
    }
    m_values.push_back(nullptr);
}

QStringList ProgramArguments::given(int argc, char* argv[])
{
    const std::vector<QByteArray> words = NativeArguments::words(argc, argv);
    QStringList result;
    std::transform(words.begin() + (words.empty() ? 0 : 1), words.end(), std::back_inserter(result),
                   FileName::fromNative);
    return result;
}

QStringList ProgramArguments::words() const
{
    QStringList result;
    std::transform(m_values.begin(), m_values.begin() + m_count, std::back_inserter(result),
                   FileName::fromNative);
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

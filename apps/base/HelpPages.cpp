// SPDX-License-Identifier: MIT
#include "HelpPages.h"

#include <InputFile.h>

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <utility>

namespace {

const QLatin1String scheme("kesthelp");
const QLatin1String suffix(".md");
constexpr qint64 largestPage = 16 << 20; // bytes; pictures are among the pages

} // namespace

HelpPages::HelpPages(QString directory) : m_directory(std::move(directory))
{}

QUrl HelpPages::address(const QString& page)
{
    QUrl result;
    result.setScheme(scheme);
    result.setPath(QLatin1Char('/') + page + suffix);
    return result;
}

bool HelpPages::isOwn(const QUrl& address)
{
    return address.scheme() == scheme;
}

std::optional<QByteArray> HelpPages::content(const QUrl& address) const
{
    const QString path =
        QFileInfo(m_directory + QLatin1Char('/') + address.path()).canonicalFilePath();
    const QString folder = QFileInfo(m_directory).canonicalFilePath();
    if (!isOwn(address) || folder.isEmpty() || !path.startsWith(folder + QLatin1Char('/'))) {
        return std::nullopt;
    }
    return suite::InputFile(path).read(largestPage);
}

QString HelpPages::missingPage(const QUrl& address) const
{
    QString page = address.path().mid(1);
    page.chop(page.endsWith(suffix) ? suffix.size() : 0);
    return tr("# This page is missing\n\n"
              "The installation has no help page `%1`. The pages are in this folder:\n\n"
              "    %2\n\n"
              "[To the contents](index.md)\n")
        .arg(page, QDir::toNativeSeparators(m_directory));
}

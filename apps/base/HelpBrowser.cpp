// SPDX-License-Identifier: MIT
#include "HelpBrowser.h"

#include <QImage>

#include <optional>
#include <utility>

namespace {

// In place of a picture that is not there. Without one Qt takes the name for that of a file.
QImage nothing()
{
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

HelpBrowser::HelpBrowser(HelpPages pages, QWidget* parent)
    : QTextBrowser(parent), m_pages(std::move(pages))
{
    setOpenLinks(false);
    setObjectName(QStringLiteral("helpBrowser"));
    setAccessibleName(tr("Help page"));
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::onAnchorClicked);
}

void HelpBrowser::showPage(const QString& page)
{
    setSource(HelpPages::address(page), QTextDocument::MarkdownResource);
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name)
{
    const QUrl address = source().resolved(name);
    const std::optional<QByteArray> content = m_pages.content(address);
    if (type == QTextDocument::ImageResource) {
        const QImage image = QImage::fromData(content.value_or(QByteArray()));
        return image.isNull() ? nothing() : image;
    }
    if (type == QTextDocument::MarkdownResource) {
        return content ? QString::fromUtf8(*content) : m_pages.missingPage(address);
    }
    return QString();
}

void HelpBrowser::onAnchorClicked(const QUrl& address)
{
    const QUrl target = source().resolved(address);
    if (HelpPages::isOwn(target)) {
        setSource(target, QTextDocument::MarkdownResource);
    } else {
        Q_EMIT leftToTheUser(target);
    }
}

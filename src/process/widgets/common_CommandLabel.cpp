// SPDX-License-Identifier: MIT
#include "common_CommandLabel.h"

#include "common_ImagePlaceholder.h"

#include <QAction>
#include <QLabel>
#include <QTextDocument>
#include <QUrl>

namespace {

// The time that a label needs for tables in tables doubles with each of them.
Qt::TextFormat formatOf(const QString& text)
{
    constexpr int mostTables = 4;
    return text.count(QStringLiteral("<table"), Qt::CaseInsensitive) > mostTables ? Qt::PlainText
                                                                                  : Qt::AutoText;
}

// A label reads the images and style sheets that rich text names, also by relative names. Its
// document exists as soon as it has a text.
void refuseResources(const QLabel& label)
{
    auto* const document = label.findChild<QTextDocument*>();
    if (document) {
        document->setBaseUrl(QUrl(QStringLiteral("nowhere:/")));
        common_ImagePlaceholder::install(*document);
    }
}

} // namespace

QLabel* common_CommandLabel::create()
{
    auto* const label = new QLabel;
    label->setObjectName(QStringLiteral("infoLabel"));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse |
                                   Qt::LinksAccessibleByKeyboard);
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setScaledContents(false);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignVCenter);
    label->hide();
    label->setContextMenuPolicy(Qt::ActionsContextMenu);
    label->addAction(new QAction(QStringLiteral("Copy command"), label));
    return label;
}

void common_CommandLabel::setText(QLabel& label, const QString& text)
{
    label.setTextFormat(formatOf(text));
    label.setText(text);
    refuseResources(label);
}

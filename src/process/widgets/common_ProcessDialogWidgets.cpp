// SPDX-License-Identifier: MIT
#include "common_ProcessDialogWidgets.h"

#include "common_ProcessDialogServices.h"

#include <common_ProcessDialogIcons.h>

#include <QFont>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMovie>
#include <QProgressBar>
#include <QPushButton>

namespace services = common_ProcessDialogServices;

namespace {

constexpr int iconSize = 16;
constexpr int outputColumns = 82;
constexpr int lastPercent = 100;

QPushButton* createButton(const char* objectName, const char* text)
{
    auto* const button = new QPushButton(QLatin1String(text));
    button->setObjectName(QLatin1String(objectName));
    return button;
}

} // namespace

QProgressBar* common_ProcessDialogWidgets::createProgressBar(const char* objectName)
{
    auto* const bar = new QProgressBar;
    bar->setObjectName(QLatin1String(objectName));
    bar->setRange(0, lastPercent);
    return bar;
}

QLabel* common_ProcessDialogWidgets::createBusyLabel()
{
    auto* const label = new QLabel;
    const QString animation =
        services::installationDirectory() + QStringLiteral("/images/shared/busyindicator.gif");
    label->setMovie(new QMovie(animation, QByteArray(), label));
    return label;
}

QGroupBox* common_ProcessDialogWidgets::createCountBox(const char* iconName, QLabel* count,
                                                       const QString& text)
{
    auto* const box = new QGroupBox;
    box->setFlat(true);
    box->hide();
    auto* const picture = new QLabel;
    picture->setPixmap(services::icon(iconName).pixmap(iconSize, iconSize));
    auto* const layout = new QHBoxLayout(box);
    layout->addWidget(picture);
    layout->addWidget(count);
    layout->addWidget(new QLabel(text), 1);
    return box;
}

QPushButton* common_ProcessDialogWidgets::createDetailsButton()
{
    QPushButton* const button = createButton("buttonDetails", "&Details");
    button->setFlat(true);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setIcon(services::detailsIcon());
    return button;
}

QPushButton* common_ProcessDialogWidgets::createOkButton()
{
    QPushButton* const button = createButton("buttonOk", "OK");
    button->setAutoDefault(true);
    button->setDefault(true);
    button->setIcon(services::icon(common_ProcessDialogIcons::play));
    return button;
}

QPushButton* common_ProcessDialogWidgets::createStopButton()
{
    QPushButton* const button = createButton("buttonStop", "Stop");
    button->setAutoDefault(true);
    button->setEnabled(false);
    button->setIcon(services::icon(common_ProcessDialogIcons::exclude));
    return button;
}

QFont common_ProcessDialogWidgets::outputFont()
{
    QFont font(QStringLiteral("Courier"), 9, QFont::Normal);
    font.setStyleHint(QFont::TypeWriter);
    return font;
}

int common_ProcessDialogWidgets::outputWidth(const QFont& font)
{
    return outputColumns * QFontMetrics(font).horizontalAdvance(QLatin1Char('X'));
}

// SPDX-License-Identifier: MIT
#include "CureBar.h"

#include "ReasonText.h"
#include "ToolTip.h"

#include <VisibleText.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

CureBar::CureBar(const char* labelName, const char* buttonName, QWidget* parent)
    : QWidget(parent), m_label(new QLabel(this)), m_button(new QPushButton(this))
{
    m_label->setObjectName(QLatin1String(labelName));
    m_label->setTextFormat(Qt::PlainText); // names of files are in it
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // cut, not widened
    m_button->setObjectName(QLatin1String(buttonName));
    m_button->setAutoDefault(false);
    m_button->hide();
    connect(m_button, &QPushButton::clicked, this, &CureBar::use);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_button);
}

void CureBar::setProblem(const QString& message, const RunRecord& record)
{
    m_message = message;
    m_record = record;
    m_cure = ProblemCures::find(message);
    setText(m_cure == nullptr ? QString()
                              : suite::visibleText(ReasonText::shown(message.trimmed())));
    if (m_cure != nullptr) {
        m_button->setText(ProblemCures::shown(m_cure->button));
        m_button->setToolTip(ProblemCures::shown(m_cure->hint));
        m_button->setAccessibleDescription(ProblemCures::shown(m_cure->hint));
    }
    m_button->setVisible(m_cure != nullptr);
    m_button->updateGeometry();
}

void CureBar::setText(const QString& text)
{
    m_label->setText(text);
    m_label->setToolTip(ToolTip::of(text));
}

void CureBar::use()
{
    if (m_cure != nullptr) {
        Q_EMIT cureRequested(*m_cure, m_message, m_record);
    }
}

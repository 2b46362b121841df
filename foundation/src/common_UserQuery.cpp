// SPDX-License-Identifier: MIT
#include <common_UserQuery.h>

#include <common_IApplication.h>
#include <common_ServiceOf.h>

#include <QApplication>
#include <QPushButton>

#include <algorithm>
#include <cstdio>

namespace {

bool canAsk()
{
    const bool nonInteractive = common_ServiceOf<common_IApplication>::hasService() &&
                                GET_SERVICE(common_IApplication)->isNonInteractive();
    return !nonInteractive && qobject_cast<QApplication*>(QCoreApplication::instance());
}

// Indexed by common_UserQuery::MessageType.
constexpr QMessageBox::Icon icons[] = {QMessageBox::Critical, QMessageBox::Warning,
                                       QMessageBox::Information};

} // namespace

common_UserQuery::common_UserQuery(const QString& title, const QString& text, MessageType type,
                                   QWidget* parent, const QString& details)
    : m_title(title), m_text(text), m_type(type), m_parent(parent), m_details(details)
{}

void common_UserQuery::addOption(const QString& label, QMessageBox::ButtonRole role,
                                 OptionDefaultType defaultType, const QString& tooltip)
{
    m_options.append({label, role, defaultType, tooltip});
}

int common_UserQuery::display()
{
    if (!canAsk()) {
        print();
        return escapeAnswer();
    }
    // Not on the stack: the parent may be destroyed during the question, and the box with it.
    const QPointer<QMessageBox> box =
        new QMessageBox(icons[m_type], m_title, m_text, QMessageBox::NoButton, m_parent);
    box->setDetailedText(m_details);
    for (const Option& option : qAsConst(m_options)) {
        QPushButton* const button = box->addButton(option.label, option.role);
        button->setToolTip(option.tooltip);
        if (option.defaultType == EnterDefault) {
            box->setDefaultButton(button);
        } else if (option.defaultType == EscapeDefault) {
            box->setEscapeButton(button);
        }
    }
    box->exec();
    QAbstractButton* const clicked = box ? box->clickedButton() : nullptr;
    const int answer = clicked ? box->buttonRole(clicked) : escapeAnswer();
    delete box;
    return answer;
}

void common_UserQuery::print() const
{
    for (const QString& part : {m_title, m_text, m_details}) {
        if (!part.isEmpty()) {
            std::fprintf(stderr, "%s\n", part.toLocal8Bit().constData());
        }
    }
}

// The same choice as in QMessageBox: the last button set for the Escape key, else the only button,
// else the only one with the reject role, else the only one with the no role.
int common_UserQuery::escapeAnswer() const
{
    if (m_options.isEmpty()) {
        return QMessageBox::AcceptRole;
    }
    const auto escape =
        std::find_if(m_options.crbegin(), m_options.crend(),
                     [](const Option& option) { return option.defaultType == EscapeDefault; });
    if (escape != m_options.crend()) {
        return escape->role;
    }
    if (m_options.size() == 1) {
        return m_options.first().role;
    }
    for (const QMessageBox::ButtonRole role : {QMessageBox::RejectRole, QMessageBox::NoRole}) {
        if (std::count_if(m_options.cbegin(), m_options.cend(),
                          [role](const Option& option) { return option.role == role; }) == 1) {
            return role;
        }
    }
    return QMessageBox::RejectRole;
}

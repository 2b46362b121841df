// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QTextBrowser>
#include <QToolButton>
#include <QWidget>

#include <initializer_list>

/// The texts that a window shows or reads out, with those of its menus, its tool tips and its
/// children; without those that Qt or the library's own windows give, and without what the user
/// edits.
class ShownTexts
{
public:
    static QStringList of(const QWidget& window)
    {
        ShownTexts result;
        result.addWidget(window);
        const QList<QWidget*> widgets = window.findChildren<QWidget*>();
        for (const QWidget* const widget : widgets) {
            result.addWidget(*widget);
        }
        const QList<QAction*> actions = window.findChildren<QAction*>();
        for (const QAction* const action : actions) {
            if (!isOfLibrary(*action)) {
                result.add({action->text(), action->toolTip(), action->statusTip()});
            }
        }
        result.m_texts.removeDuplicates();
        return result.m_texts;
    }

    /// The menus of a window with two entries for the same letter, each with its entries.
    static QStringList ambiguousMenus(const QWidget& window)
    {
        QStringList result;
        const QList<QWidget*> widgets = window.findChildren<QWidget*>();
        for (const QWidget* const widget : widgets) {
            const bool isMenu = qobject_cast<const QMenu*>(widget) != nullptr ||
                                qobject_cast<const QMenuBar*>(widget) != nullptr;
            if (isMenu && hasTwice(letters(*widget))) {
                result.append(entries(*widget).join(QLatin1Char('|')));
            }
        }
        return result;
    }

private:
    void add(std::initializer_list<QString> texts)
    {
        for (const QString& text : texts) {
            if (!text.isEmpty()) {
                m_texts.append(text);
            }
        }
    }

    void addWidget(const QWidget& widget)
    {
        if (isOfQt(widget) || isOfLibrary(widget)) {
            return;
        }
        add({widget.windowTitle(), widget.toolTip(), widget.statusTip(), widget.whatsThis(),
             widget.accessibleName(), widget.accessibleDescription()});
        if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
            add({label->text()});
        } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
            add({button->text()});
        } else if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
            add({group->title()});
        } else if (const auto* menu = qobject_cast<const QMenu*>(&widget)) {
            add({menu->title()});
        } else if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
            add({edit->placeholderText()});
        } else if (const auto* bar = qobject_cast<const QStatusBar*>(&widget)) {
            add({bar->currentMessage()});
        } else if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                add({tabs->tabText(tab), tabs->tabToolTip(tab)});
            }
        } else if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
            for (int item = 0; item < box->count(); ++item) {
                add({box->itemText(item)});
            }
        } else if (const auto* header = qobject_cast<const QHeaderView*>(&widget)) {
            addHeader(*header);
        } else if (const auto* const page = qobject_cast<const QTextBrowser*>(&widget)) {
            addPage(*page);
        } else if (const auto* const table = qobject_cast<const QTableView*>(&widget)) {
            addCells(*table);
        } else if (const auto* list = qobject_cast<const QListWidget*>(&widget)) {
            for (int row = 0; row < list->count(); ++row) {
                add({list->item(row)->text(), list->item(row)->toolTip()});
            }
        }
    }

    void addHeader(const QHeaderView& header)
    {
        for (int section = 0; header.model() != nullptr && section < header.count(); ++section) {
            for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole)}) {
                add({header.model()->headerData(section, header.orientation(), role).toString()});
            }
        }
    }

    void addPage(const QTextBrowser& page)
    {
        if (page.inherits("HelpBrowser")) {
            return; // the documentation
        }
        const QStringList lines = page.toPlainText().split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            add({line.trimmed()});
        }
    }

    void addCells(const QTableView& table)
    {
        const QAbstractItemModel* const model = table.model();
        for (int row = 0; model != nullptr && row < model->rowCount(); ++row) {
            for (int column = 0; column < model->columnCount(); ++column) {
                const QModelIndex index = model->index(row, column);
                for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole),
                                       int(Qt::AccessibleDescriptionRole)}) {
                    add({index.data(role).toString()});
                }
            }
        }
    }

    // Classes of the library have its prefix.
    static bool isOfLibrary(const QObject& object)
    {
        const QObject* each = &object;
        while (
            each != nullptr &&
            !QLatin1String(each->metaObject()->className()).startsWith(QLatin1String("common_"))) {
            each = each->parent();
        }
        return each != nullptr;
    }

    // Buttons with usual texts, and parts of Qt's own widgets.
    static bool isOfQt(const QWidget& widget)
    {
        const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
        const QWidget* const parent = widget.parentWidget();
        const auto* const box = qobject_cast<const QDialogButtonBox*>(parent);
        if (qobject_cast<const QTabBar*>(parent) != nullptr) {
            return true; // scrolls the tabs
        }
        if (button != nullptr && box != nullptr) {
            return box->standardButton(const_cast<QAbstractButton*>(button)) !=
                   QDialogButtonBox::NoButton;
        }
        return widget.objectName().startsWith(QLatin1String("qt_")) &&
               qobject_cast<const QLabel*>(&widget) == nullptr;
    }

    static QStringList entries(const QWidget& menu)
    {
        QStringList result;
        const QList<QAction*> actions = menu.actions();
        for (const QAction* const action : actions) {
            if (action->isVisible() && !action->isSeparator()) {
                result.append(action->text());
            }
        }
        return result;
    }

    static QStringList letters(const QWidget& menu)
    {
        QStringList result;
        const QStringList texts = entries(menu);
        for (QString text : texts) {
            text.remove(QStringLiteral("&&"));
            const QString marked = text.section(QLatin1Char('&'), 1, 1);
            if (!marked.isEmpty()) {
                result.append(marked.at(0).toLower());
            }
        }
        return result;
    }

    static bool hasTwice(QStringList letters) { return letters.removeDuplicates() > 0; }

    QStringList m_texts;
};

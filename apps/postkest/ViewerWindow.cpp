// SPDX-License-Identifier: MIT
#include "ViewerWindow.h"

#include "Export.h"
#include "FileDrop.h"
#include "HelpMenu.h"
#include "OpenDialog.h"
#include "RecentMenu.h"
#include "ResultView.h"
#include "ToolTip.h"
#include "WindowGeometry.h"
#include "WindowTitle.h"

#include <VisibleText.h>

#include <common_HelpClient.h>
#include <common_IApplicationInfo.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>
#include <common_recent_file_settings.h>

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QListWidget>
#include <QMenuBar>
#include <QSignalBlocker>
#include <QStatusBar>

#include <algorithm>

namespace {

const QString applicationName = QStringLiteral("postkest");

QIcon icon(const QString& name)
{
    return GET_SERVICE(common_IIconUtility)->getIcon(name);
}

QIcon colourIcon(const QColor& colour)
{
    constexpr int side = 12;
    QPixmap pixmap(side, side);
    pixmap.fill(colour);
    return QIcon(pixmap);
}

} // namespace

ViewerWindow::ViewerWindow(const QStringList& paths)
    : m_settings(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory(), applicationName)
    , m_watch(new ResultWatch(this))
{
    setObjectName(QStringLiteral("postkestWindow"));
    setWindowTitle(applicationName);
    setWindowIcon(icon(applicationName));
    connect(new FileDrop(this), &FileDrop::dropped, this, &ViewerWindow::openResults);
    makeContent();
    makeFileMenu();
    makeViewMenu();
    HelpMenu::addTo(*this, tr("Shows what runs of solver components found."));
    m_settings.readSettings();
    WindowGeometry::restore(*this, *m_settings.geometry());
    connect(m_watch, &ResultWatch::changed, this, &ViewerWindow::reload);
    openResults(paths);
}

ViewerWindow::~ViewerWindow() = default;

void ViewerWindow::makeContent()
{
    m_view = new ResultView(this);
    setCentralWidget(m_view);
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("resultList"));
    m_list->setAccessibleName(tr("Results"));
    const int side = m_list->fontMetrics().height();
    m_list->setIconSize(QSize(side, side));
    connect(m_list, &QListWidget::itemChanged, this, &ViewerWindow::noteVisibility);
    auto* dock = new QDockWidget(tr("Results"), this);
    dock->setObjectName(QStringLiteral("resultDock"));
    dock->setFeatures(QDockWidget::DockWidgetMovable);
    dock->setWidget(m_list);
    addDockWidget(Qt::LeftDockWidgetArea, dock);
    GET_SERVICE(common_HelpClient)->registerPage(this, applicationName);
}

void ViewerWindow::makeFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    QAction* open = menu->addAction(icon(QStringLiteral("open")), tr("&Open results..."), this,
                                    &ViewerWindow::chooseResults, QKeySequence::Open);
    open->setObjectName(QStringLiteral("openAction"));
    auto* recent = new RecentMenu(menu, m_settings.recentFiles());
    recent->setIcon(icon(QStringLiteral("recent")));
    connect(recent, &RecentMenu::fileChosen, this,
            [this](const QString& path) { openResults({path}); });
    menu->addMenu(recent);
    QAction* save = menu->addAction(tr("&Export..."), this, &ViewerWindow::exportView,
                                    QKeySequence(QStringLiteral("Ctrl+E")));
    save->setObjectName(QStringLiteral("exportAction"));
    menu->addSeparator();
    menu->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence(QStringLiteral("Ctrl+Q")));
}

void ViewerWindow::makeViewMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    QAction* again = menu->addAction(tr("&Reload"), this, &ViewerWindow::reloadAll,
                                     QKeySequence(QStringLiteral("F5")));
    again->setObjectName(QStringLiteral("reloadAction"));
    QAction* remove = menu->addAction(tr("Re&move result"), this, &ViewerWindow::removeSelected,
                                      QKeySequence::Delete);
    remove->setObjectName(QStringLiteral("removeAction"));
}

void ViewerWindow::openResults(const QStringList& paths)
{
    for (const QString& path : paths) {
        const Result result = Result::read(path);
        const auto known =
            std::find_if(m_results.begin(), m_results.end(),
                         [&result](const Result& each) { return each.path == result.path; });
        if (known != m_results.end()) {
            reload(result.path);
            continue;
        }
        const QSignalBlocker blocker(m_list);
        m_results.append(result);
        auto* item = new QListWidgetItem(result.shownName(), m_list);
        item->setCheckState(Qt::Checked);
        updateItem(m_results.size() - 1);
        m_watch->add(result.path);
        if (result.error.isEmpty()) {
            m_settings.recentFiles()->addRecentFile(result.path);
        }
    }
    showResults();
}

// Where the user works: results are together, and so is what is made of them.
QString ViewerWindow::folder() const
{
    return m_results.isEmpty() ? QString() : QFileInfo(m_results.last().path).absolutePath();
}

void ViewerWindow::chooseResults()
{
    openResults(
        OpenDialog::files(this, tr("Open results"), folder(), tr("Results (*.csv);;All (*)")));
}

void ViewerWindow::exportView()
{
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Export"), QDir(folder()).filePath(QStringLiteral("results.png")),
        tr("Picture (*.png);;Drawing (*.svg);;Table (*.csv)"));
    if (path.isEmpty()) {
        return;
    }
    const QString error = Export::write(path, *m_view, visibleResults(), m_results);
    if (error.isEmpty()) {
        statusBar()->showMessage(tr("Written: %1").arg(suite::visiblePath(path)));
    } else {
        common_UserQuery(tr("Not exported"), error, common_UserQuery::Error, this, QString())
            .display();
    }
}

void ViewerWindow::reloadAll()
{
    const QVector<Result> results = m_results;
    for (const Result& result : results) {
        reload(result.path);
    }
}

void ViewerWindow::reload(const QString& path)
{
    for (int place = 0; place < m_results.size(); ++place) {
        if (m_results.at(place).path == path) {
            m_results[place] = Result::read(path);
            updateItem(place);
            statusBar()->showMessage(tr("Read again: %1").arg(m_results.at(place).shownName()));
        }
    }
    showResults();
}

void ViewerWindow::removeSelected()
{
    const int place = m_list->currentRow();
    if (place >= 0) {
        const QSignalBlocker blocker(m_list);
        delete m_list->takeItem(place);
        m_results.removeAt(place);
        showResults();
    }
}

void ViewerWindow::noteVisibility(QListWidgetItem* /*item*/)
{
    showResults();
}

void ViewerWindow::showResults()
{
    m_view->setResults(visibleResults());
    const QVector<Result> shown = visibleResults();
    int colour = 0;
    const QSignalBlocker blocker(m_list);
    for (int place = 0; place < m_results.size(); ++place) {
        QListWidgetItem* item = m_list->item(place);
        const bool isDrawn =
            item->checkState() == Qt::Checked && m_results.at(place).error.isEmpty();
        item->setIcon(isDrawn
                          ? colourIcon(m_view->colour(colour++))
                          : icon(m_results.at(place).error.isEmpty() ? QStringLiteral("result")
                                                                     : QStringLiteral("fault")));
    }
    setWindowTitle(shown.isEmpty()
                       ? applicationName
                       : WindowTitle::of(shown.last().path, QStringLiteral(" - postkest")));
}

void ViewerWindow::updateItem(int place)
{
    const QSignalBlocker blocker(m_list);
    const Result& result = m_results.at(place);
    const QString path = QDir::toNativeSeparators(result.path);
    m_list->item(place)->setToolTip(ToolTip::of(
        result.error.isEmpty() ? path : tr("%1\nNot shown: %2").arg(path, result.error)));
    if (!result.error.isEmpty()) {
        statusBar()->showMessage(tr("%1 is not shown: %2").arg(result.shownName(), result.error));
    }
}

QVector<Result> ViewerWindow::visibleResults() const
{
    QVector<Result> result;
    for (int place = 0; place < m_results.size(); ++place) {
        if (m_list->item(place)->checkState() == Qt::Checked &&
            m_results.at(place).error.isEmpty()) {
            result.append(m_results.at(place));
        }
    }
    return result;
}

void ViewerWindow::closeEvent(QCloseEvent* event)
{
    WindowGeometry::save(*this, *m_settings.geometry());
    m_settings.writeSettings();
    QMainWindow::closeEvent(event);
}

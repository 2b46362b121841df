// SPDX-License-Identifier: MIT
#include "EditorWindow.h"

#include "DeckCheck.h"
#include "DeckEditor.h"
#include "DeckHighlighter.h"
#include "FileDrop.h"
#include "FindingMender.h"
#include "HelpMenu.h"
#include "OpenDialog.h"
#include "RecentMenu.h"
#include "WindowGeometry.h"
#include "WindowTitle.h"

#include <common_HelpClient.h>
#include <common_IApplicationInfo.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>
#include <common_recent_file_settings.h>

#include <ModelFile.h>
#include <VisibleText.h>

#include <QAction>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QString applicationName = QStringLiteral("editkest");
constexpr int lineRole = Qt::UserRole;

QIcon icon(const QString& name)
{
    return GET_SERVICE(common_IIconUtility)->getIcon(name);
}

// clang-format off
const struct { suite::Severity severity; const char* icon; } severityIcons[] = {
    {suite::Severity::Fatal,   "fault"},
    {suite::Severity::Error,   "fault"},
    {suite::Severity::Warning, "warning"},
    {suite::Severity::Notice,  "info"},
};
// clang-format on

QIcon severityIcon(suite::Severity severity)
{
    const auto* row =
        std::find_if(std::begin(severityIcons), std::end(severityIcons),
                     [severity](const auto& candidate) { return candidate.severity == severity; });
    return icon(QLatin1String(row->icon));
}

QString deckFilter()
{
    return EditorWindow::tr("Models (*.nec);;All (*)");
}

bool isYes(common_UserQuery& query)
{
    query.addOption(EditorWindow::tr("Yes"), QMessageBox::YesRole);
    query.addOption(EditorWindow::tr("No"), QMessageBox::NoRole, common_UserQuery::EscapeDefault);
    return query.display() == QMessageBox::YesRole;
}

} // namespace

EditorWindow::EditorWindow(const QString& model)
    : m_settings(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory(), applicationName)
    , m_check(new DeckCheck(this))
{
    setObjectName(QStringLiteral("editkestWindow"));
    setWindowIcon(icon(applicationName));
    connect(new FileDrop(this), &FileDrop::dropped, this, &EditorWindow::openDropped);
    makeContent();
    makeFileMenu();
    makeEditMenu();
    HelpMenu::addTo(*this, tr("Edits models and checks them while they are edited."));
    m_settings.readSettings();
    WindowGeometry::restore(*this, *m_settings.geometry());
    updateTitle();
    if (!model.isEmpty()) {
        openDeck(model);
    }
}

EditorWindow::~EditorWindow() = default;

void EditorWindow::makeContent()
{
    m_editor = new DeckEditor(this);
    auto* highlighter = new DeckHighlighter(m_editor->document(), m_editor->palette());
    connect(m_editor, &DeckEditor::paletteChanged, highlighter,
            [this, highlighter] { highlighter->setPalette(m_editor->palette()); });
    setCentralWidget(m_editor);
    auto* dock = new QDockWidget(tr("Findings"), this);
    dock->setObjectName(QStringLiteral("findingDock"));
    dock->setFeatures(QDockWidget::DockWidgetMovable);
    dock->setWidget(makeFindings());
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    m_summary = new QLabel(this);
    m_summary->setObjectName(QStringLiteral("summary"));
    statusBar()->addPermanentWidget(m_summary);
    connect(m_editor, &QPlainTextEdit::textChanged, this,
            [this] { m_check->request(m_file.bytes(m_editor->deck())); });
    connect(m_editor->document(), &QTextDocument::modificationChanged, this,
            &EditorWindow::updateTitle);
    connect(m_check, &DeckCheck::checked, this, &EditorWindow::showFindings);
    connect(m_findings, &QListWidget::itemActivated, this, &EditorWindow::goToFinding);
    GET_SERVICE(common_HelpClient)->registerPage(this, applicationName);
}

QWidget* EditorWindow::makeFindings()
{
    auto* panel = new QWidget(this);
    m_findings = new QListWidget(panel);
    m_findings->setObjectName(QStringLiteral("findingList"));
    m_findings->setAccessibleName(tr("Findings"));
    const int side = m_findings->fontMetrics().height();
    m_findings->setIconSize(QSize(side, side));
    m_mender = new FindingMender(m_editor, m_findings);
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_findings, 1);
    layout->addWidget(m_mender->makeButton(panel), 0, Qt::AlignRight);
    return panel;
}

void EditorWindow::makeFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->addAction(icon(QStringLiteral("open")), tr("&Open..."), this, &EditorWindow::chooseDeck,
                    QKeySequence::Open);
    auto* recent = new RecentMenu(menu, m_settings.recentFiles());
    recent->setIcon(icon(QStringLiteral("recent")));
    connect(recent, &RecentMenu::fileChosen, this, &EditorWindow::openDeck);
    menu->addMenu(recent);
    QAction* saveAction = menu->addAction(tr("&Save"));
    saveAction->setObjectName(QStringLiteral("saveAction"));
    saveAction->setShortcut(QKeySequence::Save);
    connect(saveAction, &QAction::triggered, this, &EditorWindow::save);
    menu->addAction(tr("Save &as..."), this, &EditorWindow::saveAs,
                    QKeySequence(QStringLiteral("Ctrl+Shift+S")))
        ->setObjectName(QStringLiteral("saveAsAction"));
    menu->addSeparator();
    menu->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence(QStringLiteral("Ctrl+Q")));
}

void EditorWindow::makeEditMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    menu->addAction(tr("&Undo"), m_editor, &QPlainTextEdit::undo, QKeySequence::Undo)
        ->setObjectName(QStringLiteral("undoAction"));
    menu->addAction(tr("&Redo"), m_editor, &QPlainTextEdit::redo, QKeySequence::Redo)
        ->setObjectName(QStringLiteral("redoAction"));
    menu->addSeparator();
    QAction* next = menu->addAction(tr("&Next finding"), this, &EditorWindow::goToNextFinding,
                                    QKeySequence(QStringLiteral("F8")));
    next->setObjectName(QStringLiteral("nextFindingAction"));
    menu->addAction(m_mender->action());
}

void EditorWindow::chooseDeck()
{
    const QString path = OpenDialog::file(this, tr("Open a model"),
                                          QFileInfo(m_file.path()).absolutePath(), deckFilter());
    if (!path.isEmpty()) {
        openDeck(path);
    }
}

bool EditorWindow::openDeck(const QString& path)
{
    if (!mayDiscard()) {
        return false;
    }
    const QString absolute = suite::ModelFile(path).path();
    if (!m_file.load(absolute)) {
        common_UserQuery(
            tr("Model not opened"),
            tr("%1\ncannot be edited: %2.").arg(suite::visiblePath(absolute), m_file.error()),
            common_UserQuery::Error, this, QString())
            .display();
        return false;
    }
    m_editor->setPlainText(m_file.text());
    m_editor->document()->setModified(false);
    m_settings.recentFiles()->addRecentFile(absolute);
    updateTitle();
    m_editor->setFocus();
    return true;
}

void EditorWindow::openDropped(const QStringList& paths)
{
    if (openDeck(paths.first()) && paths.size() > 1) {
        statusBar()->showMessage(
            tr("Of %1 models that were dropped, one was opened").arg(paths.size()));
    }
}

void EditorWindow::goToLine(int line)
{
    m_editor->goToLine(line);
}

bool EditorWindow::save()
{
    if (m_file.path().isEmpty()) {
        saveAs();
        return !m_editor->document()->isModified();
    }
    return mayOverwrite() && saveTo(m_file.path());
}

void EditorWindow::saveAs()
{
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save the model as"), m_file.path(), deckFilter());
    if (!path.isEmpty() && saveTo(path)) {
        m_settings.recentFiles()->addRecentFile(path);
    }
}

bool EditorWindow::saveTo(const QString& path)
{
    if (!m_file.save(path, m_editor->deck())) {
        common_UserQuery(
            tr("Model not saved"),
            tr("%1\ncannot be written: %2.").arg(suite::visiblePath(path), m_file.error()),
            common_UserQuery::Error, this, QString())
            .display();
        return false;
    }
    m_editor->document()->setModified(false);
    updateTitle();
    return true;
}

void EditorWindow::showFindings(const QVector<suite::Finding>& findings)
{
    m_editor->setFindings(findings);
    const int current = m_findings->currentRow();
    m_findings->clear();
    int errors = 0;
    int warnings = 0;
    for (const suite::Finding& finding : findings) {
        auto* item = new QListWidgetItem(severityIcon(finding.severity()),
                                         QStringLiteral("%1: ").arg(finding.number()) +
                                             finding.place().behind(finding.reason),
                                         m_findings);
        item->setData(lineRole, finding.line);
        const bool isError = finding.severity() == suite::Severity::Error ||
                             finding.severity() == suite::Severity::Fatal;
        errors += isError ? 1 : 0;
        warnings += finding.severity() == suite::Severity::Warning ? 1 : 0;
    }
    m_findings->setCurrentRow(std::min(current, m_findings->count() - 1));
    m_mender->setFindings(findings);
    m_summary->setText(tr("Errors: %1  Warnings: %2").arg(errors).arg(warnings));
}

void EditorWindow::goToFinding(QListWidgetItem* item)
{
    const int line = item->data(lineRole).toInt();
    if (line > 0) {
        m_editor->goToLine(line);
    }
}

// The next one that belongs to a line, from the top again behind the last.
void EditorWindow::goToNextFinding()
{
    const int count = m_findings->count();
    for (int step = 1; step <= count; ++step) {
        const int row = (m_findings->currentRow() + step) % count;
        if (m_findings->item(row)->data(lineRole).toInt() > 0) {
            m_findings->setCurrentRow(row);
            goToFinding(m_findings->item(row));
            return;
        }
    }
}

bool EditorWindow::mayDiscard()
{
    if (!m_editor->document()->isModified()) {
        return true;
    }
    common_UserQuery query(tr("Unsaved changes"), tr("The model has been changed. Save it?"),
                           common_UserQuery::Warning, this, QString());
    query.addOption(tr("&Save"), QMessageBox::AcceptRole, common_UserQuery::EnterDefault);
    query.addOption(tr("&Discard"), QMessageBox::DestructiveRole);
    query.addOption(tr("Cancel"), QMessageBox::RejectRole, common_UserQuery::EscapeDefault);
    const int answer = query.display();
    return answer == QMessageBox::DestructiveRole || (answer == QMessageBox::AcceptRole && save());
}

bool EditorWindow::mayOverwrite()
{
    if (!m_file.isChangedOutside()) {
        return true;
    }
    common_UserQuery query(tr("The file has changed"),
                           tr("%1\nwas changed by another program since it was opened "
                              "here. Replace what that wrote?")
                               .arg(suite::visiblePath(m_file.path())),
                           common_UserQuery::Warning, this, QString());
    return isYes(query);
}

void EditorWindow::updateTitle()
{
    const QString tail = QStringLiteral("[*] - editkest");
    setWindowTitle(m_file.path().isEmpty() ? tr("New model") + tail
                                           : WindowTitle::of(m_file.path(), tail));
    setWindowModified(m_editor->document()->isModified());
}

void EditorWindow::closeEvent(QCloseEvent* event)
{
    if (!mayDiscard()) {
        event->ignore();
        return;
    }
    WindowGeometry::save(*this, *m_settings.geometry());
    m_settings.writeSettings();
    event->accept();
}

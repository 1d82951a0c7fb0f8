#include "NotebookWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBar>

#include "FindBar.h"
#include "NotePage.h"

namespace {

Q_LOGGING_CATEGORY(fieldnotes, "fieldnotes")

QString fileFilter()
{
    return NotebookWindow::tr("Notes (*.md *.txt);;All files (*)");
}

} // namespace

NotebookWindow::NotebookWindow()
    : m_tools(addToolBar(tr("Tools")))
    , m_tabs(new QTabWidget)
    , m_findBar(new FindBar(*m_tabs))
    , m_saved(new QLabel)
    , m_words(new QLabel)
    , m_position(new QLabel)
{
    m_tools->setMovable(false);
    m_tools->setIconSize({20, 20});
    m_tabs->setDocumentMode(true);
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    connect(m_tabs, &QTabWidget::tabCloseRequested, this, &NotebookWindow::closeNote);
    connect(m_tabs, &QTabWidget::currentChanged, this, &NotebookWindow::showNote);
    addFileMenu();
    addEditMenu();
    addViewMenu();
    addHelpMenu();
    setCentralWidget(m_tabs);
    addToolBar(Qt::BottomToolBarArea, m_findBar);
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(m_saved);
    statusBar()->addPermanentWidget(m_words);
    statusBar()->addPermanentWidget(m_position);
    setContextMenuPolicy(Qt::NoContextMenu); // else it offers to hide the tool bar for good
    setPreferences(Preferences::load());
    setMinimumSize(520, 360);
    resize(1100, 720);
}

void NotebookWindow::openNote(const QString &path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    for (int i = 0; i < noteCount(); ++i) {
        if (pageAt(i)->path() == absolute)
            return m_tabs->setCurrentIndex(i);
    }
    NotePage *page = addPage(QFileInfo(path).completeBaseName());
    const QString problem = page->load(absolute);
    if (problem.isEmpty())
        return;
    delete page; // takes its tab along
    QMessageBox::warning(this, tr("Open"), tr("%1 can't be opened.\n\n%2").arg(path, problem));
}

NotePage *NotebookWindow::currentPage() const
{
    return pageAt(m_tabs->currentIndex());
}

int NotebookWindow::noteCount() const
{
    return m_tabs->count();
}

void NotebookWindow::closeEvent(QCloseEvent *event)
{
    for (int i = 0; i < noteCount() && event->isAccepted(); ++i)
        event->setAccepted(mayClose(i));
}

NotePage *NotebookWindow::addPage(const QString &name)
{
    auto *page = new NotePage(name, m_preferences);
    connect(page, &NotePage::changed, this, [this, page] { showState(page); });
    m_tabs->setCurrentIndex(m_tabs->addTab(page, name));
    return page;
}

NotePage *NotebookWindow::pageAt(int index) const
{
    return qobject_cast<NotePage *>(m_tabs->widget(index));
}

QPlainTextEdit &NotebookWindow::editor() const
{
    return currentPage()->editor();
}

void NotebookWindow::newNote()
{
    ++m_untitled;
    addPage(m_untitled == 1 ? tr("Untitled") : tr("Untitled %1").arg(m_untitled));
}

void NotebookWindow::chooseNotes()
{
    const QStringList paths = QFileDialog::getOpenFileNames(this, tr("Open"), QString(), fileFilter());
    for (const QString &path : paths)
        openNote(path);
}

bool NotebookWindow::save(NotePage &page, bool elsewhere)
{
    QString path = page.path().isEmpty() ? page.name() + QStringLiteral(".md") : page.path();
    if (page.path().isEmpty() || elsewhere)
        path = QFileDialog::getSaveFileName(this, tr("Save As"), path, fileFilter());
    if (path.isEmpty())
        return false;
    const QString problem = page.save(path);
    if (!problem.isEmpty())
        QMessageBox::warning(this, tr("Save"), tr("%1 can't be saved.\n\n%2").arg(path, problem));
    return problem.isEmpty();
}

bool NotebookWindow::mayClose(int index)
{
    NotePage *page = pageAt(index);
    if (!page->isModified())
        return true;
    m_tabs->setCurrentIndex(index);
    QMessageBox question(QMessageBox::NoIcon, tr("Unsaved Changes"),
                         tr("Save the changes to “%1”?").arg(page->name()),
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    question.setInformativeText(tr("They are lost if you don't."));
    question.setIconPixmap(windowIcon().pixmap(48));
    question.setDefaultButton(QMessageBox::Save);
    const int answer = question.exec();
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save(*page));
}

void NotebookWindow::closeNote(int index)
{
    if (!mayClose(index))
        return;
    NotePage *page = pageAt(index);
    if (noteCount() == 1)
        newNote();
    delete page; // takes its tab along
}

void NotebookWindow::editPreferences()
{
    PreferencesDialog dialog(m_preferences, this);
    if (dialog.exec() == QDialog::Accepted)
        setPreferences(dialog.preferences());
}

void NotebookWindow::setPreferences(const Preferences &preferences)
{
    m_preferences = preferences;
    preferences.save();
    m_wordWrap->setChecked(preferences.wordWrap);
    m_preview->setChecked(preferences.preview);
    for (int i = 0; i < noteCount(); ++i)
        pageAt(i)->apply(preferences);
}

void NotebookWindow::readSwitches()
{
    Preferences changed = m_preferences;
    changed.preview = m_preview->isChecked();
    changed.wordWrap = m_wordWrap->isChecked();
    setPreferences(changed);
}

void NotebookWindow::zoom(int points)
{
    Preferences changed = m_preferences;
    changed.fontSize = qBound(Preferences::smallestFont, points, Preferences::largestFont);
    setPreferences(changed);
}

void NotebookWindow::showAbout()
{
    QMessageBox::about(
        this, tr("About Fieldnotes"),
        tr("<h3>Fieldnotes %1</h3><p>A small notebook for Markdown and plain text.</p>"
           "<p>It shows how an application in Qt Widgets uses Wexel: to report a bug, shake this "
           "window, press Print, drag in from the right edge, or use the floating button.</p>")
            .arg(QCoreApplication::applicationVersion()));
}

void NotebookWindow::showNote()
{
    NotePage *page = currentPage();
    if (page == nullptr)
        return;
    qCInfo(fieldnotes).noquote() << "Note:" << page->name();
    page->editor().setFocus();
    showState(page);
}

void NotebookWindow::showState(NotePage *page)
{
    QString label = page->isModified() ? QStringLiteral("• ") + page->name() : page->name();
    m_tabs->setTabText(m_tabs->indexOf(page), label.replace(u'&', QStringLiteral("&&")));
    if (page != currentPage())
        return;
    const QTextCursor cursor = page->editor().textCursor();
    setWindowTitle(page->name() + QStringLiteral("[*]"));
    setWindowModified(page->isModified());
    m_saved->setText(page->isModified()           ? tr("Unsaved changes")
                         : page->path().isEmpty() ? tr("Not on disk yet")
                                                  : tr("Saved"));
    m_words->setText(tr("%1 words").arg(page->wordCount()));
    m_position->setText(
        tr("Line %1, column %2").arg(cursor.blockNumber() + 1).arg(cursor.positionInBlock() + 1));
    m_undo->setEnabled(page->editor().document()->isUndoAvailable());
    m_redo->setEnabled(page->editor().document()->isRedoAvailable());
    m_cut->setEnabled(cursor.hasSelection());
    m_copy->setEnabled(cursor.hasSelection());
}

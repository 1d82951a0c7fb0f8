#include "NotebookWindow.h"

#include <algorithm>

#include <QAction>
#include <QCloseEvent>
#include <QDate>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <Wexel/WXLWexel.h>

#include "FindBar.h"
#include "NoteEditor.h"
#include "NotePage.h"
#include "PreferencesDialog.h"

namespace {

Q_LOGGING_CATEGORY(fieldnotes, "fieldnotes")

QString fileFilter()
{
    return NotebookWindow::tr("Notes (*.md *.markdown *.txt);;All files (*)");
}

} // namespace

NotebookWindow::NotebookWindow()
    : m_actions(*this)
    , m_tabs(new QTabWidget)
    , m_findBar(new FindBar)
    , m_saved(new QLabel)
    , m_words(new QLabel)
    , m_position(new QLabel)
{
    m_tabs->setDocumentMode(true);
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    auto *content = new QWidget;
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(m_tabs);
    column->addWidget(m_findBar);
    setCentralWidget(content);
    fillStatusBar();
    connectFile();
    connectEdit();
    connectView();
    setPreferences(Preferences::load());
    setMinimumSize(520, 360);
    resize(1100, 720);
}

void NotebookWindow::connectFile()
{
    connect(m_actions.newNote, &QAction::triggered, this, &NotebookWindow::newNote);
    connect(m_actions.open, &QAction::triggered, this, &NotebookWindow::chooseNotes);
    connect(m_actions.save, &QAction::triggered, this, [this] { save(*currentPage()); });
    connect(m_actions.saveAs, &QAction::triggered, this, [this] { saveAs(*currentPage()); });
    connect(m_actions.closeTab, &QAction::triggered, this, [this] { closeNote(m_tabs->currentIndex()); });
    connect(m_actions.quit, &QAction::triggered, this, &QWidget::close);
    connect(m_tabs, &QTabWidget::tabCloseRequested, this, &NotebookWindow::closeNote);
    connect(m_tabs, &QTabWidget::currentChanged, this, &NotebookWindow::changeCurrent);
}

void NotebookWindow::connectEdit()
{
    const auto edit = [this](QAction *action, void (QPlainTextEdit::*command)()) {
        connect(action, &QAction::triggered, this, [this, command] { (currentPage()->editor().*command)(); });
    };
    edit(m_actions.undo, &QPlainTextEdit::undo);
    edit(m_actions.redo, &QPlainTextEdit::redo);
    edit(m_actions.cut, &QPlainTextEdit::cut);
    edit(m_actions.copy, &QPlainTextEdit::copy);
    edit(m_actions.paste, &QPlainTextEdit::paste);
    connect(m_actions.find, &QAction::triggered, m_findBar, &FindBar::open);
    connect(m_actions.sign, &QAction::triggered, this, &NotebookWindow::signNote);
    connect(m_actions.preferences, &QAction::triggered, this, &NotebookWindow::editPreferences);
}

void NotebookWindow::connectView()
{
    connect(m_actions.wordWrap, &QAction::triggered, this, [this](bool on) {
        m_preferences.wordWrap = on;
        setPreferences(m_preferences);
    });
    connect(m_actions.preview, &QAction::triggered, this, [this](bool on) {
        m_preferences.preview = on;
        setPreferences(m_preferences);
    });
    connect(m_actions.zoomIn, &QAction::triggered, this, [this] { zoom(m_preferences.fontSize + 1); });
    connect(m_actions.zoomOut, &QAction::triggered, this, [this] { zoom(m_preferences.fontSize - 1); });
    connect(m_actions.usualSize, &QAction::triggered, this, [this] { zoom(Preferences::usualFont); });
    connect(m_actions.report, &QAction::triggered, this, [] { wexel::WXLWexel::manualStart(); });
    connect(m_actions.about, &QAction::triggered, this, &NotebookWindow::showAbout);
}

void NotebookWindow::fillStatusBar()
{
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(m_saved);
    statusBar()->addPermanentWidget(m_words);
    statusBar()->addPermanentWidget(m_position);
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
    QMessageBox::warning(this, tr("Open"), tr("%1 can't be opened.\n%2").arg(path, problem));
}

void NotebookWindow::openSamples()
{
    for (const QString &name : {QStringLiteral("River walk"), QStringLiteral("Welcome")}) {
        QFile sample(QStringLiteral(":/Notes/%1.md").arg(name));
        if (sample.open(QIODevice::ReadOnly))
            addPage(name)->setText(QString::fromUtf8(sample.readAll()));
    }
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
    bool all = true;
    for (int i = 0; all && i < noteCount(); ++i)
        all = mayClose(i);
    event->setAccepted(all);
}

NotePage *NotebookWindow::addPage(const QString &name)
{
    auto *page = new NotePage(name);
    page->apply(m_preferences);
    connect(page, &NotePage::changed, this, [this, page] { showState(page); });
    m_tabs->setCurrentIndex(m_tabs->addTab(page, name));
    page->setFocus();
    return page;
}

NotePage *NotebookWindow::pageAt(int index) const
{
    return qobject_cast<NotePage *>(m_tabs->widget(index));
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

bool NotebookWindow::save(NotePage &page)
{
    if (page.path().isEmpty())
        return saveAs(page);
    const QString problem = page.save(page.path());
    if (!problem.isEmpty())
        QMessageBox::warning(this, tr("Save"), tr("%1 can't be saved.\n%2").arg(page.path(), problem));
    return problem.isEmpty();
}

bool NotebookWindow::saveAs(NotePage &page)
{
    const QString suggestion = page.path().isEmpty() ? page.name() + QStringLiteral(".md") : page.path();
    const QString path = QFileDialog::getSaveFileName(this, tr("Save As"), suggestion, fileFilter());
    if (path.isEmpty())
        return false;
    const QString problem = page.save(path);
    if (!problem.isEmpty())
        QMessageBox::warning(this, tr("Save As"), tr("%1 can't be saved.\n%2").arg(path, problem));
    return problem.isEmpty();
}

bool NotebookWindow::mayClose(int index)
{
    NotePage *page = pageAt(index);
    if (!page->isModified())
        return true;
    m_tabs->setCurrentIndex(index);
    QMessageBox question(QMessageBox::Question, tr("Unsaved Changes"),
                         tr("Save the changes to “%1”?").arg(page->name()),
                         QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    question.setInformativeText(tr("They are lost if you don't."));
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
    m_tabs->removeTab(m_tabs->indexOf(page));
    page->deleteLater();
}

void NotebookWindow::signNote()
{
    if (m_preferences.author.isEmpty())
        editPreferences();
    if (m_preferences.author.isEmpty())
        return;
    const QString date = QLocale().toString(QDate::currentDate(), QLocale::LongFormat);
    currentPage()->editor().appendParagraph(QStringLiteral("*%1, %2*").arg(m_preferences.author, date));
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
    m_actions.wordWrap->setChecked(preferences.wordWrap);
    m_actions.preview->setChecked(preferences.preview);
    m_actions.zoomIn->setEnabled(preferences.fontSize < Preferences::largestFont);
    m_actions.zoomOut->setEnabled(preferences.fontSize > Preferences::smallestFont);
    for (int i = 0; i < noteCount(); ++i)
        pageAt(i)->apply(preferences);
}

void NotebookWindow::zoom(int points)
{
    m_preferences.fontSize = std::clamp(points, Preferences::smallestFont, Preferences::largestFont);
    setPreferences(m_preferences);
}

void NotebookWindow::showAbout()
{
    QMessageBox::about(
        this, tr("About Fieldnotes"),
        tr("<h3>Fieldnotes %1</h3><p>A small notebook for Markdown and plain text.</p>"
           "<p>It shows how an application in Qt Widgets uses Wexel: shake this window, press "
           "Print, drag in from the right edge, or use the floating button to report a bug.</p>")
            .arg(QCoreApplication::applicationVersion()));
}

void NotebookWindow::changeCurrent()
{
    NotePage *page = currentPage();
    if (page == nullptr)
        return m_findBar->setEditor(nullptr);
    qCInfo(fieldnotes).noquote() << "Note:" << page->name();
    m_findBar->setEditor(&page->editor());
    showState(page);
}

void NotebookWindow::showState(NotePage *page)
{
    const QString mark = page->isModified() ? QStringLiteral("• ") : QString();
    m_tabs->setTabText(m_tabs->indexOf(page), mark + page->name());
    if (page != currentPage())
        return;
    const QTextCursor cursor = page->editor().textCursor();
    setWindowTitle(page->name() + QStringLiteral("[*]"));
    setWindowModified(page->isModified());
    m_saved->setText(page->isModified()           ? tr("Unsaved changes")
                         : page->path().isEmpty() ? tr("Not on disk yet")
                                                  : tr("Saved"));
    m_words->setText(tr("%n word(s)", nullptr, page->wordCount()));
    m_position->setText(
        tr("Line %1, column %2").arg(cursor.blockNumber() + 1).arg(cursor.positionInBlock() + 1));
    m_actions.undo->setEnabled(page->editor().document()->isUndoAvailable());
    m_actions.redo->setEnabled(page->editor().document()->isRedoAvailable());
    m_actions.cut->setEnabled(cursor.hasSelection());
    m_actions.copy->setEnabled(cursor.hasSelection());
}

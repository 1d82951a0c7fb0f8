#include <QAction>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QToolBar>

#include <Wexel/WXLWexel.h>

#include "Appearance.h"
#include "FindBar.h"
#include "NotebookWindow.h"

QAction *NotebookWindow::add(QMenu &menu, const Command &command, const std::function<void()> &run)
{
    QAction *action = menu.addAction(command.text);
    action->setShortcut(command.keys);
    connect(action, &QAction::triggered, this, run);
    if (command.icon.isEmpty())
        return action;
    action->setIcon(namedIcon(command.icon));
    const QString keys = command.keys.toString(QKeySequence::NativeText);
    if (!keys.isEmpty())
        action->setToolTip(QStringLiteral("%1 (%2)").arg(action->toolTip(), keys));
    m_tools->addAction(action);
    return action;
}

void NotebookWindow::addSeparators(QMenu &menu)
{
    menu.addSeparator();
    m_tools->addSeparator();
}

void NotebookWindow::addFileMenu()
{
    QMenu &menu = *menuBar()->addMenu(tr("&File"));
    add(menu, {tr("&New"), QKeySequence::New, QStringLiteral("new")}, [this] { newNote(); });
    add(menu, {tr("&Open..."), QKeySequence::Open, QStringLiteral("open")}, [this] { chooseNotes(); });
    add(menu, {tr("&Save"), QKeySequence::Save, QStringLiteral("save")}, [this] { save(*currentPage()); });
    add(menu, {tr("Save &As..."), tr("Ctrl+Shift+S")}, [this] { saveAs(*currentPage()); });
    addSeparators(menu);
    add(menu, {tr("&Close Tab"), tr("Ctrl+W")}, [this] { closeNote(m_tabs->currentIndex()); });
    add(menu, {tr("&Quit"), tr("Ctrl+Q")}, [this] { close(); });
}

void NotebookWindow::addEditMenu()
{
    QMenu &menu = *menuBar()->addMenu(tr("&Edit"));
    const auto addEdit = [&](const Command &command, void (QPlainTextEdit::*run)()) {
        return add(menu, command, [this, run] { edit(run); });
    };
    m_undo = addEdit({tr("&Undo"), QKeySequence::Undo, QStringLiteral("undo")}, &QPlainTextEdit::undo);
    m_redo = addEdit({tr("&Redo"), QKeySequence::Redo, QStringLiteral("redo")}, &QPlainTextEdit::redo);
    addSeparators(menu);
    m_cut = addEdit({tr("Cu&t"), QKeySequence::Cut, QStringLiteral("cut")}, &QPlainTextEdit::cut);
    m_copy = addEdit({tr("&Copy"), QKeySequence::Copy, QStringLiteral("copy")}, &QPlainTextEdit::copy);
    addEdit({tr("&Paste"), QKeySequence::Paste, QStringLiteral("paste")}, &QPlainTextEdit::paste);
    addSeparators(menu);
    add(menu, {tr("&Find..."), QKeySequence::Find, QStringLiteral("find")}, [this] { m_findBar->open(); });
    menu.addSeparator();
    add(menu, {tr("Pr&eferences..."), tr("Ctrl+,")}, [this] { editPreferences(); });
}

void NotebookWindow::addViewMenu()
{
    QMenu &menu = *menuBar()->addMenu(tr("&View"));
    const auto addSwitch = [&](const Command &command, bool Preferences::*value) {
        QAction *action = add(menu, command, [this, value] {
            Preferences changed = m_preferences;
            changed.*value = !(changed.*value);
            setPreferences(changed);
        });
        action->setCheckable(true);
        return action;
    };
    m_preview
        = addSwitch({tr("&Preview"), tr("Ctrl+Shift+P"), QStringLiteral("preview")}, &Preferences::preview);
    m_wordWrap = addSwitch({tr("&Word Wrap"), tr("Alt+Z")}, &Preferences::wordWrap);
    menu.addSeparator();
    QAction *larger = add(menu, {tr("Zoom &In")}, [this] { zoom(m_preferences.fontSize + 1); });
    larger->setShortcuts({QKeySequence(tr("Ctrl++")), QKeySequence(tr("Ctrl+="))}); // without Shift, too
    add(menu, {tr("Zoom &Out"), tr("Ctrl+-")}, [this] { zoom(m_preferences.fontSize - 1); });
    add(menu, {tr("&Usual Size"), tr("Ctrl+0")}, [this] { zoom(Preferences::usualFont); });
}

void NotebookWindow::addHelpMenu()
{
    auto *space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_tools->addWidget(space);
    QMenu &menu = *menuBar()->addMenu(tr("&Help"));
    add(menu, {tr("&Report a bug"), {}, QStringLiteral("bug")}, [] { wexel::WXLWexel::manualStart(); });
    menu.addSeparator();
    add(menu, {tr("&About Fieldnotes")}, [this] { showAbout(); });
}

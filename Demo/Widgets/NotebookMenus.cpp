#include <QAction>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QToolBar>

#include <Wexel/WXLWexel.h>

#include "Appearance.h"
#include "FindBar.h"
#include "NotePage.h"
#include "NotebookWindow.h"

QAction *NotebookWindow::add(QMenu *menu, const QString &text, const QKeySequence &keys, const char *icon,
                             const Run &run)
{
    QAction *action = menu->addAction(text);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, run);
    if (icon == nullptr)
        return action;
    action->setIcon(namedIcon(QString::fromLatin1(icon)));
    if (!keys.isEmpty())
        action->setToolTip(QStringLiteral("%1 (%2)").arg(action->toolTip(), keys.toString()));
    m_tools->addAction(action);
    return action;
}

void NotebookWindow::addSeparators(QMenu *menu)
{
    menu->addSeparator();
    m_tools->addSeparator();
}

void NotebookWindow::addFileMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&File"));
    add(menu, tr("&New"), QKeySequence::New, "new", [this] { newNote(); });
    add(menu, tr("&Open..."), QKeySequence::Open, "open", [this] { chooseNotes(); });
    add(menu, tr("&Save"), QKeySequence::Save, "save", [this] { save(*currentPage()); });
    add(menu, tr("Save &As..."), tr("Ctrl+Shift+S"), nullptr, [this] { save(*currentPage(), true); });
    addSeparators(menu);
    add(menu, tr("&Close Tab"), tr("Ctrl+W"), nullptr, [this] { closeNote(m_tabs->currentIndex()); });
    add(menu, tr("&Quit"), tr("Ctrl+Q"), nullptr, [this] { close(); });
}

void NotebookWindow::addEditMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Edit"));
    m_undo = add(menu, tr("&Undo"), QKeySequence::Undo, "undo", [this] { editor().undo(); });
    m_redo = add(menu, tr("&Redo"), QKeySequence::Redo, "redo", [this] { editor().redo(); });
    addSeparators(menu);
    m_cut = add(menu, tr("Cu&t"), QKeySequence::Cut, "cut", [this] { editor().cut(); });
    m_copy = add(menu, tr("&Copy"), QKeySequence::Copy, "copy", [this] { editor().copy(); });
    add(menu, tr("&Paste"), QKeySequence::Paste, "paste", [this] { editor().paste(); });
    addSeparators(menu);
    add(menu, tr("&Find..."), QKeySequence::Find, "find", [this] { m_findBar->open(); });
    menu->addSeparator();
    add(menu, tr("Pr&eferences..."), tr("Ctrl+,"), nullptr, [this] { editPreferences(); });
}

void NotebookWindow::addViewMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    m_preview = add(menu, tr("&Preview"), tr("Ctrl+Shift+P"), "preview", [this] { readSwitches(); });
    m_wordWrap = add(menu, tr("&Word Wrap"), tr("Alt+Z"), nullptr, [this] { readSwitches(); });
    m_preview->setCheckable(true);
    m_wordWrap->setCheckable(true);
    menu->addSeparator();
    QAction *larger = add(menu, tr("Zoom &In"), {}, nullptr, [this] { zoom(m_preferences.fontSize + 1); });
    larger->setShortcuts({QKeySequence(tr("Ctrl++")), QKeySequence(tr("Ctrl+="))}); // without Shift, too
    add(menu, tr("Zoom &Out"), tr("Ctrl+-"), nullptr, [this] { zoom(m_preferences.fontSize - 1); });
    add(menu, tr("&Usual Size"), tr("Ctrl+0"), nullptr, [this] { zoom(Preferences::usualFont); });
}

void NotebookWindow::addHelpMenu()
{
    auto *space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_tools->addWidget(space);
    QMenu *menu = menuBar()->addMenu(tr("&Help"));
    add(menu, tr("&Report a bug"), {}, "bug", [] { wexel::WXLWexel::manualStart(); });
    menu->addSeparator();
    add(menu, tr("&About Fieldnotes"), {}, nullptr, [this] { showAbout(); });
}
